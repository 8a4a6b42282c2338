#include "fixed/CostModel.h"

#include <algorithm>
#include <cmath>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

constexpr int kMostStations = 32767;
constexpr double kSecondsPerHour = 3600;
constexpr std::int16_t kHoursPerShift = 8;

double UptimeShare(const ResourceCosts& resource) {
    const double share = resource.UpTime * 0.01;
    if (share == 0) {
        throw RunTimeError(
            ErrorKind::DivisionByZero,
            "A resource has an uptime (UpTime) of 0 percent. Enter a value above 0.");
    }
    return share;
}

[[noreturn]] void ThrowTooManyStations() {
    throw RunTimeError(ErrorKind::Overflow,
                       "Stations: more than 32,767 parallel stations would be needed. Check the "
                       "demand, the working days and the task times.");
}

}  // namespace

float ToolCostSum(std::span<const MatrixEntry> byTool) {
    float sum = ToSingle(byTool.front().ToolCost, "ToolCost");
    int tool = byTool.front().ToolNum;
    for (const MatrixEntry& entry : byTool) {
        if (entry.ToolNum != tool) {
            sum = ToSingle(static_cast<double>(sum) + entry.ToolCost, "ToolCost");
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
        time = ToSingle(static_cast<double>(time) + entry.TaskTime / uptime, "TaskTime");
        if (entry.ToolNum != tool) {
            time = ToSingle(static_cast<double>(time) + resource.ToolChange, "ToolChange");
            tool = entry.ToolNum;
        }
    }
    const double end_of_cycle =
        tool == first_tool ? transportTime : std::max(transportTime, resource.ToolChange);
    return ToSingle(static_cast<double>(time) + end_of_cycle / uptime, "TransportTime");
}

bool StationsFit(float workTime, int stations, float available) {
    return available >= static_cast<float>(static_cast<double>(workTime) / stations);
}

StationCount FitStations(float workTime, float available) {
    if (StationsFit(workTime, 1, available)) {
        return {1, workTime};
    }
    if (available <= 0 || !StationsFit(workTime, kMostStations, available)) {
        ThrowTooManyStations();
    }
    // The quotient is next to the answer; rounding to single decides which neighbour it is.
    const double quotient =
        std::floor(static_cast<double>(workTime) / static_cast<double>(available));
    int stations = static_cast<int>(std::clamp(quotient, 2.0, double{kMostStations}));
    while (StationsFit(workTime, stations - 1, available)) {
        --stations;
    }
    while (!StationsFit(workTime, stations, available)) {
        ++stations;
    }
    return {static_cast<std::int16_t>(stations),
            static_cast<float>(static_cast<double>(workTime) / stations)};
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
        throw RunTimeError(
            ErrorKind::DivisionByZero,
            "A resource has 0 stations per worker (StatPerWrk). Enter a value above 0.");
    }
    return stations * hoursPerDay * production.Days * production.LaborCost / resource.StatPerWrk;
}

PathwayCost CostOfPathway(std::span<const MatrixEntry> byTool, std::span<const MatrixEntry> byTask,
                          const ResourceCosts& resource, const Production& production,
                          const Workload& workload) {
    const float tools = ToolCostSum(byTool);
    const float work = WorkTime(byTask, resource, production.TransportTime);
    const auto [stations, time] =
        FitStations(work, ToSingle(workload.AvailableCycleTime, "AvailableCycleTime"));
    const float investment = Investment(stations, tools, resource);
    const std::int16_t hours = ToInteger(workload.ShiftCount * kHoursPerShift, "ShiftCount x 8");
    const float labor = ToSingle(MachineCost(workload.Demand, time, resource) +
                                     LabourCost(stations, hours, production, resource),
                                 "AnnualLabor");
    const float cost = ToSingle(
        static_cast<double>(labor) + static_cast<double>(investment) * production.ACF, "Cost");
    return {stations, time, investment, labor, cost};
}

}  // namespace quarnel02
