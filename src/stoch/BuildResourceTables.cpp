#include "stoch/BuildResourceTables.h"

#include <algorithm>
#include <string>

#include "stoch/ArcCost.h"
#include "stoch/CurveFile.h"
#include "stoch/ExpectedProduction.h"
#include "stoch/ExpectedShifts.h"
#include "stoch/Notices.h"

namespace quarnel02 {

namespace {

/// Cost curve of one resource on the arc in hand.
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

    void Write(CurveWriter<ArcSegment>& file) const {
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
    [[nodiscard]] float CostAtVolume(float volume, int stations) const {
        return AnnualCost(AnnualPartsOfArc(m_run, m_resource, m_load, stations,
                                           m_production.At(volume), m_shifts.At(volume)));
    }

    [[nodiscard]] float SegmentEnd(float start, int stations) const {
        float end = LastVolumeFor(start, stations);
        for (const float limit : {m_production.LineEnd(start), m_shifts.StepEnd(start)}) {
            end = limit == kNoUpperEnd ? end : std::min(end, limit);
        }
        return end;
    }

    /// The last volume, within the run's range, for which so many stations are enough.
    [[nodiscard]] float LastVolumeFor(float start, int stations) const {
        float low = start;
        float high = m_run.LastVolume;
        if (Enough(stations, high)) {
            return high;
        }
        const double guess =
            SecondsOfYear(m_run.Parameters) * stations / static_cast<double>(m_load.WorkTime);
        float probe = static_cast<float>(
            std::clamp(guess, static_cast<double>(low), static_cast<double>(high)));
        for (int tries = 0; NextSingle(low) < high; ++tries) {
            if (probe <= low || probe >= high || tries > 4) {
                probe = MiddleSingle(low, high);
            }
            const bool enough = Enough(stations, probe);
            (enough ? low : high) = probe;
            probe = enough ? NextSingle(probe) : PreviousSingle(probe);
        }
        return low;
    }

    const StochRun& m_run;
    const ExpectedProduction& m_production;
    const ExpectedShifts& m_shifts;
    int m_resource;
    ArcLoad m_load;
};

}  // namespace

void BuildResourceTables(StochRun& run) {
    const RecordSet gen = run.Form.Model.OpenRecordSet("SELECT * FROM Gen;");
    run.Parameters = {gen.Number("Days"), gen.Number("ACF"), gen.Number("LaborCost"),
                      gen.Number("TransportTime")};
    const ExpectedProduction production(run.Files);
    const ExpectedShifts shifts(run.Files);
    for (int resource = 1; resource <= run.Resources; ++resource) {
        const auto path = run.Files.Resource(run.StartTask, run.EndTask, resource);
        const auto load = LoadOfArc(run, resource, run.StartTask, run.EndTask);
        if (!load) {
            continue;
        }
        const ResourceCurve curve(run, production, shifts, resource, *load);
        if (curve.IsPossible()) {
            CurveWriter<ArcSegment> file(path);
            curve.Write(file);
            NoticeEarlyEnd(run, path, file.Close());
        }
    }
}

}  // namespace quarnel02
