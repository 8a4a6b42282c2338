#pragma once

#include <string>

#include "shell/MainForm.h"

namespace quarnel02 {

inline constexpr const char* kRunReport = "RunRpt.txt";
inline constexpr const char* kProductionReport = "ProdRpt.txt";

/// Whether the application directory holds the report.
[[nodiscard]] bool HasReport(const MainForm& form, const std::string& file);

/// Opens a report of the application directory in the text editor, without waiting for it. Does
/// nothing when there is no such report.
void OpenReport(MainForm& form, const std::string& file);

/// Menu command "Production report": opens the report of the last stochastic solve.
void mnuViewLast(MainForm& form);
/// Menu command "Solution summary": opens the report of the last fixed-demand solve.
void mnuViewLastCont(MainForm& form);

}  // namespace quarnel02
