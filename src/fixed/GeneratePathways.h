#pragma once

#include "shell/MainForm.h"

namespace quarnel02 {

/// Refills table Pathways with one row for every arc and every resource that has a Matrix row with
/// a task time above 0 for each of its tasks: by resource, start task and end task, PathId from 1.
/// Then redraws the network. Throws Overflow for more than 32,767 pathways and NoCurrentRecord for
/// a Matrix row of a task that has no arc; Pathways is then as it was before.
void GeneratePathways(MainForm& form);

}  // namespace quarnel02
