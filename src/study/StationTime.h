#pragma once

#include <cstdint>
#include <vector>

#include "line/LineModel.h"
#include "line/StationGroup.h"

namespace quarnel02 {

/// What a station spends time on.
enum class TimeKind : std::int8_t {
    Task,        ///< a task itself
    ToolChange,  ///< all tool changes, that at the end of the cycle included
    Transport,   ///< to the next station
    UptimeLoss   ///< what the uptime adds to tasks and the end of the cycle
};

/// A part of the time of a station.
struct TimePart {
    TimeKind Kind = TimeKind::Task;
    int Task = 0;        ///< of the kind Task
    double Seconds = 0;  ///< per unit of one of the parallel stations
};

/// The time of one of the parallel stations of a group by what it is spent on: tasks in their
/// order, then tool changes, transport and uptime loss. Their sum is the time of the station, apart
/// from the rounding of singles. At the end of a cycle that needs a tool change, transport counts
/// up to the length of the transport and the tool change for what is beyond.
std::vector<TimePart> TimePartsOf(const LineModel& model, const StationGroup& group);

/// How the end of the cycle is spent at a station that does these tasks.
struct CycleEnd {
    bool OtherTool = false;  ///< the last tool is not the first one
    double Seconds = 0;      ///< without uptime loss: transport, or a longer tool change
};
CycleEnd CycleEndOf(const LineModel& model, const StationGroup& group);

/// The distinct tools of a station in the order of its tasks, with the cost that counts for each.
struct ToolCost {
    int Tool = 0;
    double Cost = 0;  ///< dollars per station
};
std::vector<ToolCost> ToolsOf(const LineModel& model, const StationGroup& group);

}  // namespace quarnel02
