#pragma once

#include <string>
#include <vector>

#include "picture/Picture.h"
#include "study/LineTable.h"

namespace quarnel02 {

/// A scenario in a chart of costs.
struct CostBar {
    std::string Name;
    CostFigures Figures;
    double Penalty = 0;  ///< dollars per year
    std::string Words;   ///< its line and what else there is to say
};

/// The cost of each scenario as a bar of capital, machine, labour and penalty. Every part says
/// what it is.
void DrawCostBars(Picture& picture, std::vector<CostBar> bars);

}  // namespace quarnel02
