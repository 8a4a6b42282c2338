#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <filesystem>
#include <string>
#include <vector>

#include "basic/Files.h"

namespace quarnel02::test {

/// A connection of another program to a database file; it does not wait for locks.
class RawStore {
  public:
    explicit RawStore(const std::filesystem::path& file)
        : m_database(PathText(file), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE) {}

    void Run(const std::string& sql) { m_database.exec(sql); }

    /// Rows of a SELECT, fields joined by "|", Null as "".
    [[nodiscard]] std::vector<std::string> Rows(const std::string& sql) {
        SQLite::Statement statement(m_database, sql);
        std::vector<std::string> rows;
        while (statement.executeStep()) {
            std::string& text = rows.emplace_back();
            for (int column = 0; column < statement.getColumnCount(); ++column) {
                text += (column == 0 ? "" : "|") + statement.getColumn(column).getString();
            }
        }
        return rows;
    }

  private:
    SQLite::Database m_database;
};

}  // namespace quarnel02::test
