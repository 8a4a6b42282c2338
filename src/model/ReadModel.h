#pragma once

#include <filesystem>
#include <string_view>

namespace quarnel02 {

/// Makes a fresh working copy at `workingCopy` with the model that the user's file `source` holds;
/// `emptyModel` is the template. A user's file is data to be read, never a database to work in: it
/// is opened read-only and only the rows of the eight tables are taken, by column name. `name`
/// stands for the file in errors. When it fails nothing is left at `workingCopy`.
/// Throws FileNotFound, FileAccess, DatabaseLocked or NotAModel with one line that names the file
/// and what is wrong with it.
void ReadModel(const std::filesystem::path& source, const std::filesystem::path& emptyModel,
               const std::filesystem::path& workingCopy, std::string_view name);

}  // namespace quarnel02
