#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "model/Database.h"

namespace quarnel02 {

/// Whether the costs in Pathways are those of the design that is shown.
enum class PathwayCosts : std::int8_t { Known, Unknown };

/// A way to do the tasks of an arc, as its row in Pathways has it.
struct ArcWay {
    int Resource = 0;
    int State = 0;
    double Cost = 0;  ///< dollars per year; 0 before it is costed
};

/// Short names of the resources by number, without blanks around them; "Resource 3" for none.
std::map<int, std::string> ResourceNames(const Database& database);

/// What an arc stands for: tasks, resource, cost and state, "5-9: Robot 93,443, cheapest of 4".
std::string ArcWords(int taskStart, int taskEnd, std::span<const ArcWay> ways,
                     const std::map<int, std::string>& names);

}  // namespace quarnel02
