#pragma once

#include <span>
#include <unordered_map>
#include <vector>

#include "model/Database.h"

namespace quarnel02 {

/// A row of table Arcs: a run of tasks as an arc of the network, twips and radians.
struct Arc {
    int Id;
    int TaskStart;  ///< start node
    int TaskEnd;    ///< end node, last task + 1
    double Midpoint;
    double Radius;
    double Start;
    double End;
};

/// Table Arcs, read once.
class Arcs {
  public:
    /// Throws InvalidUseOfNull for an empty field.
    explicit Arcs(const Database& database);

    /// In the order of the rows.
    [[nodiscard]] std::span<const Arc> All() const { return m_arcs; }
    /// Throws NoCurrentRecord when there is no such arc.
    [[nodiscard]] const Arc& WithId(int arc) const;
    /// The arc from node to node; null when there is none.
    [[nodiscard]] const Arc* Between(int start, int end) const;

  private:
    std::vector<Arc> m_arcs;
    std::unordered_map<int, std::size_t> m_byId;
    std::unordered_map<int, std::size_t> m_byNodes;
};

}  // namespace quarnel02
