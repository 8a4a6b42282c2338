#pragma once

#include <optional>
#include <vector>

#include "line/FixedDemand.h"
#include "line/Pathways.h"
#include "study/ArcCurves.h"
#include "study/FigureCurve.h"
#include "study/PathwayPlaces.h"
#include "study/StudyWatch.h"

namespace quarnel02 {

/// Where the cheapest line for a request changes when one figure of the model does: another
/// resource, other tasks or another number of stations. Costs are not rounded to singles here.
class BreakEvens {
  public:
    /// Keeps a reference to the line.
    BreakEvens(const PreparedLine& line, const FixedDemandRequest& request);

    /// The value nearest to today's, by difference, at which the line is another one, or costs the
    /// same as another one that counts first; to a hundred-thousandth of today's value (of today's
    /// workers per station for their inverse).
    /// None where it changes at none of the values of StepsOf, where today's value is 0, and where
    /// there is no line today. Looks at `watch`.
    [[nodiscard]] std::optional<double> NearestTo(const ModelFigure& figure,
                                                  const StudyWatch& watch = {}) const;

  private:
    struct ArcBest {
        GridSegment Cheapest;
        GridSegment OfOtherResource;  ///< the cheapest one of another resource than that
    };

    [[nodiscard]] FigureSweep SweepOf(const ModelFigure& figure, int resource) const;
    void EnterToday();
    void SetTodaysLine();
    static void EnterArc(ArcBest& arc, const GridSegment& group);
    /// Of every arc the cheapest group that the figure does not touch.
    [[nodiscard]] ArcCurves ConstantCurves(const ModelFigure& figure, const StepSpan& steps) const;
    [[nodiscard]] ArcCurves CurvesOf(const ModelFigure& figure, const StepSpan& steps,
                                     const StudyWatch& watch) const;
    /// Steps next to today's at which another line begins, or today's needs other stations.
    [[nodiscard]] std::vector<int> Changes(const ModelFigure& figure,
                                           const StudyWatch& watch) const;
    /// The steps at which today's line has the stations that it has today.
    [[nodiscard]] StepSpan StepsWithTodaysStations(const ModelFigure& figure) const;
    /// What today's line costs at a step with the stations that it has today, dollars per year.
    [[nodiscard]] double CostOfTodaysLine(const ModelFigure& figure, int step) const;
    [[nodiscard]] const PathwayParts& PartsOf(const StationGroup& group) const;

    const PreparedLine& m_line;
    double m_units;
    double m_shifts;
    int m_mostStations;
    PathwayPlaces m_places;
    std::vector<PathwayParts> m_parts;  ///< by pathway
    OfArcs<ArcBest> m_today;
    std::vector<StationGroup> m_groups;  ///< of today's line
};

}  // namespace quarnel02
