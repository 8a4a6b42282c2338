#pragma once

#include <string>
#include <vector>

#include "line/CostCurve.h"
#include "picture/Picture.h"

namespace quarnel02 {

/// A capacity that a chart marks.
struct CapacityMark {
    double Capacity = 0;  ///< units per year
    double Cost = 0;      ///< dollars per year
    std::string Words;    ///< what the mark says
};

/// Expected cost over capacity with a ring and its rank at each mark, the cheapest one first. Costs
/// far above those of the marks are cut off. Every stretch tells capacity and cost.
void DrawCapacities(Picture& picture, const CostCurve& expectedCosts,
                    std::vector<CapacityMark> marks);

}  // namespace quarnel02
