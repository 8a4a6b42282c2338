#pragma once

#include <filesystem>
#include <string_view>

namespace quarnel02 {

/// Checks that the file at `path` is a whole model: a regular file, a sound database with the
/// eight tables and their columns in order, and the one row of Gen. The file is not changed.
/// `name` stands for the file in errors, so that a working copy can be checked in the name of
/// the user's file. Throws FileNotFound, FileAccess, DatabaseLocked or NotAModel with one line
/// that names the file and what is wrong with it.
void CheckModelFile(const std::filesystem::path& path, std::string_view name);

/// Makes a new database at `path`, replacing a file there, and runs the SQL script in it: the
/// schema, or the schema followed by the rows of a model. Throws FileAccess, or DatabaseFailure
/// with the store's words for the statement that failed.
void MakeModelFile(const std::filesystem::path& path, std::string_view script);

/// Gives a model of an older version, of the program's own, the table of scenarios that it lacks.
/// Throws FileAccess or DatabaseFailure.
void CompleteModelFile(const std::filesystem::path& path);

/// Makes the empty model, as the template has it, at `path`. Throws like MakeModelFile.
void MakeEmptyModel(const std::filesystem::path& path);

}  // namespace quarnel02
