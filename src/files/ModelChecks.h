#pragma once

// Internal to files/: what makes a file a model of this program, and the refusal of others.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

struct sqlite3;

namespace quarnel02 {

/// PRAGMA application_id of a model file, "Qn02". Files of the first versions have 0.
inline constexpr std::int64_t kApplicationId = 0x516E3032;

/// PRAGMA user_version of a model file: the newest format that this program reads, and the one it
/// writes. schema.sql says the same.
inline constexpr std::int64_t kFormatVersion = 1;

/// Throws NotAModel: "line.mdb is empty. Choose a model file saved by this program."
[[noreturn]] void RefuseFile(std::string_view name, const std::string& why,
                             const char* remedy = "Choose a model file saved by this program.");

/// Throws FileNotFound or NotAModel unless an ordinary file stands at `path`.
void RequireOrdinaryFile(const std::filesystem::path& path, std::string_view name);

/// The first bytes of a file. Throws FileAccess for one that may not be read.
std::string FileHead(const std::filesystem::path& path, std::string_view name);

/// Whether a file begins like a SQLite database.
bool IsSqliteHead(std::string_view head);

/// Throws like RequireOrdinaryFile and FileHead, and NotAModel unless the file begins like a
/// database that is a single file.
void RequireDatabaseHead(const std::filesystem::path& path, std::string_view name);

/// Throws NotAModel unless tables and indices of the open database are whole.
void RequireSound(sqlite3* database, std::string_view name);

/// Throws NotAModel unless the eight tables are there with their columns in order, and one row of
/// Gen.
void RequireModelTables(sqlite3* database, std::string_view name);

/// Throws NotAModel unless the database has the one row of production parameters.
void RequireGenRow(std::int64_t rows, std::string_view name);

}  // namespace quarnel02
