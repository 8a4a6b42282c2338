#pragma once

#include <filesystem>
#include <string_view>

namespace quarnel02 {

/// Makes a fresh working copy at `workingCopy` with the model that the user's file `source` holds.
/// A user's file is data to be read, never a database to work in: it is opened for reading only,
/// and only the rows of its eight tables are taken, by column name, in one state of the file. The
/// working copy's tables are our own, so that nothing else the file defines (views, triggers,
/// constraints, indices, computed columns) gets there. Only its owner may read it.
/// A working copy that stands there is replaced when the new one is whole; when anything fails it
/// stays as it was. `name` stands for the file in errors.
/// Throws FileNotFound, FileAccess, DatabaseLocked or NotAModel with one line that names the file
/// and what is wrong with it: also for a damaged file, one of a newer version of this program, one
/// with another program's unfinished change, and one that takes seconds to read.
void ReadModel(const std::filesystem::path& source, const std::filesystem::path& workingCopy,
               std::string_view name);

}  // namespace quarnel02
