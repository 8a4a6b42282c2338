#pragma once

#include <algorithm>
#include <span>
#include <vector>

#include "line/WorkContent.h"

namespace quarnel02::test {

/// The cost of a station's tools as a planner adds them up: tasks sorted by tool, then task; each
/// tool at its first task's cost; the running sum a single.
inline float ToolCostTwin(std::span<const MatrixEntry> byTask) {
    std::vector<MatrixEntry> by_tool(byTask.begin(), byTask.end());
    std::stable_sort(
        by_tool.begin(), by_tool.end(),
        [](const MatrixEntry& a, const MatrixEntry& b) { return a.ToolNum < b.ToolNum; });
    auto sum = static_cast<float>(by_tool.front().ToolCost);
    int tool = by_tool.front().ToolNum;
    for (const MatrixEntry& entry : by_tool) {
        if (entry.ToolNum != tool) {
            sum = static_cast<float>(static_cast<double>(sum) + entry.ToolCost);
            tool = entry.ToolNum;
        }
    }
    return sum;
}

/// The time of a station: tasks, tool changes, end of the cycle; the running sum a single.
inline float WorkTimeTwin(std::span<const MatrixEntry> byTask, const Resource& resource,
                          double transportTime) {
    const double uptime = resource.UpTime * 0.01;
    int tool = byTask.front().ToolNum;
    float time = 0;
    for (const MatrixEntry& entry : byTask) {
        time = static_cast<float>(static_cast<double>(time) + entry.TaskTime / uptime);
        if (entry.ToolNum != tool) {
            time = static_cast<float>(static_cast<double>(time) + resource.ToolChange);
            tool = entry.ToolNum;
        }
    }
    double end_of_cycle = transportTime;
    if (tool != byTask.front().ToolNum && resource.ToolChange >= transportTime) {
        end_of_cycle = resource.ToolChange;
    }
    return static_cast<float>(static_cast<double>(time) + end_of_cycle / uptime);
}

inline int ToolCountTwin(std::span<const MatrixEntry> byTask) {
    std::vector<int> tools;
    for (const MatrixEntry& entry : byTask) {
        tools.push_back(entry.ToolNum);
    }
    std::sort(tools.begin(), tools.end());
    return static_cast<int>(std::unique(tools.begin(), tools.end()) - tools.begin());
}

inline WorkContent ContentTwin(std::span<const MatrixEntry> byTask, const Resource& resource,
                               double transportTime) {
    return {WorkTimeTwin(byTask, resource, transportTime), ToolCostTwin(byTask),
            ToolCountTwin(byTask)};
}

}  // namespace quarnel02::test
