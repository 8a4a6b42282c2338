#pragma once

// Internal to files/: SQLite's defences against databases that are not trusted.

#include <SQLiteCpp/SQLiteCpp.h>

namespace quarnel02 {

/// Has the connection run nothing that the file defines, and limits what the file may ask for.
void Defend(SQLite::Database& database);

}  // namespace quarnel02
