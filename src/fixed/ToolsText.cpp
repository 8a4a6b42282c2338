#include "fixed/ToolsText.h"

#include <optional>

#include "basic/Numbers.h"

namespace quarnel02 {

std::string ToolsText(std::span<const MatrixEntry> tasks) {
    std::string tools;
    std::optional<int> last_tool;
    for (const MatrixEntry& task : tasks) {
        if (task.ToolNum != last_tool) {
            tools += " " + NumberText(task.ToolNum);
        }
        last_tool = task.ToolNum;
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
