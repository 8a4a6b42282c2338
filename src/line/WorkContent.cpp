#include "line/WorkContent.h"

#include <algorithm>

#include "basic/Numbers.h"
#include "line/RecordNames.h"

namespace quarnel02 {

namespace {

double UptimeShare(const Resource& resource) {
    const double share = resource.UpTime * 0.01;
    if (share == 0) {
        RefuseDivisor(resource, "uptime is 0 %; it must be above 0 and at most 100.");
    }
    return share;
}

}  // namespace

StationContent::StationContent(const Resource& resource, double transportTime)
    : m_toolChange(resource.ToolChange),
      m_uptime(UptimeShare(resource)),
      m_sameTool(transportTime / m_uptime),
      m_otherTool(std::max(transportTime, resource.ToolChange) / m_uptime) {}

void StationContent::Clear() {
    m_time = 0;
    m_tools.Clear();
}

void StationContent::Add(const MatrixEntry& entry) {
    if (m_tools.Count() == 0) {
        m_firstTool = entry.ToolNum;
        m_tool = entry.ToolNum;
    }
    m_time = ToSingle(static_cast<double>(m_time) + entry.TaskTime / m_uptime, "Task time");
    if (entry.ToolNum != m_tool) {
        m_time = ToSingle(static_cast<double>(m_time) + m_toolChange, "Tool change time");
        m_tool = entry.ToolNum;
    }
    m_tools.Add(entry);
}

WorkContent StationContent::Content() const {
    const double end_of_cycle = m_tool == m_firstTool ? m_sameTool : m_otherTool;
    return {ToSingle(static_cast<double>(m_time) + end_of_cycle, "Transport time"), m_tools.Cost(),
            m_tools.Count()};
}

WorkContent ContentOf(std::span<const MatrixEntry> byTask, const Resource& resource,
                      double transportTime) {
    StationContent content(resource, transportTime);
    for (const MatrixEntry& entry : byTask) {
        content.Add(entry);
    }
    return content.Content();
}

}  // namespace quarnel02
