#include "fixed/CostModel.h"

#include <algorithm>
#include <cmath>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

constexpr std::int16_t kMostStations = 32767;
constexpr double kSecondsPerHour = 3600;
constexpr std::int16_t kHoursPerShift = 8;

double UptimeShare(const ResourceCosts& resource) {
    const double share = resource.UpTime * 0.01;
    if (share == 0) {
        throw RunTimeError(ErrorKind::DivisionByZero,
                           "A resource has an uptime of 0 %. Enter an uptime above 0.");
    }
    return share;
}

float SharedTime(float workTime, int stations) {
    return static_cast<float>(static_cast<double>(workTime) / stations);
}

}  // namespace

float ToolCostSum(std::span<const MatrixEntry> byTool) {
    float sum = ToSingle(byTool.front().ToolCost, "Tool cost");
    int tool = byTool.front().ToolNum;
    for (const MatrixEntry& entry : byTool) {
        if (entry.ToolNum != tool) {
            sum = ToSingle(static_cast<double>(sum) + entry.ToolCost, "Tool cost");
            tool = entry.ToolNum;
        }
    }
    return sum;
}

float WorkTime(std::span<const MatrixEntry> byTask, const ResourceCosts& resource,
               double transportTime) {
    const double uptime = UptimeShare(resource);
    const int first_tool = byTask.front().ToolNum;
    int tool = first_tool;
    float time = 0;
    for (const MatrixEntry& entry : byTask) {
        time = ToSingle(static_cast<double>(time) + entry.TaskTime / uptime, "Task time");
        if (entry.ToolNum != tool) {
            time = ToSingle(static_cast<double>(time) + resource.ToolChange, "Tool change time");
            tool = entry.ToolNum;
        }
    }
    const double end_of_cycle =
        tool == first_tool ? transportTime : std::max(transportTime, resource.ToolChange);
    return ToSingle(static_cast<double>(time) + end_of_cycle / uptime, "Transport time");
}

bool StationsFit(float workTime, int stations, float available) {
    // Sums of singles miss a round total by a few parts in ten million.
    constexpr double tolerance = 1e-6;
    const double limit = static_cast<double>(available);
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

float Investment(std::int16_t stations, float toolCostSum, const ResourceCosts& resource) {
    return ToSingle(
        stations * (static_cast<double>(toolCostSum) + resource.FixedCost) * resource.ICF,
        "Investment");
}

double MachineCost(double units, float stationTime, const ResourceCosts& resource) {
    // The shared station time and the second uptime factor are meant: the planner's hourly rate
    // is for running hours of the group of stations.
    return (resource.VarCost / kSecondsPerHour) * units * static_cast<double>(stationTime) *
           resource.UpTime * 0.01;
}

double LabourCost(std::int16_t stations, double hoursPerDay, const Production& production,
                  const ResourceCosts& resource) {
    if (resource.StatPerWrk == 0) {
        throw RunTimeError(ErrorKind::DivisionByZero,
                           "A resource has 0 stations per worker. Enter a number above 0.");
    }
    return stations * hoursPerDay * production.Days * production.LaborCost / resource.StatPerWrk;
}

PathwayCost CostOfPathway(std::span<const MatrixEntry> byTool, std::span<const MatrixEntry> byTask,
                          const ResourceCosts& resource, const Production& production,
                          const Workload& workload) {
    const float tools = ToolCostSum(byTool);
    const float work = WorkTime(byTask, resource, production.TransportTime);
    const auto count =
        TryFitStations(work, ToSingle(workload.AvailableCycleTime, "Max cycle time"));
    if (!count) {
        return {kMostStations, SharedTime(work, kMostStations), 0, 0, 0, true};
    }
    const auto [stations, time] = *count;
    const float investment = Investment(stations, tools, resource);
    const std::int16_t hours = ToInteger(workload.ShiftCount * kHoursPerShift, "Hours per day");
    const float labor = ToSingle(MachineCost(workload.Demand, time, resource) +
                                     LabourCost(stations, hours, production, resource),
                                 "Annualized labor");
    const float cost = ToSingle(
        static_cast<double>(labor) + static_cast<double>(investment) * production.ACF, "Cost");
    return {stations, time, investment, labor, cost, false};
}

}  // namespace quarnel02
