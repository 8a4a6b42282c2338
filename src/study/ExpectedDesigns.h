#pragma once

#include <vector>

#include "line/StochasticDesign.h"
#include "study/StudyWatch.h"

namespace quarnel02 {

/// A stochastic design with what a study needs beside its outcome.
struct ExpectedDesigns {
    LineModel Model;
    DemandDistribution Demand;
    float Penalty = 0;  ///< dollars per unit of unmet demand
    /// Expected cost of the cheapest lines for the first task, the first two and so on, over
    /// capacity, without penalties.
    std::vector<CostCurve> Prefixes;
    StochasticResult Result;

    /// The cheapest line at a capacity of Result.ExpectedCosts.
    [[nodiscard]] StochasticLine LineAt(float capacity) const;
};

/// Looks at `watch`. Throws as DesignForDemand does.
ExpectedDesigns DesignWithCurves(const LineModel& model, float penaltyPerUnit,
                                 const StudyWatch& watch = {});

}  // namespace quarnel02
