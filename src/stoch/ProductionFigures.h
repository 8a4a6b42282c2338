#pragma once

#include <string>
#include <vector>

#include "stoch/StochRun.h"

namespace quarnel02 {

/// A station of the chosen design.
struct ProductionStation {
    int Number;
    int Resource;
    std::string ShortName;
    int Type;
    int Quantity;
    double Cost;  ///< expected dollars per year
    float Time;   ///< seconds per unit
    int FirstTask;
    int LastTask;
    std::string Tools;
};

/// What the line does and costs at one demand point.
struct DemandOutcome {
    float Volume;  ///< units per year
    float Prob;    ///< percent
    int Shifts;
    double TotalCost;  ///< dollars per year, penalty included
    double Penalty;    ///< dollars per year
};

/// The chosen design in figures.
struct ProductionFigures {
    float Capacity = 0;  ///< units per year
    std::vector<ProductionStation> Stations;
    float CycleTime = 0;                  ///< seconds, of the slowest station
    float MaximumCycleTime = 0;           ///< seconds that the capacity leaves
    double ExpectedPenalty = 0;           ///< dollars per year
    double SystemCosts = 0;               ///< expected dollars per year, penalty included
    double FixedCosts = 0;                ///< capital charge of all stations, dollars per year
    std::vector<DemandOutcome> Outcomes;  ///< in ascending volume
};

/// Throws as PenaltyPerUnit does, and what the store reports.
ProductionFigures FiguresOf(const StochRun& run);

}  // namespace quarnel02
