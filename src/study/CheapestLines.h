#pragma once

#include <vector>

#include "line/CheapestLine.h"
#include "line/Pathways.h"

namespace quarnel02 {

/// The `count` cheapest lines (fewer where there are not so many) within costs and states of
/// CostAll, in ascending cost; the first is that of CheapestLine. Lines differ in a resource or in
/// a range of tasks. Of equal costs the line counts first whose last group starts earlier, then the
/// one whose last group costs less, has the lower pathway number, and so on for the groups before.
/// Throws Overflow.
std::vector<Line> CheapestLines(const PreparedLine& line, const CostedPathways& costed, int count);

}  // namespace quarnel02
