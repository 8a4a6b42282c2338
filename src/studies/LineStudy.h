#pragma once

#include <optional>
#include <string>

#include "studies/ShownTable.h"
#include "studies/StudyInput.h"
#include "study/LineTable.h"
#include "study/StudyWatch.h"

namespace quarnel02 {

/// The line of a question, with all figures of its stations.
struct LineStudy {
    LineTable Table;
    double Penalty = 0;  ///< expected, dollars per year
    double Cost = 0;     ///< of the design, dollars per year, penalty included
};

/// None when there is no line. Looks at `watch`. Throws as CheapestLine and DesignForDemand do.
std::optional<LineStudy> StudyLine(const StudyInput& input, const StudyWatch& watch = {});

/// The stations, a row each, and the totals; of a stochastic design also the penalty.
ShownTable TableOf(const LineModel& model, const LineStudy& study);

/// Cost, cost per unit and cycle times in a line.
std::string SummaryOf(const LineStudy& study);

/// How the figures of a row of TableOf are computed.
std::string HowComputedAt(const LineModel& model, const LineStudy& study, std::size_t row);

}  // namespace quarnel02
