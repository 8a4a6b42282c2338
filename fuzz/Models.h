#pragma once

#include <filesystem>
#include <string>

namespace quarnel02::fuzz {

/// Rows for the tables of an empty model, with something in every one of them.
std::string ModelRows();

/// A directory for the files of this process.
const std::filesystem::path& Scratch();

/// A model file made of the schema and ModelRows, and the same one as an Access database.
std::string SqliteModel();
std::string AccessModel();

}  // namespace quarnel02::fuzz
