#include "study/LargestVolume.h"

#include <algorithm>
#include <cmath>

#include "basic/Numbers.h"
#include "line/CostModel.h"
#include "line/FixedDemand.h"
#include "line/WorkContent.h"

namespace quarnel02 {

namespace {

class StationVolumes {
  public:
    StationVolumes(const Production& production, std::int16_t shifts, float workTime, int stations)
        : m_production(production), m_shifts(shifts), m_workTime(workTime), m_stations(stations) {}

    [[nodiscard]] bool Make(int volume) const {
        const Workload workload =
            WorkloadOf({static_cast<double>(volume), m_shifts, {}}, m_production);
        return StationsFit(m_workTime, m_stations,
                           ToSingle(workload.AvailableCycleTime, "Max cycle time"));
    }

    /// Apart from roundings and tolerances.
    [[nodiscard]] double Guess() const {
        const double seconds = WorkloadOf({1, m_shifts, {}}, m_production).AvailableCycleTime;
        return seconds * m_stations / static_cast<double>(m_workTime);
    }

  private:
    const Production& m_production;
    std::int16_t m_shifts;
    float m_workTime;
    int m_stations;
};

/// The last volume from `low`, which can be made, to below `high`, which cannot.
int LastBetween(const StationVolumes& stations, int low, int high) {
    while (high - low > 1) {
        const int middle = low + (high - low) / 2;
        (stations.Make(middle) ? low : high) = middle;
    }
    return low;
}

int Bounded(double volume) {
    return static_cast<int>(std::clamp(volume, 1.0, double{kMostVolume}));
}

}  // namespace

int LargestVolume(const Production& production, std::int16_t shifts, float workTime, int stations) {
    constexpr double most_rounding = 2e-6;  // the tolerance of full stations, and some singles
    const StationVolumes volumes(production, shifts, workTime, stations);
    const double guess = volumes.Guess();
    const int low = Bounded(std::floor(guess * (1 - most_rounding)));
    const int high = Bounded(std::ceil(guess * (1 + most_rounding)) + 1);
    if (volumes.Make(low) && !volumes.Make(high)) {
        return LastBetween(volumes, low, high);
    }
    if (volumes.Make(kMostVolume)) {
        return kMostVolume;
    }
    return volumes.Make(1) ? LastBetween(volumes, 1, kMostVolume) : 0;
}

int CapacityOf(const LineModel& model, std::span<const StationGroup> groups, std::int16_t shifts) {
    int capacity = kMostVolume;
    for (const auto& [resource, first, last, stations] : groups) {
        const WorkContent content =
            ContentOf(model.Entries(resource, first, last), model.ResourceOf(resource),
                      model.Parameters().TransportTime);
        capacity = std::min(capacity,
                            LargestVolume(model.Parameters(), shifts, content.WorkTime, stations));
    }
    return capacity;
}

}  // namespace quarnel02
