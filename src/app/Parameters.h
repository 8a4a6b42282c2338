#pragma once

#include "shell/MainForm.h"

namespace quarnel02 {

/// Writes the eight parameter boxes into the row of Gen and marks the model as changed. Throws
/// TypeMismatch or Overflow naming the field for a text that the field does not take, and
/// NoCurrentRecord without the row; nothing is then written.
void SaveGeneral(MainForm& form);

/// The same for the penalty box alone.
void SavePenalty(MainForm& form);

}  // namespace quarnel02
