#pragma once

#include <filesystem>
#include <string>

#include "shell/MainForm.h"

namespace quarnel02 {

inline constexpr const char* kRunReport = "RunRpt.txt";
inline constexpr const char* kProductionReport = "ProdRpt.txt";

/// Whether the application directory holds the report.
[[nodiscard]] bool HasReport(const MainForm& form, const std::string& file);

/// Removes the report of an earlier solve, if there is one, so that it does not pass for the result
/// of the next. Throws FileAccess when it cannot be removed.
void RemoveReport(const std::filesystem::path& applicationDirectory, const std::string& file);

/// Clears the result pictures, which then show no design.
void ClearResults(MainForm& form);

/// Opens a report of the application directory in the text editor, without waiting for it. Does
/// nothing when there is no such report.
void OpenReport(MainForm& form, const std::string& file);

/// Menu command "Production report": opens the report of the last stochastic solve.
void mnuViewLast(MainForm& form);
/// Menu command "Solution summary": opens the report of the last fixed-demand solve.
void mnuViewLastCont(MainForm& form);

}  // namespace quarnel02
