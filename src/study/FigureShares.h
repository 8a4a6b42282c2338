#pragma once

#include <optional>

#include "line/LineModel.h"
#include "study/ModelFigures.h"

namespace quarnel02 {

// A figure is varied in whole steps of its share of today's value, so that curves over it are
// curves over a grid. Stations per worker go the other way round, in steps of the workers per
// station, because labour is straight in these.

/// Steps of today's value.
inline constexpr int kStepsOfToday = 100000;

/// The steps that are looked at.
struct StepSpan {
    int From = 0;
    int To = 0;
};
/// Up to ten times today's value, of the uptime up to 100 %; down to nearly nothing, but of days,
/// uptime and stations per worker to a tenth.
StepSpan StepsOf(const LineModel& model, const ModelFigure& figure);

/// Share of today's value at a step above 0.
double ShareAt(FigureKind kind, int step);

/// A pathway without the roundings of singles: what its work time and cost are made of.
struct PathwayParts {
    double TaskTime = 0;     ///< seconds, before uptime
    int ToolChanges = 0;     ///< before the end of the cycle
    bool OtherTool = false;  ///< the last tool is not the first one
    double ToolCost = 0;     ///< dollars per station
};

/// What pathways of a resource cost with one of its figures, or of the line's, at a share of
/// today's value; nothing is rounded to singles.
class SharedCost {
  public:
    /// `units` per year, above 0. An empty figure leaves everything as it is.
    SharedCost(const Production& production, const Resource& resource, double units, double shifts,
               std::optional<FigureKind> figure, double share);

    /// Seconds one station needs per unit.
    [[nodiscard]] double WorkTime(const PathwayParts& parts) const;
    /// Fewest parallel stations, a whole number; infinite where no number is enough.
    [[nodiscard]] double Stations(const PathwayParts& parts) const;
    /// What every further station costs without running, dollars per year.
    [[nodiscard]] double CostOfStation(const PathwayParts& parts) const {
        return (parts.ToolCost + m_fixedCost) * m_capital + m_labour;
    }
    /// Dollars per year with so many stations.
    [[nodiscard]] double Cost(const PathwayParts& parts, double stations) const;

  private:
    double m_available;   ///< seconds per unit
    double m_transport;   ///< seconds
    double m_toolChange;  ///< seconds
    double m_upTime;      ///< share
    double m_times;       ///< share of today's task times
    double m_fixedCost;   ///< dollars per station
    double m_capital;     ///< dollars per year and dollar before ICF
    double m_labour;      ///< dollars per year and station
    double m_machine;     ///< dollars per year and second of work time
};

}  // namespace quarnel02
