#pragma once

#include <string>

#include "shell/MainForm.h"

namespace quarnel02 {

inline constexpr const char* kRunReport = "RunRpt.txt";

/// Opens a report of the application directory in the text editor, without waiting for it. Does
/// nothing when there is no such report.
void OpenReport(MainForm& form, const std::string& file);

/// Menu command "Solution summary": opens the report of the last fixed-demand solve.
void mnuViewLastCont(MainForm& form);

}  // namespace quarnel02
