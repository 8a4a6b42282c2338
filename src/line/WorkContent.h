#pragma once

#include <span>

#include "line/LineModel.h"
#include "line/ToolSet.h"

namespace quarnel02 {

/// What a resource needs for a range of tasks, whatever the volume.
struct WorkContent {
    float WorkTime = 0;     ///< seconds one station needs per unit
    float ToolCostSum = 0;  ///< dollars per station
    int Tools = 0;          ///< distinct tools of a station

    bool operator==(const WorkContent&) const = default;
};

/// The work content of a station as its tasks are added one after the other.
///
/// Its time is the sum of the task times over the uptime, a tool change wherever the tool differs
/// from that of the task before, and at the end of the cycle the transport time or, where the last
/// tool is not the first one, the longer of transport and tool change, over the uptime again.
class StationContent {
  public:
    /// Throws DivisionByZero when its uptime is 0.
    StationContent(const Resource& resource, double transportTime);

    /// Begins anew, without tasks.
    void Clear();
    /// Adds the next task. Throws Overflow when the time or tool cost is beyond a single.
    void Add(const MatrixEntry& entry);

    /// Of the tasks so far, at least one. Throws Overflow when the time is beyond a single.
    [[nodiscard]] WorkContent Content() const;

  private:
    double m_toolChange;  ///< seconds
    double m_uptime;      ///< share of the time
    double m_sameTool;    ///< seconds at the end of the cycle when the first tool is in place
    double m_otherTool;   ///< and when it is not
    float m_time = 0;     ///< seconds without the end of the cycle
    int m_firstTool = 0;
    int m_tool = 0;  ///< of the last task
    ToolSet m_tools;
};

/// The work content of a range of tasks. `byTask` stands in ascending order of task and is not
/// empty. Throws as StationContent does.
WorkContent ContentOf(std::span<const MatrixEntry> byTask, const Resource& resource,
                      double transportTime);

}  // namespace quarnel02
