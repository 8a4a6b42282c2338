#include "model/Select.h"

#include <SQLiteCpp/Exception.h>

namespace quarnel02 {

namespace {

/// Null for a text that SQLite does not take. Throws SQLite::Exception where only memory is short.
ReadStatement TryPrepare(sqlite3* database, const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database, sql.c_str(), -1, &statement, nullptr) == SQLITE_NOMEM) {
        throw SQLite::Exception(database, SQLITE_NOMEM);
    }
    return {statement, sqlite3_finalize};
}

/// The table whose own columns, under their own names, are all that the statement yields.
std::string OneTable(sqlite3_stmt* statement) {
    std::string one;
    for (int column = 0; column < sqlite3_column_count(statement); ++column) {
        const char* table = sqlite3_column_table_name(statement, column);
        const char* origin = sqlite3_column_origin_name(statement, column);
        if (table == nullptr || (column > 0 && one != table) ||
            std::string_view(origin) != sqlite3_column_name(statement, column)) {
            return {};
        }
        one = table;
    }
    return one;
}

/// The statement with the rows' identities in front of the fields. Null for joins and DISTINCT,
/// with which SQLite refuses them, and for groups, with which it gives that of any of their rows.
ReadStatement WithIds(sqlite3* database, std::string_view sql) {
    constexpr std::string_view select = "SELECT";
    constexpr std::string_view blanks = "; \t\r\n";
    const std::size_t fields = sql.find_first_not_of(blanks) + select.size();
    const std::string text =
        "SELECT rowid," +
        std::string(sql.substr(fields, sql.find_last_not_of(blanks) + 1 - fields));
    if (sqlite3_strlike("%group by%", text.c_str(), 0) == 0) {
        return TryPrepare(database, {});
    }
    auto statement = TryPrepare(database, text + " ORDER BY rowid");
    return statement ? std::move(statement) : TryPrepare(database, text + ", rowid");
}

void ReadAll(const ReadStatement& statement, int firstField, Rows& rows) {
    const int columns = sqlite3_column_count(statement.get());
    for (int column = firstField; column < columns; ++column) {
        rows.Names.emplace_back(sqlite3_column_name(statement.get(), column));
    }
    while (Step(statement)) {
        Row& row = rows.All.emplace_back();
        row.Id = sqlite3_column_int64(statement.get(), 0);
        row.Fields.reserve(rows.Names.size());
        for (int column = firstField; column < columns; ++column) {
            row.Fields.push_back(FieldOf(statement, column));
        }
    }
}

}  // namespace

ReadStatement Prepare(sqlite3* database, const std::string& sql) {
    auto statement = TryPrepare(database, sql);
    if (!statement) {
        throw SQLite::Exception(database);
    }
    return statement;
}

bool Step(const ReadStatement& statement) {
    const int result = sqlite3_step(statement.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) {
        throw SQLite::Exception(sqlite3_db_handle(statement.get()), result);
    }
    return result == SQLITE_ROW;
}

Value FieldOf(const ReadStatement& statement, int column) {
    switch (sqlite3_column_type(statement.get(), column)) {
        case SQLITE_INTEGER:
            return std::int64_t{sqlite3_column_int64(statement.get(), column)};
        case SQLITE_FLOAT:
            return sqlite3_column_double(statement.get(), column);
        case SQLITE_NULL:
            return {};
        default:
            break;
    }
    const void* text = sqlite3_column_blob(statement.get(), column);
    const int length = sqlite3_column_bytes(statement.get(), column);
    return std::string(static_cast<const char*>(text), static_cast<std::size_t>(length));
}

Rows Select(sqlite3* database, const std::string& sql) {
    const ReadStatement plain = Prepare(database, sql);
    Rows rows;
    rows.Table = OneTable(plain.get());
    const ReadStatement with_ids =
        rows.Table.empty() ? TryPrepare(database, {}) : WithIds(database, sql);
    if (with_ids) {
        ReadAll(with_ids, 1, rows);
    } else {
        rows.Table.clear();
        ReadAll(plain, 0, rows);
    }
    return rows;
}

std::int64_t WholeNumber(sqlite3* database, const std::string& sql) {
    return std::get<std::int64_t>(Select(database, sql).All.at(0).Fields.at(0));
}

}  // namespace quarnel02
