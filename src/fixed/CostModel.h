#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace quarnel02 {

/// What a task needs on a resource.
struct MatrixEntry {
    double TaskTime;  ///< seconds
    int ToolNum;      ///< tasks of one station with the same number share the tool
    double ToolCost;  ///< dollars
};

/// The cost figures of a resource.
struct ResourceCosts {
    double FixedCost;   ///< dollars per station
    double VarCost;     ///< dollars per hour
    double UpTime;      ///< percent
    double ICF;         ///< multiplier on investment
    double ToolChange;  ///< seconds
    double StatPerWrk;  ///< stations per worker
};

/// The production parameters that the cost model uses.
struct Production {
    double Days;           ///< working days per year
    double ACF;            ///< annual capital charge factor
    double LaborCost;      ///< dollars per hour
    double TransportTime;  ///< seconds between stations
};

/// What the line is to make, and when.
struct Workload {
    double Demand;              ///< units per year
    std::int16_t ShiftCount;    ///< shifts of 8 hours per day
    double AvailableCycleTime;  ///< seconds per unit
};

/// Parallel stations of one pathway.
struct StationCount {
    std::int16_t Stations;  ///< from 1
    float StationTime;      ///< seconds per unit, shared among the stations
};

/// Everything the fixed-demand design wants to know of one pathway. One that would need more than
/// 32,767 stations is over every limit: it has that number, their shared time, and no costs.
struct PathwayCost {
    std::int16_t Stations;
    float Time;           ///< seconds per unit of one station
    float Investment;     ///< dollars
    float AnnualLabor;    ///< machine and labour, dollars per year
    float Cost;           ///< dollars per year
    bool OverEveryLimit;  ///< even 32,767 stations are not enough
};

/// Cost of the tools that one station needs, dollars. `byTool` stands in ascending order of
/// ToolNum; each tool is paid once, at the cost of the first task that names it.
float ToolCostSum(std::span<const MatrixEntry> byTool);

/// Seconds that one station needs per unit: task times over the uptime, a tool change wherever
/// the tool differs from that of the task before, and at the end of the cycle the transport
/// time or, where the last tool is not the first one, the longer of transport and tool change.
/// `byTask` stands in ascending order of task and is not empty.
/// Throws DivisionByZero when UpTime is 0.
float WorkTime(std::span<const MatrixEntry> byTask, const ResourceCosts& resource,
               double transportTime);

/// Whether the shared time of so many stations, workTime / stations, is at most `available`, or
/// over it by no more than one part in a million: a station that is exactly full is full.
bool StationsFit(float workTime, int stations, float available);

/// The smallest number of stations that fit, StationsFit, into `available` seconds; none when more
/// than 32,767 would be needed.
std::optional<StationCount> TryFitStations(float workTime, float available);
/// The same; throws Overflow when more than 32,767 would be needed.
StationCount FitStations(float workTime, float available);

/// Stations x (tool set + station) x ICF, dollars.
float Investment(std::int16_t stations, float toolCostSum, const ResourceCosts& resource);

/// Machine cost of the year, dollars: the hourly rate over the running time of `units` units.
double MachineCost(double units, float stationTime, const ResourceCosts& resource);

/// Labour cost of the year, dollars: paid hours of all stations over the stations per worker.
/// Throws DivisionByZero when StatPerWrk is 0.
double LabourCost(std::int16_t stations, double hoursPerDay, const Production& production,
                  const ResourceCosts& resource);

/// The whole model for one pathway. Throws as the functions above do.
PathwayCost CostOfPathway(std::span<const MatrixEntry> byTool, std::span<const MatrixEntry> byTask,
                          const ResourceCosts& resource, const Production& production,
                          const Workload& workload);

}  // namespace quarnel02
