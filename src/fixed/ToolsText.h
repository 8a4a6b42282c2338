#pragma once

#include <string>

#include "model/Database.h"

namespace quarnel02 {

/// The tools of a resource on a run of tasks: a blank and the number for each tool, a run of equal
/// numbers once. Throws NoCurrentRecord when a task has no Matrix row for the resource.
std::string ToolsText(const Database& database, int resource, int firstTask, int lastTask);

/// The tools text as a report shows it: whole up to 12 characters, else split once, behind the
/// first blank from character 11 on.
struct SplitText {
    std::string First;
    std::string Rest;
    bool Split = false;
};
SplitText SplitToolsText(const std::string& tools);

/// The tasks of an arc: "3" for one task, else "3-7".
std::string TasksText(int taskStart, int taskEnd);

}  // namespace quarnel02
