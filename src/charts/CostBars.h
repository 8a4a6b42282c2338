#pragma once

#include <string>
#include <vector>

#include "picture/Picture.h"
#include "study/LineTable.h"

namespace quarnel02 {

/// A scenario, or a line, in a chart of costs.
struct CostBar {
    std::string Name;
    CostFigures Figures;
    double Penalty = 0;  ///< dollars per year
    std::string Words;   ///< its line and what else there is to say
};

/// What a chart of costs is about.
struct CostBarTitles {
    std::string Chart = "Cost of the scenarios";
    std::string Bars = "Scenario";
};

/// The cost of each scenario, or line, as a bar of capital, machine, labour and penalty. Every part
/// says what it is.
void DrawCostBars(Picture& picture, std::vector<CostBar> bars, const CostBarTitles& titles = {});

}  // namespace quarnel02
