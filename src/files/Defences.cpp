#include "files/Defences.h"

#include <sqlite3.h>

#include <array>
#include <string>
#include <utility>

namespace quarnel02 {

namespace {

/// What a file may ask of SQLite, in place of limits that are meant for a program's own databases.
constexpr std::array<std::pair<int, int>, 10> kLimits = {{
    {SQLITE_LIMIT_LENGTH, 16 << 20},
    {SQLITE_LIMIT_SQL_LENGTH, 100000},
    {SQLITE_LIMIT_COLUMN, 200},
    {SQLITE_LIMIT_EXPR_DEPTH, 100},
    {SQLITE_LIMIT_COMPOUND_SELECT, 20},
    {SQLITE_LIMIT_VDBE_OP, 25000},
    {SQLITE_LIMIT_FUNCTION_ARG, 16},
    {SQLITE_LIMIT_ATTACHED, 0},
    {SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 100},
    {SQLITE_LIMIT_TRIGGER_DEPTH, 10},
}};

constexpr int kSecondsOfWork = 3;
constexpr int kStepsBetweenLooks = 1000;

int IsOverdue(void* until) {
    return std::clock() > *static_cast<const std::clock_t*>(until) ? 1 : 0;
}

/// A model of as much content as is read (ContentLimit) takes half of it.
constexpr std::int64_t kMostMemory = 192 << 20;

}  // namespace

MemoryLimit::MemoryLimit() : m_before(sqlite3_hard_heap_limit64(kMostMemory)) {
    sqlite3_memory_highwater(1);
}

MemoryLimit::~MemoryLimit() {
    sqlite3_hard_heap_limit64(m_before);
}

/// The request that was one too many is not in the figure, and may have been a large one.
bool MemoryLimit::WasNear() {
    return sqlite3_memory_highwater(0) > kMostMemory / 2;
}

void Defend(SQLite::Database& database) {
    sqlite3* const handle = database.getHandle();
    for (const auto& [limit, value] : kLimits) {
        sqlite3_limit(handle, limit, value);
    }
    for (const auto& [option, value] :
         {std::pair(SQLITE_DBCONFIG_DEFENSIVE, 1), std::pair(SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0),
          std::pair(SQLITE_DBCONFIG_ENABLE_TRIGGER, 0),
          std::pair(SQLITE_DBCONFIG_ENABLE_VIEW, 0)}) {
        sqlite3_db_config(handle, option, value, nullptr);
    }
    for (const char* setting : {"cell_size_check = ON", "mmap_size = 0", "query_only = ON",
                                "temp_store = MEMORY", "ignore_check_constraints = ON"}) {
        database.exec(std::string("PRAGMA ") + setting);
    }
}

WorkLimit::WorkLimit(sqlite3* database) {
    Restart();
    sqlite3_progress_handler(database, kStepsBetweenLooks, IsOverdue, &m_until);
}

void WorkLimit::Restart() {
    m_until = std::clock() + kSecondsOfWork * CLOCKS_PER_SEC;
}

}  // namespace quarnel02
