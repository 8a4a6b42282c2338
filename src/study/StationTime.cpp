#include "study/StationTime.h"

#include <algorithm>

namespace quarnel02 {

namespace {

std::span<const MatrixEntry> EntriesOf(const LineModel& model, const StationGroup& group) {
    return model.Entries(group.Resource, group.FirstTask, group.LastTask);
}

int ToolChangesWithin(std::span<const MatrixEntry> entries) {
    int changes = 0;
    for (std::size_t next = 1; next < entries.size(); ++next) {
        changes += entries[next].ToolNum != entries[next - 1].ToolNum ? 1 : 0;
    }
    return changes;
}

}  // namespace

CycleEnd CycleEndOf(const LineModel& model, const StationGroup& group) {
    const auto entries = EntriesOf(model, group);
    const double transport = model.Parameters().TransportTime;
    const bool other_tool = entries.front().ToolNum != entries.back().ToolNum;
    const double tool_change = model.ResourceOf(group.Resource).ToolChange;
    return {other_tool, other_tool ? std::max(transport, tool_change) : transport};
}

std::vector<TimePart> TimePartsOf(const LineModel& model, const StationGroup& group) {
    const auto entries = EntriesOf(model, group);
    const Resource& resource = model.ResourceOf(group.Resource);
    const CycleEnd end = CycleEndOf(model, group);
    const double transport = std::min(end.Seconds, model.Parameters().TransportTime);
    const double loss_share = 100 / resource.UpTime - 1;
    double lossy = end.Seconds;
    std::vector<TimePart> parts;
    for (int task = group.FirstTask; task <= group.LastTask; ++task) {
        const double seconds = model.Entry(group.Resource, task).TaskTime;
        parts.push_back({TimeKind::Task, task, seconds / group.Stations});
        lossy += seconds;
    }
    const double changes =
        ToolChangesWithin(entries) * resource.ToolChange + end.Seconds - transport;
    parts.push_back({TimeKind::ToolChange, 0, changes / group.Stations});
    parts.push_back({TimeKind::Transport, 0, transport / group.Stations});
    parts.push_back({TimeKind::UptimeLoss, 0, lossy * loss_share / group.Stations});
    return parts;
}

std::vector<ToolCost> ToolsOf(const LineModel& model, const StationGroup& group) {
    std::vector<ToolCost> tools;
    for (const MatrixEntry& entry : EntriesOf(model, group)) {
        if (std::none_of(tools.begin(), tools.end(),
                         [&](const ToolCost& tool) { return tool.Tool == entry.ToolNum; })) {
            tools.push_back({entry.ToolNum, entry.ToolCost});
        }
    }
    return tools;
}

}  // namespace quarnel02
