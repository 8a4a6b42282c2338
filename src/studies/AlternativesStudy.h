#pragma once

#include <vector>

#include "charts/CapacityChart.h"
#include "charts/CostBars.h"
#include "studies/ShownTable.h"
#include "studies/StudyInput.h"
#include "study/StudyWatch.h"

namespace quarnel02 {

/// The cheapest lines, or capacities, of a question, a row each, and for each of them what belongs
/// to it: of a line the next best resource for each station, of a capacity what it does with each
/// demand row.
struct AlternativesStudy {
    ShownTable Best;
    std::vector<ShownTable> Details;  ///< one for each row
    std::vector<CostBar> Bars;        ///< one for each row that is a line
    CostCurve ExpectedCosts;          ///< over capacity, where rows are capacities
    std::vector<CapacityMark> Marks;  ///< one for each row that is a capacity
};

/// Without rows when there is no line. Looks at `watch`. Throws as AlternativesFor and
/// BestCapacities do.
AlternativesStudy StudyAlternatives(const StudyInput& input, const StudyWatch& watch = {});

}  // namespace quarnel02
