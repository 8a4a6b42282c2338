#pragma once

// Internal to model/: what can be said of a file without opening it as a database.

#include <filesystem>
#include <string>
#include <string_view>

namespace quarnel02 {

/// Throws NotAModel: "line.mdb is empty. Choose a model file saved by this program."
[[noreturn]] void RefuseFile(std::string_view name, const std::string& why,
                             const char* remedy = "Choose a model file saved by this program.");

/// Throws FileNotFound or NotAModel unless an ordinary file stands at `path`.
void RequireOrdinaryFile(const std::filesystem::path& path, std::string_view name);

/// Throws like RequireOrdinaryFile, FileAccess for a file that may not be read, and NotAModel
/// unless the file begins like a database that is a single file.
void RequireDatabaseHead(const std::filesystem::path& path, std::string_view name);

}  // namespace quarnel02
