#pragma once

#include <algorithm>

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
                  const ExpectedShifts& shifts, int resource, const ArcLoad& load)
        : m_run(run),
          m_production(production),
          m_shifts(shifts),
          m_resource(resource),
          m_load(load) {}

    /// Whether so many stations are enough at a capacity.
    [[nodiscard]] bool Enough(int stations, float volume) const {
        return StationsFit(m_load.WorkTime, stations, CycleTimeAt(m_run.Parameters, volume));
    }

    /// The curve has no segment when even its first volume needs too many stations.
    [[nodiscard]] bool IsPossible() const { return Enough(kMostInChoice, m_run.FirstVolume); }

    /// Writes the segments in ascending volume to anything that takes them.
    template <class Writer>
    void Write(Writer& file) const {
        float start = m_run.FirstVolume;
        int stations = 1;
        while (start <= m_run.LastVolume && Enough(kMostInChoice, start)) {
            stations = std::max<int>(
                stations,
                FitStations(m_load.WorkTime, CycleTimeAt(m_run.Parameters, start)).Stations);
            const float end = SegmentEnd(start, stations);
            file.Write({start, end, CostAtVolume(start, stations), CostAtVolume(end, stations),
                        ToChoice(m_resource, stations)});
            start = NextSingle(end);
        }
    }

  private:
    [[nodiscard]] float CostAtVolume(float volume, int stations) const;
    [[nodiscard]] float SegmentEnd(float start, int stations) const;
    /// The last volume, within the run's range, for which so many stations are enough.
    [[nodiscard]] float LastVolumeFor(float start, int stations) const;

    const StochRun& m_run;
    const ExpectedProduction& m_production;
    const ExpectedShifts& m_shifts;
    int m_resource;
    ArcLoad m_load;
};

}  // namespace quarnel02
