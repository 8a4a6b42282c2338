#pragma once

#include "shell/MainForm.h"

namespace quarnel02 {

/// Draws the arc network of the working copy on picArc: every arc in the colours of the states
/// of its pathways, the chosen line on top, and the row of task nodes. Throws TypeMismatch when
/// txtTasks holds no number, and what the store reports.
void DrawLinks(MainForm& form);

}  // namespace quarnel02
