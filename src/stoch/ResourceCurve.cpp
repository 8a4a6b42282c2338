#include "stoch/ResourceCurve.h"

namespace quarnel02 {

bool ResourceCurve::Enough(int stations, float volume) const {
    if (CycleTimeAt(m_run.Parameters, volume) >= StationTime(m_content, stations)) {
        return true;
    }
    const auto meant =
        std::lower_bound(m_run.MeantVolumes.begin(), m_run.MeantVolumes.end(), volume);
    return meant != m_run.MeantVolumes.end() &&
           StationsFit(m_content.WorkTime, stations, CycleTimeAt(m_run.Parameters, *meant));
}

int ResourceCurve::StationsFrom(int stations, float volume) const {
    const float cycle_time = CycleTimeAt(m_run.Parameters, volume);
    int enough = std::max<int>(stations, FitStations(m_content.WorkTime, cycle_time).Stations);
    while (!Enough(enough, volume)) {
        ++enough;
    }
    return enough;
}

float ResourceCurve::CostAtVolume(float volume, int stations) const {
    return AnnualCost(AnnualPartsOfArc(m_run, m_resource, m_content, stations,
                                       m_production.At(volume), m_shifts.At(volume)));
}

float ResourceCurve::SegmentEnd(float start, int stations) const {
    float end = LastVolumeFor(start, stations);
    for (const float limit : {m_production.LineEnd(start), m_shifts.StepEnd(start)}) {
        end = limit == kNoUpperEnd ? end : std::min(end, limit);
    }
    return end;
}

float ResourceCurve::LastVolumeFor(float start, int stations) const {
    float low = start;
    float high = m_run.LastVolume;
    if (Enough(stations, high)) {
        return high;
    }
    const double guess =
        SecondsOfYear(m_run.Parameters) * stations / static_cast<double>(m_content.WorkTime);
    float probe =
        static_cast<float>(std::clamp(guess, static_cast<double>(low), static_cast<double>(high)));
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

}  // namespace quarnel02
