#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "line/CheapestLine.h"
#include "line/Pathways.h"
#include "study/ArcCurves.h"
#include "study/PathwayPlaces.h"
#include "study/StudyWatch.h"

namespace quarnel02 {

/// Which fixed designs a study of volumes is about.
struct VolumeSpan {
    int From = 1;                              ///< units per year, from 1 to kMostVolume
    int To = 1;                                ///< from From to kMostVolume
    std::optional<std::int16_t> StationLimit;  ///< most parallel stations of a group; none: any
};

/// The fixed designs of a model for every whole volume of a span, in so many shifts per day.
class VolumeDesigns {
  public:
    /// Keeps a reference to the line. Throws Overflow for a span outside its bounds or so wide that
    /// the groups of all pathways together would need 5,000,000 numbers of stations, and where a
    /// figure is beyond a single; DivisionByZero when StatPerWrk is 0. Looks at `watch`.
    VolumeDesigns(const PreparedLine& line, std::int16_t shifts, const VolumeSpan& span,
                  const StudyWatch& watch = {});

    [[nodiscard]] std::int16_t Shifts() const { return m_shifts; }

    /// Cost of the cheapest line over volume, not rounded to singles; ends early, or is empty,
    /// where there is no line. Within a segment the line is one.
    [[nodiscard]] std::span<const GridSegment> Costs() const;
    /// The cheapest line at a volume that Costs() reaches; one of them where several cost the same
    /// up to the rounding of singles.
    [[nodiscard]] std::vector<StationGroup> GroupsAt(int volume) const;
    /// By how much the costs of lines near `cost` may be off by the rounding of singles, dollars.
    [[nodiscard]] double Rounding(double cost) const;

    /// The very line of CheapestLine at a volume of the span, cost and tie-break included, in a
    /// small part of its time; none when there is no line.
    [[nodiscard]] std::optional<Line> LineAt(int volume) const;

  private:
    void MakeCurves(const VolumeSpan& span, const StudyWatch& watch);
    /// The cheapest ways of the arcs that a line may use which is the cheapest up to rounding.
    [[nodiscard]] std::vector<Way> WaysNearBest(int volume, std::vector<LineGroup>& groups) const;
    [[nodiscard]] std::optional<LineGroup> CheapestGroup(int first, int last,
                                                         const Workload& workload) const;

    const PreparedLine& m_line;
    std::int16_t m_shifts;
    std::optional<std::int16_t> m_stationLimit;
    PathwayPlaces m_places;
    ArcCurves m_arcs;
    std::vector<GridCurve> m_prefixes;
};

}  // namespace quarnel02
