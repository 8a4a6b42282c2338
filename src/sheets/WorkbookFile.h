#pragma once

#include <filesystem>

#include "sheets/Workbook.h"

namespace quarnel02 {

/// The sheets of a workbook: an .xlsx or .ods file, which its content tells, or a directory of .csv
/// files, one for each sheet and named after it ("Tasks.csv"). A .csv file stands for the directory
/// that it is in. Numbers, texts and empty cells come as they are shown; formulas as their results.
/// Throws FileNotFound or FileAccess, and NotAModel with one line that names a file that is no
/// workbook, is damaged, or is larger than any model.
Workbook ReadWorkbook(const std::filesystem::path& path);

/// Writes the sheets as an .xlsx file, whole or not at all (WriteWhole). ReadWorkbook gives every
/// value back, in whatever type holds it. Throws FileNotFound or FileAccess naming the file, and
/// Overflow for what such a file cannot hold: texts beyond 32,767 characters, more than 16,384
/// columns or 1,048,576 rows.
void WriteXlsx(const std::filesystem::path& path, const Workbook& workbook);

/// Writes each sheet as a .csv file into the directory, which is made when it is not there; a file
/// there of a model's sheet that the workbook lacks is removed. Throws FileNotFound or FileAccess
/// naming the file.
void WriteCsvDirectory(const std::filesystem::path& directory, const Workbook& workbook);

}  // namespace quarnel02
