#pragma once

#include "shell/MainForm.h"

namespace quarnel02 {

/// Shows the working copy in the main form: fills the eight parameter boxes from Gen, clears the
/// boxes of a demand row and the results, and rebuilds arcs and pathways. Throws NoCurrentRecord
/// when Gen has no row, and what CreateLinks throws; the pointer is restored in any case.
void LoadModel(MainForm& form);

/// Shows the demand rows of the working copy and their sum; nothing of what was shown before stays.
void ShowDemand(MainForm& form);

/// Shows what has been entered after the tables have become others under the form: parameters and
/// demand; and rebuilds arcs and pathways. Results stay. Throws as LoadModel does.
void ShowInputs(MainForm& form);

}  // namespace quarnel02
