#pragma once

#include <string>
#include <vector>

#include "studies/ShownTable.h"
#include "studies/StudyInput.h"
#include "study/Sensitivity.h"
#include "study/StudyWatch.h"

namespace quarnel02 {

/// What figures do to the line of a question when they are a share lower or higher.
struct SensitivityStudy {
    ShownTable Figures;                ///< the strongest first; without rows when there is no line
    std::vector<SensitivityRow> Rows;  ///< those figures in the order of the model
    double Cost = 0;                   ///< today's, dollars per year
    std::string Flips;  ///< of a stochastic design: the penalties at which the capacity changes
};

/// `share` above 0 and below 1. Looks at `watch`. Throws as SensitivityOf and DesignForDemand do.
SensitivityStudy StudySensitivity(const StudyInput& input, double share,
                                  const StudyWatch& watch = {});

}  // namespace quarnel02
