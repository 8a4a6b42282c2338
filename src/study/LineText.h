#pragma once

#include <span>
#include <string>

#include "line/LineModel.h"
#include "line/StationGroup.h"

namespace quarnel02 {

/// "3" for one task, else "3-7".
std::string TaskRangeText(int first, int last);

/// Short name of a resource without blanks around it; "Resource 3" where it has none.
std::string NameText(const Resource& resource);

/// "Bench 1-8" or "Assist x2 9-12": short name, parallel stations where there are several, tasks.
std::string GroupText(const LineModel& model, const StationGroup& group);

/// "1 Insert pin; 2 Press bearing"
std::string TaskTexts(const LineModel& model, const StationGroup& group);

/// "1, 3, 2"
std::string ToolNumbersText(std::span<const int> tools);

/// A line as one text: "Bench 1-8; Assist x2 9-12".
std::string LineText(const LineModel& model, std::span<const StationGroup> groups);

}  // namespace quarnel02
