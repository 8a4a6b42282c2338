#pragma once

#include <optional>

#include "commands/CurrentModel.h"
#include "shell/MainForm.h"

namespace quarnel02 {

/// Writes the parameter boxes whose text differs from what is stored into the row of Gen and marks
/// the model as changed. Throws, with the caption of the box, TypeMismatch for a text that is no
/// number and Overflow for one outside its range ("Working days per year is 0; it must be above 0
/// and at most 366."), and NoCurrentRecord without the row; nothing is then written. A box that
/// shows what is stored is not looked at, so a figure that came in with a file and cannot be does
/// not stand in the way of the others.
void SaveGeneral(MainForm& form, CurrentModel& current);

/// The same for the penalty box alone.
void SavePenalty(MainForm& form, CurrentModel& current);

/// The first parameter box whose text SaveGeneral refuses. Throws what the store reports.
std::optional<TextBox> RefusedParameter(const Database& database, const TextBoxes& boxes);

}  // namespace quarnel02
