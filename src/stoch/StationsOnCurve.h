#pragma once

#include <span>
#include <vector>

#include "line/CostCurve.h"
#include "line/StationGroup.h"

namespace quarnel02 {

/// The cheapest line at the start of a segment of the last curve, in the order of the tasks.
/// `prefixes` are the curves of the cheapest lines of the first task, the first two and so on.
std::vector<StationGroup> StationsOn(const CurveSegment& segment,
                                     std::span<const CostCurve> prefixes);

}  // namespace quarnel02
