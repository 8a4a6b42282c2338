#pragma once

// Internal to model/ and files/: the open SQLite file behind one or more Database handles.

#include <SQLiteCpp/SQLiteCpp.h>

#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "basic/Immovable.h"
#include "basic/RunTimeError.h"
#include "model/RecordSet.h"

namespace quarnel02 {

/// How long another program's lock is waited for.
constexpr int kBusyMilliseconds = 3000;

/// Runs the statement with the values in its places; returns the number of rows it changed.
int Execute(SQLite::Statement& statement, std::span<const Value> values);

/// The names as SQL, with something behind each: `"Cost"=?,"Time"=?`.
std::string Joined(std::span<const std::string_view> names, std::string_view behindEach = "");

/// What SQLite reports of a file, in our words. Throws std::bad_alloc where memory is short.
RunTimeError Translated(const SQLite::Exception& error, const std::string& file);

/// Calls `action`; what SQLite reports comes out as a RunTimeError that names the file.
template <class Action>
decltype(auto) Translating(const std::string& file, const Action& action) {
    try {
        return action();
    } catch (const SQLite::Exception& error) {
        throw Translated(error, file);
    }
}

/// `INSERT INTO Tasks ("TaskId") VALUES (?)`; without columns a row of defaults.
std::string InsertText(std::string_view table, std::span<const std::string_view> columns);

/// `UPDATE Tasks SET "Description"=? WHERE "TaskId"=?`
std::string UpdateText(std::string_view table, std::span<const std::string_view> columns,
                       std::string_view key);

class Connection : Immovable {
  public:
    /// The connection to the file, shared with every handle that is open on it now.
    static std::shared_ptr<Connection> To(const std::filesystem::path& path);

    explicit Connection(const std::filesystem::path& path);

    /// The rows that an SQL text selects now.
    [[nodiscard]] Rows Select(const std::string& sql) const;

    /// Runs an INSERT, UPDATE or DELETE, whose statement is kept; returns the number of rows it
    /// changed.
    int Change(const std::string& sql, std::span<const Value> values);
    [[nodiscard]] std::int64_t LastInsertedId() const { return m_database.getLastInsertRowid(); }

    /// Runs a statement that has neither values nor rows.
    void Run(const char* sql);
    void Undo() noexcept { m_database.tryExec("ROLLBACK"); }

  private:
    std::string m_name;
    SQLite::Database m_database;
    std::unordered_map<std::string, SQLite::Statement> m_changes;
};

/// One opening of a database; its record sets end with it.
struct Session {
    std::shared_ptr<Connection> Store;  ///< null once the session is closed
};

}  // namespace quarnel02
