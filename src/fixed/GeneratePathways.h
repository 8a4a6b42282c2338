#pragma once

#include "model/Database.h"
#include "picture/Picture.h"
#include "shell/TextBoxes.h"

namespace quarnel02 {

/// Refills table Pathways with one row for every arc and every resource that has a Matrix row with
/// a task time above 0 for each of its tasks: by resource, start task and end task, PathId from 1.
/// Then draws the network as DrawLinks does. Throws Overflow for more than 32,767 pathways and
/// NoCurrentRecord for a Matrix row of a task that has no arc; Pathways is then as it was before.
void GeneratePathways(const Database& database, const TextBoxes& boxes, Picture& network);

}  // namespace quarnel02
