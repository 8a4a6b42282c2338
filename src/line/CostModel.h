#pragma once

#include <cstdint>
#include <optional>

#include "line/LineModel.h"
#include "line/WorkContent.h"

namespace quarnel02 {

// The cost model of a station group: one resource, a range of tasks, parallel stations. Quantities
// that are singles are rounded when they are assigned; expressions are doubles. Where a single is
// beyond its range, Overflow is thrown.

/// What the line is to make, and when.
struct Workload {
    double Demand = 0;              ///< units per year
    std::int16_t ShiftCount = 0;    ///< shifts of 8 hours per day
    double AvailableCycleTime = 0;  ///< seconds per unit
};

/// Parallel stations of one group.
struct StationCount {
    std::int16_t Stations = 1;  ///< from 1
    float StationTime = 0;      ///< seconds per unit, shared among the stations

    bool operator==(const StationCount&) const = default;
};

/// Everything the fixed-demand design wants to know of one group. One that would need more than
/// 32,767 stations is over every limit: it has that number, their shared time, and no costs.
struct PathwayCost {
    std::int16_t Stations = 0;
    float Time = 0;               ///< seconds per unit of one station
    float Investment = 0;         ///< dollars
    float AnnualLabor = 0;        ///< machine and labour, dollars per year
    float Cost = 0;               ///< dollars per year
    bool OverEveryLimit = false;  ///< even 32,767 stations are not enough

    bool operator==(const PathwayCost&) const = default;
};

/// Time of one of so many parallel stations, seconds per unit.
float SharedTime(float workTime, int stations);

/// Whether the shared time of so many stations is at most `available`, or over it by no more than
/// one part in a million: a station that is exactly full is full.
bool StationsFit(float workTime, int stations, float available);

/// The smallest number of stations that fit into `available` seconds; none when more than 32,767
/// would be needed.
std::optional<StationCount> TryFitStations(float workTime, float available);
/// The same; throws Overflow when more than 32,767 would be needed.
StationCount FitStations(float workTime, float available);

/// Stations x (tool set + station) x ICF, dollars.
float Investment(std::int16_t stations, float toolCostSum, const Resource& resource);

/// Machine cost of the year, dollars: the hourly rate over the running time of `units` units.
double MachineCost(double units, float stationTime, const Resource& resource);

/// Labour cost of the year, dollars: paid hours of all stations over the stations per worker.
/// Throws DivisionByZero when StatPerWrk is 0.
double LabourCost(std::int16_t stations, double hoursPerDay, const Production& production,
                  const Resource& resource);

/// The whole model for one group. Throws DivisionByZero as LabourCost does, and Overflow also when
/// the hours of a day are beyond 32,767.
PathwayCost CostOfGroup(const WorkContent& content, const Resource& resource,
                        const Production& production, const Workload& workload);

}  // namespace quarnel02
