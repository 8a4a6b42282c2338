#pragma once

#include <span>
#include <string>

#include "line/LineModel.h"

namespace quarnel02 {

/// The tools of a resource on a run of tasks: a blank and the number for each tool, a run of equal
/// numbers once.
std::string ToolsText(std::span<const MatrixEntry> tasks);

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
