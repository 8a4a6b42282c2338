#pragma once

#include "shell/MainForm.h"

namespace quarnel02 {

/// Number of rows of the demand distribution in the working copy.
int CountDemandRows(MainForm& form);

/// What selecting a line of lstDemand does: txtVolume and txtProb show the row that stands at
/// that place (from 0) in ascending order of volume. Throws NoCurrentRecord for a line beyond
/// the table.
void ShowDemandRow(MainForm& form, int line);

}  // namespace quarnel02
