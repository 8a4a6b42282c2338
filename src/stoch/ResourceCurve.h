#pragma once

#include <algorithm>
#include <optional>

#include "stoch/ArcCost.h"
#include "stoch/Curves.h"
#include "stoch/ExpectedProduction.h"
#include "stoch/ExpectedShifts.h"
#include "stoch/Records.h"
#include "stoch/StochRun.h"

namespace quarnel02 {

/// Cost curve of one resource on an arc: expected annual cost over capacity.
class ResourceCurve {
  public:
    ResourceCurve(const StochRun& run, const ExpectedProduction& production,
                  const ExpectedShifts& shifts, int resource, const WorkContent& content)
        : m_run(run),
          m_production(production),
          m_shifts(shifts),
          m_resource(resource),
          m_content(content) {}

    /// Whether so many stations are enough at a capacity. Up to a volume that the planner means, a
    /// station may be exactly full (StationsFit); no other capacity makes use of that tolerance, so
    /// that a curve bends at the very capacity of its stations.
    [[nodiscard]] bool Enough(int stations, float volume) const;

    /// The curve has no segment when even its first volume needs too many stations.
    [[nodiscard]] bool IsPossible() const { return Enough(kMostInChoice, m_run.FirstVolume); }

    /// Writes the segments in ascending volume to anything that takes them. The volume at which the
    /// curve ends because more stations than a segment can hold would be needed, if it does.
    template <class Writer>
    std::optional<float> Write(Writer& file) const {
        float start = m_run.FirstVolume;
        float end = start;
        int stations = 1;
        while (start <= m_run.LastVolume && Enough(kMostInChoice, start)) {
            stations = StationsFrom(stations, start);
            end = SegmentEnd(start, stations);
            file.Write({start, end, CostAtVolume(start, stations), CostAtVolume(end, stations),
                        ToChoice(m_resource, stations)});
            start = NextSingle(end);
        }
        return end < m_run.LastVolume ? std::optional(end) : std::nullopt;
    }

  private:
    /// The least number of stations, from `stations` up, that is enough.
    [[nodiscard]] int StationsFrom(int stations, float volume) const;
    [[nodiscard]] float CostAtVolume(float volume, int stations) const;
    [[nodiscard]] float SegmentEnd(float start, int stations) const;
    /// The last volume, within the run's range, for which so many stations are enough.
    [[nodiscard]] float LastVolumeFor(float start, int stations) const;

    const StochRun& m_run;
    const ExpectedProduction& m_production;
    const ExpectedShifts& m_shifts;
    int m_resource;
    WorkContent m_content;
};

}  // namespace quarnel02
