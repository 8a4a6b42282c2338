#pragma once

// Internal to model/: whether an open database is a model that can be worked in.

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstdint>
#include <string_view>

namespace quarnel02 {

/// Throws NotAModel in the name of `name` unless tables and indices are whole.
void RequireSound(SQLite::Database& database, std::string_view name);

/// Throws NotAModel unless the eight tables are there with their columns in order, and one row of
/// Gen.
void RequireModelTables(SQLite::Database& database, std::string_view name);

/// Throws NotAModel unless the database has the one row of production parameters.
void RequireGenRow(std::int64_t rows, std::string_view name);

}  // namespace quarnel02
