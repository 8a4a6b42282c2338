#pragma once

// Internal to files/: SQLite's defences against databases that are not trusted.

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstdint>
#include <ctime>

#include "basic/Immovable.h"

namespace quarnel02 {

/// Has the connection run nothing that the file defines, and limits what the file may ask for.
void Defend(SQLite::Database& database);

/// Interrupts a database that computes for more than three seconds in one go.
class WorkLimit : Immovable {
  public:
    explicit WorkLimit(sqlite3* database);

    /// Gives it three seconds again.
    void Restart();

  private:
    std::clock_t m_until = 0;
};

/// While the object lives, SQLite has no more memory than reading a model takes, whatever a file or
/// a text asks for; a statement that wants more ends with SQLITE_NOMEM.
class MemoryLimit : Immovable {
  public:
    MemoryLimit();
    ~MemoryLimit();

    /// Whether a statement that had too little memory wanted too much, or the system had none left.
    static bool WasNear();

  private:
    std::int64_t m_before;
};

}  // namespace quarnel02
