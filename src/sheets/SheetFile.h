#pragma once

// Internal to sheets/: files that workbooks are read from.

#include <filesystem>
#include <string>

namespace quarnel02 {

/// Whole content of a file of a workbook. Throws FileNotFound or FileAccess, and NotAModel for a
/// file that is larger than that of any model.
std::string ReadSheetFile(const std::filesystem::path& path);

/// Throws NotAModel: "line.csv is too large for a workbook of a model."
[[noreturn]] void RefuseLargeSheet(const std::filesystem::path& path);

}  // namespace quarnel02
