#pragma once

#include <optional>
#include <span>
#include <vector>

#include "line/CostCurve.h"
#include "line/Demand.h"
#include "line/LineModel.h"
#include "line/StationGroup.h"

namespace quarnel02 {

/// A station group of a line for an uncertain demand.
struct ExpectedGroup {
    StationGroup Group;
    float Time = 0;  ///< seconds per unit of one station
    float Cost = 0;  ///< expected dollars per year

    bool operator==(const ExpectedGroup&) const = default;
};

/// What a line does and costs at one demand point.
struct DemandOutcome {
    DemandPoint Point;
    int Shifts = 0;        ///< per day
    double TotalCost = 0;  ///< dollars per year, penalty included
    double Penalty = 0;    ///< dollars per year
};

/// A line for all tasks of a model and an uncertain demand.
struct StochasticLine {
    std::vector<ExpectedGroup> Groups;    ///< in the order of the tasks
    float Capacity = 0;                   ///< units per year with three shifts
    float ExpectedCost = 0;               ///< dollars per year, penalty included
    float CycleTime = 0;                  ///< seconds, of the slowest station
    float MaximumCycleTime = 0;           ///< seconds that the capacity leaves
    double ExpectedPenalty = 0;           ///< dollars per year
    double FixedCosts = 0;                ///< capital charge of all stations, dollars per year
    std::vector<DemandOutcome> Outcomes;  ///< in ascending volume
};

/// The line at the lowest point of the last curve; the earliest of equal points. `prefixes` are
/// the curves of the cheapest lines of the first task, the first two tasks and so on, without
/// penalties; `withPenalties` is the last one with the expected penalties. None when that is
/// empty. Throws NoCurrentRecord when a curve ends before the volume that a later one has, and as
/// AnnualPartsOf does.
std::optional<StochasticLine> CheapestLineOf(const LineModel& model,
                                             const DemandDistribution& demand, float penaltyPerUnit,
                                             std::span<const CostCurve> prefixes,
                                             const CostCurve& withPenalties);

}  // namespace quarnel02
