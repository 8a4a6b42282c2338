#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "commands/NumberedRecords.h"
#include "shell/MainForm.h"

namespace quarnel02 {

/// A task and a resource by their numbers.
struct TaskResource {
    std::int16_t Task;
    std::int16_t Resource;
    bool operator==(const TaskResource&) const = default;
};

/// What the matrix knows of a pair, as it is shown.
struct PairTexts {
    std::string Resource;  ///< "Resource 2: Assembly press"
    std::string Task;      ///< "Task 1: Press the bearing"
    /// Task time, tool number, tool cost; empty for a pair without a row.
    std::array<std::string, 3> Data;
};

/// Throws NoCurrentRecord when the task or the resource does not exist.
PairTexts FetchPair(MainForm& form, TaskResource pair);

/// Writes fields of the pair's matrix row, which is added when there is none.
void StorePair(MainForm& form, TaskResource pair, const std::vector<FieldValue>& values);

/// Deletes the pair's matrix rows.
void DeletePair(const Database& database, TaskResource pair);

/// The pair's row of TaskTime, ToolNum and ToolCost; an empty set when there is none.
RecordSet PairData(const Database& database, TaskResource pair);

/// Whether the pair has a row whose task time is above 0.
bool HasUsableTime(const Database& database, TaskResource pair);

/// "Time: 30 sec   Tool #: 1   Tool Cost: $500", with dashes for a pair without a row.
std::string PairLine(const Database& database, TaskResource pair);

}  // namespace quarnel02
