#include "study/LineText.h"

#include "basic/Numbers.h"

namespace quarnel02 {

std::string TaskRangeText(int first, int last) {
    return first == last ? NumberText(first) : NumberText(first) + "-" + NumberText(last);
}

std::string NameText(const Resource& resource) {
    const std::string& name = resource.ShortName;
    const std::size_t first = name.find_first_not_of(' ');
    if (first == std::string::npos) {
        return "Resource " + NumberText(resource.Number);
    }
    return name.substr(first, name.find_last_not_of(' ') + 1 - first);
}

std::string GroupText(const LineModel& model, const StationGroup& group) {
    const std::string name = NameText(model.ResourceOf(group.Resource));
    const std::string quantity = group.Stations > 1 ? " x" + NumberText(group.Stations) : "";
    return name + quantity + " " + TaskRangeText(group.FirstTask, group.LastTask);
}

std::string TaskTexts(const LineModel& model, const StationGroup& group) {
    std::string text;
    for (int task = group.FirstTask; task <= group.LastTask; ++task) {
        const Task& one = model.Tasks()[static_cast<std::size_t>(task) - 1];
        text += (text.empty() ? "" : "; ") + NumberText(task) +
                (one.Description.empty() ? "" : " " + one.Description);
    }
    return text;
}

std::string ToolNumbersText(std::span<const int> tools) {
    std::string text;
    for (const int tool : tools) {
        text += (text.empty() ? "" : ", ") + NumberText(tool);
    }
    return text;
}

std::string LineText(const LineModel& model, std::span<const StationGroup> groups) {
    std::string text;
    for (const StationGroup& group : groups) {
        text += (text.empty() ? "" : "; ") + GroupText(model, group);
    }
    return text;
}

}  // namespace quarnel02
