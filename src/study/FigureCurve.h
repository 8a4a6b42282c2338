#pragma once

#include "study/FigureShares.h"
#include "study/GridCurve.h"

namespace quarnel02 {

/// Cost of a step where nothing can be built; more than any line costs.
inline constexpr double kClosed = 1e30;

/// What the pathways of one resource are asked for when a figure is varied.
struct FigureSweep {
    const LineModel& Model;
    int Resource = 0;
    FigureKind Figure = FigureKind::Days;
    double Units = 0;           ///< per year
    double Shifts = 0;          ///< per day
    int MostStations = 0;       ///< of a group
    double MostCost = kClosed;  ///< dollars per year, of a line; dearer groups need no curve
    StepSpan Steps;

    [[nodiscard]] SharedCost At(int step) const;
};

/// Annual cost of a pathway over the steps of a figure; kClosed where it would need too many
/// stations, or so many that they alone cost more than a line.
GridCurve FigureCurve(const FigureSweep& sweep, const PathwayParts& parts);

}  // namespace quarnel02
