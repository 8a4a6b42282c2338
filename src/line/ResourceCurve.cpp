#include "line/ResourceCurve.h"

#include <algorithm>
#include <cstdint>

#include "line/AnnualCost.h"
#include "line/CostModel.h"
#include "line/Singles.h"

namespace quarnel02 {

namespace {

class CurveMaker {
  public:
    CurveMaker(const LineModel& model, const DemandDistribution& demand, int resource,
               const WorkContent& content)
        : m_parameters(model.Parameters()),
          m_demand(demand),
          m_resource(model.ResourceOf(resource)),
          m_content(content) {}

    [[nodiscard]] CostCurve Curve() const {
        CostCurve curve;
        float start = m_demand.FirstVolume();
        int stations = 1;
        while (start <= m_demand.LastVolume()) {
            if (!Enough(kMostInCurve, start)) {
                curve.SetEnding(CurveEnd::TooManyStations);
                break;
            }
            stations = StationsFrom(stations, start);
            const float end = SegmentEnd(start, stations);
            curve.Append({start,
                          end,
                          CostAt(start, stations),
                          CostAt(end, stations),
                          {static_cast<std::int16_t>(m_resource.Number),
                           static_cast<std::int16_t>(stations), 0}});
            start = NextSingle(end);
        }
        return curve;
    }

  private:
    /// Whether so many stations are enough at a capacity. Up to a volume that the planner means, a
    /// station may be exactly full (StationsFit); no other capacity makes use of that tolerance, so
    /// that a curve bends at the very capacity of its stations.
    [[nodiscard]] bool Enough(int stations, float volume) const {
        if (CycleTimeAt(m_parameters, volume) >= SharedTime(m_content.WorkTime, stations)) {
            return true;
        }
        const auto volumes = m_demand.MeantVolumes();
        const auto meant = std::lower_bound(volumes.begin(), volumes.end(), volume);
        return meant != volumes.end() &&
               StationsFit(m_content.WorkTime, stations, CycleTimeAt(m_parameters, *meant));
    }

    /// The least number of stations, from `stations` up, that is enough.
    [[nodiscard]] int StationsFrom(int stations, float volume) const {
        // Mostly one more than for the volume before; else nearly as many as the cycle time needs.
        int enough = stations;
        if (!Enough(stations, volume) && !Enough(stations + 1, volume)) {
            const float cycle_time = CycleTimeAt(m_parameters, volume);
            enough = std::max<int>(stations, FitStations(m_content.WorkTime, cycle_time).Stations);
        }
        while (!Enough(enough, volume)) {
            ++enough;
        }
        return enough;
    }

    [[nodiscard]] float CostAt(float volume, int stations) const {
        return AnnualCost(AnnualPartsOf(m_content, stations, m_resource, m_parameters,
                                        m_demand.Production().At(volume),
                                        m_demand.Shifts().At(volume)));
    }

    [[nodiscard]] float SegmentEnd(float start, int stations) const {
        return std::min({LastVolumeFor(start, stations), m_demand.Production().LineEnd(start),
                         m_demand.Shifts().StepEnd(start)});
    }

    /// The last volume, within the demand's range, for which so many stations are enough.
    [[nodiscard]] float LastVolumeFor(float start, int stations) const {
        float low = start;
        float high = m_demand.LastVolume();
        if (Enough(stations, high)) {
            return high;
        }
        const double guess =
            SecondsOfYear(m_parameters) * stations / static_cast<double>(m_content.WorkTime);
        float probe = static_cast<float>(
            std::clamp(guess, static_cast<double>(low), static_cast<double>(high)));
        for (int tries = 0; NextSingle(low) < high; ++tries) {
            constexpr int most_steps = 4;  // then the guess was not next to the answer
            if (probe <= low || probe >= high || tries > most_steps) {
                probe = MiddleSingle(low, high);
            }
            const bool enough = Enough(stations, probe);
            (enough ? low : high) = probe;
            probe = enough ? NextSingle(probe) : PreviousSingle(probe);
        }
        return low;
    }

    const Production& m_parameters;
    const DemandDistribution& m_demand;
    const Resource& m_resource;
    WorkContent m_content;
};

}  // namespace

CostCurve ResourceCurve(const LineModel& model, const DemandDistribution& demand, int resource,
                        const WorkContent& content) {
    return CurveMaker(model, demand, resource, content).Curve();
}

}  // namespace quarnel02
