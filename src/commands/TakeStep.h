#pragma once

#include "commands/EditHistory.h"
#include "shell/MainForm.h"

namespace quarnel02 {

/// EditHistory::Undo or EditHistory::Redo.
using HistoryStep = void (EditHistory::*)();

/// Takes a step, and shows what has been entered anew where the line has become another one: marks
/// on the network survive a step of scenarios. Where Gen counts the records it goes on to.
/// Throws as the step and ShowInputs do.
void TakeStep(MainForm& form, EditHistory& history, HistoryStep step);

}  // namespace quarnel02
