#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quarnel02 {

/// Makes a fresh working copy at `workingCopy` from SQL text: INSERT, UPDATE and DELETE statements
/// on the tables of an empty model, as the examples are written. Nothing else is run. The rows are
/// checked as ReadModel checks those of a file. Throws FileNotFound or FileAccess, and NotAModel
/// with `name` and the line of a statement that cannot be run; the working copy then stays as it
/// was.
void ReadSqlText(const std::filesystem::path& source, const std::filesystem::path& workingCopy,
                 std::string_view name);

/// What the planner entered in a model, as SQL text that gives it back field for field. The tables
/// that a solve makes are left out. Throws like SaveModel.
std::string SqlTextOf(const std::filesystem::path& workingCopy);

}  // namespace quarnel02
