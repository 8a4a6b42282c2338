#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "line/CostModel.h"
#include "line/FixedDemand.h"
#include "line/Network.h"
#include "line/Pathways.h"
#include "line/StationGroup.h"

namespace quarnel02 {

/// What became of a pathway in a design.
enum class PathwayState : std::int8_t {
    Feasible = 1,   ///< within the limit; once dearer ones are told apart: the cheapest of its arc
    OverLimit = 2,  ///< needs more parallel stations than are allowed
    Dearer = 3,     ///< feasible, but not the cheapest of its arc
    Chosen = 4      ///< on the line
};

/// Costs and states of all pathways of a prepared model, in their order.
struct CostedPathways {
    std::vector<PathwayCost> Costs;
    std::vector<PathwayState> States;
};

/// Costs every pathway for a request: states are Feasible and OverLimit.
/// Throws as WorkloadOf and CostOfGroup do.
CostedPathways CostAll(const PreparedLine& line, const FixedDemandRequest& request);
/// The same for a workload that stands already.
CostedPathways CostAll(const PreparedLine& line, const Workload& workload,
                       std::optional<std::int16_t> stationLimit);

/// The cheapest feasible pathway of every arc, by end node and start node; of equal ones the one
/// with the lowest number.
std::vector<Way> CheapestWays(const PreparedLine& line, const CostedPathways& costed);

/// Tells the feasible pathways that are not among the cheapest ways, Dearer, from those that are.
void MarkDearer(std::vector<PathwayState>& states, std::span<const Way> cheapest);

/// A station group of a line, its cost and its pathway.
struct LineGroup {
    int Pathway = 0;
    StationGroup Group;
    PathwayCost Cost;
};

/// A line for all tasks of a model.
struct Line {
    std::vector<LineGroup> Groups;  ///< in the order of the tasks
    float Cost = 0;                 ///< dollars per year
};

/// The cheapest line for a request; none when no line does all tasks within the limit. Between
/// lines of equal cost, of the ways into each node the one with the lowest start node counts, and
/// of the pathways of an arc the one with the lowest number. Throws as CostAll does.
std::optional<Line> CheapestLine(const PreparedLine& line, const FixedDemandRequest& request);

}  // namespace quarnel02
