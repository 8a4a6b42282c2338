#pragma once

// Internal to sheets/: workbooks as a directory of .csv files.

#include <filesystem>

#include "sheets/Workbook.h"

namespace quarnel02 {

/// A sheet for each .csv file, by name. Throws FileAccess, FileNotFound; NotAModel without any.
Workbook ReadCsvDirectory(const std::filesystem::path& directory);

}  // namespace quarnel02
