#pragma once

#include "shell/MainForm.h"

namespace quarnel02 {

/// Reports the line whose pathways are in state 4: writes "RunRpt.txt" in the application
/// directory, shows the same summary on picGraph 0 and the line on picGraph 2, and opens the
/// report. Throws what the store reports, and FileAccess when the report cannot be written.
void WriteSolutionSummary(MainForm& form);

}  // namespace quarnel02
