#pragma once

#include <optional>
#include <string>
#include <vector>

#include "line/FixedDemand.h"
#include "line/Pathways.h"
#include "study/ExpectedDesigns.h"
#include "study/ModelFigures.h"
#include "study/StudyWatch.h"

namespace quarnel02 {

/// By how much a study of sensitivity varies figures unless it is told otherwise.
inline constexpr double kUsualShare = 0.1;

/// What one figure does to the cheapest line.
struct SensitivityRow {
    ModelFigure Figure;
    std::string Name;
    double Value = 0;                 ///< today's
    double Low = 0;                   ///< less a share
    std::optional<float> CostLow;     ///< dollars per year at Low; none: no line there
    double High = 0;                  ///< plus a share; an uptime is at most 100
    std::optional<float> CostHigh;    ///< dollars per year at High; none: no line there
    bool Changes = false;             ///< today's line is not the cheapest one at Low or at High
    std::optional<double> BreakEven;  ///< the nearest value at which the line changes (BreakEvens)
    double Swing = 0;  ///< the larger change of cost of both, dollars per year; of those that are
};

/// What every figure of a model does to the cheapest line for a request, in the order of FiguresOf.
/// Lines of equal cost up to the rounding of singles count as one. Empty when there is no line.
/// Looks at `watch`. Throws Overflow for a share that is not above 0 and below 1, and as
/// CheapestLine does.
std::vector<SensitivityRow> SensitivityOf(const PreparedLine& line,
                                          const FixedDemandRequest& request,
                                          double share = kUsualShare, const StudyWatch& watch = {});

/// What one figure does to the line for a demand distribution.
struct ExpectedSensitivityRow : SensitivityRow {
    float CapacityLow = 0;   ///< units per year at Low; 0: no line there
    float CapacityHigh = 0;  ///< units per year at High; 0: no line there
};

/// The same for a stochastic design, whose expected costs include penalties: every figure costs two
/// designs. The penalty is one of the figures. The line changes with a resource, a range of tasks
/// or a number of stations, not with the capacity alone. Only the penalty has a break-even: where
/// the capacity flips (PenaltyFlipsOf), the nearer one. Empty when there is no line.
std::vector<ExpectedSensitivityRow> SensitivityOf(const ExpectedDesigns& today,
                                                  double share = kUsualShare,
                                                  const StudyWatch& watch = {});

/// The rows with the largest swings, the largest first, at most `count`.
std::vector<SensitivityRow> Strongest(std::vector<SensitivityRow> rows, int count);

}  // namespace quarnel02
