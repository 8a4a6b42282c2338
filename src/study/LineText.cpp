#include "study/LineText.h"

#include "basic/Numbers.h"

namespace quarnel02 {

std::string TaskRangeText(int first, int last) {
    return first == last ? NumberText(first) : NumberText(first) + "-" + NumberText(last);
}

std::string GroupText(const LineModel& model, const StationGroup& group) {
    const Resource& resource = model.ResourceOf(group.Resource);
    const std::string name =
        resource.ShortName.empty() ? "Resource " + NumberText(resource.Number) : resource.ShortName;
    const std::string quantity = group.Stations > 1 ? " x" + NumberText(group.Stations) : "";
    return name + quantity + " " + TaskRangeText(group.FirstTask, group.LastTask);
}

std::string LineText(const LineModel& model, std::span<const StationGroup> groups) {
    std::string text;
    for (const StationGroup& group : groups) {
        text += (text.empty() ? "" : "; ") + GroupText(model, group);
    }
    return text;
}

}  // namespace quarnel02
