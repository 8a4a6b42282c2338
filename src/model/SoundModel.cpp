#include "model/SoundModel.h"

#include <string>
#include <vector>

#include "model/FileHead.h"
#include "model/Schema.h"

namespace quarnel02 {

namespace {

void RequireTable(SQLite::Database& database, const TableSchema& table, std::string_view name) {
    const std::string table_name(table.Name);
    SQLite::Statement info(database, "SELECT name FROM pragma_table_info(?)");
    info.bind(1, table_name);
    std::vector<std::string> columns;
    while (info.executeStep()) {
        columns.push_back(info.getColumn(0).getString());
    }
    if (columns.empty()) {
        RefuseFile(name, "has no table " + table_name + ".");
    }
    for (std::size_t i = 0; i < table.Columns.size(); ++i) {
        if (i >= columns.size() || !SameName(columns[i], table.Columns[i].Name)) {
            RefuseFile(name, "has no column " + std::string(table.Columns[i].Name) + " at place " +
                                 std::to_string(i + 1) + " of table " + table_name + ".");
        }
    }
}

}  // namespace

void RequireSound(SQLite::Database& database, std::string_view name) {
    SQLite::Statement check(database, "PRAGMA integrity_check(1)");
    if (!check.executeStep() || check.getColumn(0).getString() != "ok") {
        RefuseFile(name, "is damaged.");
    }
}

void RequireGenRow(std::int64_t rows, std::string_view name) {
    if (rows != 1) {
        RefuseFile(name, "has " + std::to_string(rows) +
                             " rows of production parameters in table Gen instead of one.");
    }
}

void RequireModelTables(SQLite::Database& database, std::string_view name) {
    for (const TableSchema& table : ModelSchema()) {
        RequireTable(database, table, name);
    }
    RequireGenRow(database.execAndGet("SELECT COUNT(*) FROM Gen").getInt64(), name);
}

}  // namespace quarnel02
