#pragma once

#include "shell/MainForm.h"

namespace quarnel02 {

/// Shows the working copy in the main form: fills the eight parameter boxes from Gen, clears the
/// boxes of a demand row and the results, and rebuilds arcs and pathways. Throws NoCurrentRecord
/// when Gen has no row, and what CreateLinks throws; the pointer is restored in any case.
void LoadModel(MainForm& form);

}  // namespace quarnel02
