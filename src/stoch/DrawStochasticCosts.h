#pragma once

#include <functional>
#include <string>

#include "line/CostCurve.h"
#include "line/Demand.h"
#include "line/StochasticLine.h"
#include "picture/Picture.h"

namespace quarnel02 {

/// The stations of the best line on a segment of a cost curve: "Bench 1-8; Assist x2 9-12".
using StationsOfSegment = std::function<std::string(const CurveSegment&)>;

/// Expected cost of the best designs over capacity, with the chosen capacity in a ring and the
/// volumes that save a shift as light lines with their names. The axis of the costs begins where
/// the figures matter; capacities so small that penalties make them far dearer end in an arrow.
/// Every segment tells capacity, cost and, by `stations` where there is one, stations.
void DrawStochasticCosts(const StochasticLine& line, const CostCurve& expectedCosts,
                         const DemandDistribution& demand, Picture& picture,
                         const StationsOfSegment& stations = {});

}  // namespace quarnel02
