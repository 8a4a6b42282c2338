#pragma once

#include <filesystem>

#include "commands/CurrentModel.h"
#include "commands/EditHistory.h"
#include "shell/MainForm.h"

namespace quarnel02 {

/// Import: replaces what is entered by the model in a workbook (.xlsx, .ods, or the .csv files of a
/// directory) once the user has seen what would change and agreed; one step of the history. Cells
/// that do not fit are named in one message, and nothing is imported. Throws what ReadWorkbook,
/// TablesOf and the store throw; nothing has then changed.
void ImportWorkbook(MainForm& form, CurrentModel& current, EditHistory& history,
                    const std::filesystem::path& file);

/// Export: writes what is entered as an .xlsx file, whole or not at all. Throws what WriteXlsx
/// throws.
void ExportXlsx(const MainForm& form, const std::filesystem::path& file);

/// Export: writes a .csv file for each sheet into the directory, which is made when it is not
/// there. Asks first where files would be replaced. False when the user does not agree. Throws what
/// WriteCsvDirectory throws.
bool ExportCsv(MainForm& form, const std::filesystem::path& directory);

}  // namespace quarnel02
