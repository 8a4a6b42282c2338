#include "fixed/ToolsText.h"

#include "basic/Numbers.h"

namespace quarnel02 {

std::string ToolsText(const Database& database, int resource, int firstTask, int lastTask) {
    std::string tools;
    std::string last_tool;
    for (int task = firstTask; task <= lastTask; ++task) {
        const std::string tool =
            database
                .OpenRecordSet("SELECT ToolNum FROM Matrix WHERE ResourceId = " +
                               NumberText(resource) + " AND TaskId = " + NumberText(task) + ";")
                .Text(0);
        if (tool != last_tool) {
            tools += " " + tool;
        }
        last_tool = tool;
    }
    return tools;
}

SplitText SplitToolsText(const std::string& tools) {
    constexpr std::size_t longest = 12;
    constexpr std::size_t split_from = 11;
    if (tools.size() <= longest) {
        return {tools, {}, false};
    }
    std::size_t split = split_from;
    while (split < tools.size() && tools[split - 1] != ' ') {
        ++split;
    }
    return {tools.substr(0, split), tools.substr(split), true};
}

std::string TasksText(int taskStart, int taskEnd) {
    const std::string first = NumberText(taskStart);
    return taskStart + 1 == taskEnd ? first : first + "-" + NumberText(taskEnd - 1);
}

}  // namespace quarnel02
