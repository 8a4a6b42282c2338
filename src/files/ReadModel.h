#pragma once

#include <filesystem>
#include <string_view>

#include "files/ModelFormat.h"

namespace quarnel02 {

/// Makes a fresh working copy at `workingCopy` with the model that the user's file `source` holds,
/// in any format, and returns which that is. A user's file is data to be read, never a database to
/// work in: it is opened for reading only, and only the rows of its eight tables, and of its
/// scenarios, are taken, by column name, in one state of the file. The working copy's tables are
/// our own, so that nothing else the file defines (views, triggers, constraints, indices, computed
/// columns) gets there. Only its owner may read it. A working copy that stands there is replaced
/// when the new one is whole; when anything fails it stays as it was. `name` stands for the file in
/// errors. Throws FileNotFound, FileAccess, DatabaseLocked or NotAModel with one line that names
/// the file and what is wrong with it: also for a damaged file, one of a newer version of this
/// program, one with another program's unfinished change, one that takes seconds to read, and one
/// that is open in Access (DatabaseLocked). An Access file may lack columns for which there is a
/// value that changes nothing: the texts, the figures that a new resource begins with, tools and
/// what a solve makes anew.
ModelFormat ReadModel(const std::filesystem::path& source, const std::filesystem::path& workingCopy,
                      std::string_view name);

}  // namespace quarnel02
