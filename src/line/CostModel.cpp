#include "line/CostModel.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "basic/Limits.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "line/RecordNames.h"
#include "line/WorkTime.h"

namespace quarnel02 {

namespace {

constexpr std::int16_t kMostStations = limits::kStations;

}  // namespace

float SharedTime(float workTime, int stations) {
    return static_cast<float>(static_cast<double>(workTime) / stations);
}

bool StationsFit(float workTime, int stations, float available) {
    // Sums of singles miss a round total by a few parts in ten million.
    constexpr double tolerance = 1e-6;
    const auto limit = static_cast<double>(available);
    return static_cast<double>(SharedTime(workTime, stations)) <=
           limit + std::abs(limit) * tolerance;
}

std::optional<StationCount> TryFitStations(float workTime, float available) {
    if (StationsFit(workTime, 1, available)) {
        return StationCount{1, workTime};
    }
    if (available <= 0 || !StationsFit(workTime, kMostStations, available)) {
        return std::nullopt;
    }
    // The quotient is next to the answer; rounding and tolerance decide which neighbour it is.
    const double quotient =
        std::floor(static_cast<double>(workTime) / static_cast<double>(available));
    int stations = static_cast<int>(std::clamp(quotient, 2.0, double{kMostStations}));
    while (StationsFit(workTime, stations - 1, available)) {
        --stations;
    }
    while (!StationsFit(workTime, stations, available)) {
        ++stations;
    }
    return StationCount{static_cast<std::int16_t>(stations), SharedTime(workTime, stations)};
}

StationCount FitStations(float workTime, float available) {
    if (const auto count = TryFitStations(workTime, available)) {
        return *count;
    }
    throw RunTimeError(ErrorKind::Overflow,
                       "Stations: more than 32,767 parallel stations would be needed. Check the "
                       "demand, the working days and the task times.");
}

float Investment(std::int16_t stations, float toolCostSum, const Resource& resource) {
    return ToSingle(
        stations * (static_cast<double>(toolCostSum) + resource.FixedCost) * resource.ICF,
        "Investment");
}

double MachineCost(double units, float stationTime, const Resource& resource) {
    // The shared station time and the second uptime factor are meant: the planner's hourly rate
    // is for running hours of the group of stations.
    return (resource.VarCost / kSecondsPerHour) * units * static_cast<double>(stationTime) *
           resource.UpTime * 0.01;
}

double LabourCost(std::int16_t stations, double hoursPerDay, const Production& production,
                  const Resource& resource) {
    if (resource.StatPerWrk == 0) {
        RefuseDivisor(resource, "stations per worker is 0; it must be above 0.");
    }
    return stations * hoursPerDay * production.Days * production.LaborCost / resource.StatPerWrk;
}

PathwayCost CostOfGroup(const WorkContent& content, const Resource& resource,
                        const Production& production, const Workload& workload) {
    const float available = ToSingle(workload.AvailableCycleTime, "Max cycle time");
    const auto count = TryFitStations(content.WorkTime, available);
    if (!count) {
        return {.Stations = kMostStations,
                .Time = SharedTime(content.WorkTime, kMostStations),
                .OverEveryLimit = true};
    }
    const auto [stations, time] = *count;
    const float investment = Investment(stations, content.ToolCostSum, resource);
    const std::int16_t hours = ToInteger(workload.ShiftCount * kHoursPerShift, "Hours per day");
    const float labor = ToSingle(MachineCost(workload.Demand, time, resource) +
                                     LabourCost(stations, hours, production, resource),
                                 "Annualized labor");
    const float cost = ToSingle(
        static_cast<double>(labor) + static_cast<double>(investment) * production.ACF, "Cost");
    return {stations, time, investment, labor, cost, false};
}

}  // namespace quarnel02
