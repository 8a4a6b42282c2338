#pragma once

#include <optional>
#include <vector>

#include "line/CurveListener.h"
#include "line/LineModel.h"
#include "line/StochasticLine.h"

namespace quarnel02 {

/// The outcome of a stochastic design.
struct StochasticResult {
    /// The cheapest line; none when no line does all tasks at any volume.
    std::optional<StochasticLine> Line;
    /// The first task that no resource can do within 4,095 parallel stations, even for the lowest
    /// volume; 0 when there is none.
    int ImpossibleTask = 0;
    /// Expected cost of the cheapest lines over capacity, penalties included; empty where a task
    /// is impossible.
    CostCurve ExpectedCosts;
    /// Curves that are not complete, in the order in which they were made.
    std::vector<EarlyEnd> EarlyEnds;
};

/// Throws Overflow for a number of resources that the stochastic design cannot take: more than
/// 4,095.
void RequireFewResources(int resources);

/// Designs a line for the demand distribution of a model: a dynamic programme over task prefixes
/// whose values are curves of expected annual cost over capacity. Of equal costs the resource, the
/// first task of the last group, and the volume that come first count.
///
/// Throws Overflow for more than 4,095 resources, a negative penalty (dollars per unit of unmet
/// demand), and figures beyond a single; DivisionByZero when an uptime or StatPerWrk is 0; and as
/// DemandDistribution does.
StochasticResult DesignForDemand(const LineModel& model, float penaltyPerUnit,
                                 CurveListener& listener);
StochasticResult DesignForDemand(const LineModel& model, float penaltyPerUnit);

}  // namespace quarnel02
