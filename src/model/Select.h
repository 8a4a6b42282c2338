#pragma once

// Internal to model/ and files/: reading with SQLite's own statements, which know a column's table.

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>

#include "model/RecordSet.h"

namespace quarnel02 {

using ReadStatement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

/// Throws SQLite::Exception.
ReadStatement Prepare(sqlite3* database, const std::string& sql);

/// False behind the last row. Throws SQLite::Exception.
bool Step(const ReadStatement& statement);

/// A field of the row that was stepped to.
Value FieldOf(const ReadStatement& statement, int column);

/// All rows that the text selects now. Those of a single table come with their identities, and in
/// the order in which they were added as far as the text asks for no other. Throws
/// SQLite::Exception.
Rows Select(sqlite3* database, const std::string& sql);

/// The first field of the first row, a whole number.
std::int64_t WholeNumber(sqlite3* database, const std::string& sql);

}  // namespace quarnel02
