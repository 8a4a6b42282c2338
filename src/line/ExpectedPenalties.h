#pragma once

#include "line/CostCurve.h"
#include "line/Demand.h"

namespace quarnel02 {

/// A curve with the expected penalty added: expected demand that a capacity does not meet, times
/// the penalty in dollars per unit. Segments are cut where the expected production bends.
CostCurve WithExpectedPenalties(const CostCurve& curve, const ProductionCurve& production,
                                float penaltyPerUnit);

}  // namespace quarnel02
