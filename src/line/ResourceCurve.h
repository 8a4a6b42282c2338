#pragma once

#include "line/CostCurve.h"
#include "line/Demand.h"
#include "line/LineModel.h"
#include "line/WorkContent.h"

namespace quarnel02 {

/// Largest resource number and count of parallel stations of a cost curve.
inline constexpr int kMostInCurve = 4095;

/// Expected annual cost of a resource for a range of tasks over capacity, with as few parallel
/// stations as are enough. The curve reaches from the first to the last volume of the demand; it
/// ends early, TooManyStations, where 4,095 stations are not enough, and is empty where not even
/// the first volume can be met. `resource` is from 1 to 4,095. Throws Overflow, and
/// DivisionByZero when StatPerWrk is 0.
CostCurve ResourceCurve(const LineModel& model, const DemandDistribution& demand, int resource,
                        const WorkContent& content);

}  // namespace quarnel02
