#pragma once

#include <filesystem>
#include <string>

#include "shell/Desktop.h"
#include "shell/PictureBoxes.h"
#include "shell/WorkingCopy.h"

namespace quarnel02 {

inline constexpr const char* kRunReport = "RunRpt.txt";          ///< of a fixed-demand solve
inline constexpr const char* kProductionReport = "ProdRpt.txt";  ///< of a stochastic solve

/// Whether the application directory holds the report.
[[nodiscard]] bool HasReport(const WorkingCopy& copy, const std::string& file);

/// Removes the report of an earlier solve, if there is one, so that it does not pass for the result
/// of the next. Throws FileAccess when it cannot be removed.
void RemoveReport(const WorkingCopy& copy, const std::string& file);

/// Clears the result pictures, which then show no design.
void ClearResults(PictureBoxes& boxes);
/// Shows again what a copy of the boxes, made earlier, has as results.
void ShowResultsAgain(const PictureBoxes& earlier, PictureBoxes& boxes);

/// Opens a report of the application directory in the text editor, without waiting for it. Does
/// nothing when there is no such report.
void OpenReport(const WorkingCopy& copy, const std::string& file, Desktop& desktop);

}  // namespace quarnel02
