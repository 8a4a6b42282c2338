#pragma once

#include <vector>

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
};

/// Without rows when there is no line. Looks at `watch`. Throws as AlternativesFor and
/// BestCapacities do.
AlternativesStudy StudyAlternatives(const StudyInput& input, const StudyWatch& watch = {});

}  // namespace quarnel02
