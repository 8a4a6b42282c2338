#pragma once

#include "model/Database.h"
#include "picture/Picture.h"
#include "shell/TextBoxes.h"

namespace quarnel02 {

/// Rebuilds table Arcs with every run of consecutive tasks for the task count in txtTasks, then
/// regenerates the pathways and redraws the network.
/// Throws TypeMismatch when txtTasks holds no number and Overflow for more than 255 tasks, before
/// anything is changed. A failure of the store while Arcs is rebuilt undoes the rebuild and is
/// not reported; what GeneratePathways throws comes through.
void CreateLinks(const Database& database, const TextBoxes& boxes, Picture& network);

}  // namespace quarnel02
