#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "files/ModelFormat.h"

namespace quarnel02 {

/// One run of the conversion program.
struct ConvertRequest {
    std::filesystem::path From;  ///< a model file, a workbook, a directory of .csv files, SQL text
    std::filesystem::path To;    ///< the same by its extension; one without is a directory
    std::optional<ModelFormat> Format;  ///< of a model file; else what it was, else our own
};

/// Reads a model from one file and writes it, whole or not at all, to another of any kind but .ods.
/// Between model files all tables are kept; a workbook, .csv files and SQL text hold what a planner
/// enters. `From` is never changed; a file that holds more than a model, or is open elsewhere, is
/// not replaced. Returns a line on what was left out, or would be refused if it were read back; ""
/// when there is nothing to say. Throws RunTimeError with one line that names the file, or its
/// cells, and the remedy.
std::string ConvertFile(const ConvertRequest& request);

}  // namespace quarnel02
