#pragma once

#include "commands/NumberedRecords.h"

namespace quarnel02 {

/// Table Tasks: a new task is described by three blanks.
NumberedTable TaskTable();

/// Deletes the current task, and the matrix rows of numbers that no task bears any more. The
/// other matrix rows keep their numbers, and with them pass to the tasks that now bear those.
void DeleteTask(NumberedRecords& tasks);

}  // namespace quarnel02
