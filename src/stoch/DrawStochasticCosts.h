#pragma once

#include "line/CostCurve.h"
#include "line/Demand.h"
#include "line/StochasticLine.h"
#include "picture/Picture.h"

namespace quarnel02 {

/// Expected cost of the best designs over capacity, with the chosen capacity marked and the volumes
/// that save a shift as light lines.
void DrawStochasticCosts(const StochasticLine& line, const CostCurve& expectedCosts,
                         const DemandDistribution& demand, Picture& picture);

}  // namespace quarnel02
