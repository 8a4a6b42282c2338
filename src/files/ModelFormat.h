#pragma once

#include <filesystem>
#include <optional>

namespace quarnel02 {

/// How a model stands in a file. Both formats have the extension ".mdb".
enum class ModelFormat {
    Sqlite,  ///< this program's own, a SQLite database
    Access   ///< a database of Microsoft Access
};

/// The format of the file at `path` by its first bytes; nothing when there is no such file, or none
/// that can be read, or one of another kind. What follows may still be damaged.
std::optional<ModelFormat> FormatOfFile(const std::filesystem::path& path);

}  // namespace quarnel02
