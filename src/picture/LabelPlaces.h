#pragma once

#include <vector>

#include "picture/Figures.h"

namespace quarnel02 {

/// The places of a drawing that are taken, so that no text is put on another one.
class LabelPlaces {
  public:
    explicit LabelPlaces(const Extent& area) : m_area(area) {}

    /// Whether a place is inside the area and touches none that is taken.
    [[nodiscard]] bool IsFree(const Extent& place) const;
    void Take(const Extent& place) { m_taken.push_back(place); }
    /// Takes a place if it is free.
    bool TryTake(const Extent& place);

  private:
    Extent m_area;
    std::vector<Extent> m_taken;
};

bool Overlap(const Extent& a, const Extent& b);

}  // namespace quarnel02
