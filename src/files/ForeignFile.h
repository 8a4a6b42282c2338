#pragma once

// Internal to files/: a file of a user, or of another program, that is read and not trusted.

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "model/Schema.h"

namespace quarnel02 {

/// A database opened for reading only, in one state from its opening to its end. Nothing that it
/// defines is run: views, triggers and computed columns are not read. It is given up when three
/// seconds of processor time bring nothing. Every call throws RunTimeError in the name of the
/// file: NotAModel, DatabaseLocked or FileAccess.
class ForeignFile {
  public:
    ForeignFile(const std::filesystem::path& path, std::string_view name);

    /// Throws NotAModel for a file of a newer version of this program.
    void RequireKnownFormat() const;

    /// Throws NotAModel unless tables and indices are whole.
    void RequireWhole() const;

    /// Throws NotAModel unless the eight tables are as the program itself makes them.
    void RequireModel() const;

    /// Throws NotAModel unless the table is a plain one and has every column, wherever they stand.
    void RequireTable(const TableSchema& table) const;

    /// Rows of the table in the order in which they were added, fields in our order and of our
    /// types. Throws NotAModel for a value that a field cannot hold, and for more rows or longer
    /// texts than a model has. Returns the number of rows.
    std::int64_t ReadRows(const TableSchema& table,
                          const std::function<void(const std::vector<Value>&)>& action);

    /// Tables, views and triggers that a model does not have: "table Suppliers".
    [[nodiscard]] std::vector<std::string> ObjectsBeyondModel() const;

  private:
    template <class Action>
    decltype(auto) Guarded(const Action& action) const;
    [[noreturn]] void Translate(const SQLite::Exception& error) const;
    [[nodiscard]] sqlite3* Handle() const { return m_database.getHandle(); }
    void RequireColumns(const TableSchema& table) const;
    void GiveTime();
    void CountContent(const Value& value);

    std::filesystem::path m_path;
    std::string m_name;
    std::clock_t m_until = 0;
    std::size_t m_content = 0;  ///< bytes read so far
    SQLite::Database m_database;
};

}  // namespace quarnel02
