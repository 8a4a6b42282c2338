#include "model/Connection.h"

#include <sqlite3.h>

#include <map>
#include <new>

#include "basic/Files.h"
#include "basic/ScopeGuard.h"
#include "model/Select.h"

namespace quarnel02 {

namespace {

SQLite::Database OpenFile(const std::filesystem::path& path) {
    const std::string name = PathText(path);
    if (KindOfFile(path) == FileKind::Missing) {
        throw RunTimeError(ErrorKind::FileNotFound, "The model database " + name +
                                                        " does not exist. Check the file's name "
                                                        "and place.");
    }
    return Translating(name, [&] {
        SQLite::Database database(name, SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX,
                                  kBusyMilliseconds);
        database.exec("PRAGMA journal_mode = DELETE");
        database.exec("PRAGMA synchronous = NORMAL");
        database.exec("PRAGMA temp_store = MEMORY");
        return database;
    });
}

void Bind(SQLite::Statement& statement, int place, const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        statement.bind(place, *whole);
    } else if (const auto* real = std::get_if<double>(&value)) {
        statement.bind(place, *real);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        statement.bind(place, *text);
    } else {
        statement.bind(place);
    }
}

}  // namespace

int Execute(SQLite::Statement& statement, std::span<const Value> values) {
    const ScopeGuard reset([&] { statement.tryReset(); });  // it holds no lock then
    int place = 0;
    for (const Value& value : values) {
        Bind(statement, ++place, value);
    }
    return statement.exec();
}

std::string Joined(std::span<const std::string_view> names, std::string_view behindEach) {
    std::string text;
    for (const std::string_view name : names) {
        text.append(text.empty() ? "\"" : ",\"").append(name).append("\"").append(behindEach);
    }
    return text;
}

std::string InsertText(std::string_view table, std::span<const std::string_view> columns) {
    const std::string insert = "INSERT INTO " + std::string(table);
    if (columns.empty()) {
        return insert + " DEFAULT VALUES";
    }
    std::string places = "?";
    for (std::size_t place = 1; place < columns.size(); ++place) {
        places += ",?";
    }
    return insert + " (" + Joined(columns) + ") VALUES (" + places + ")";
}

std::string UpdateText(std::string_view table, std::span<const std::string_view> columns,
                       std::string_view key) {
    return "UPDATE " + std::string(table) + " SET " + Joined(columns, "=?") + " WHERE \"" +
           std::string(key) + "\"=?";
}

std::shared_ptr<Connection> Connection::To(const std::filesystem::path& path) {
    static std::map<std::filesystem::path, std::weak_ptr<Connection>> open;
    std::error_code error;
    const auto real = std::filesystem::weakly_canonical(path, error);
    auto& known = open[error ? path.lexically_normal() : real];
    auto connection = known.lock();
    if (!connection) {
        connection = std::make_shared<Connection>(path);
        known = connection;
    }
    return connection;
}

Connection::Connection(const std::filesystem::path& path)
    : m_name(PathText(path)), m_database(OpenFile(path)) {}

Rows Connection::Select(const std::string& sql) const {
    return Translating(m_name, [&] { return quarnel02::Select(m_database.getHandle(), sql); });
}

int Connection::Change(const std::string& sql, std::span<const Value> values) {
    return Translating(m_name, [&] {
        auto kept = m_changes.find(sql);
        if (kept == m_changes.end()) {
            kept = m_changes.emplace(sql, SQLite::Statement(m_database, sql)).first;
        }
        return Execute(kept->second, values);
    });
}

void Connection::Run(const char* sql) {
    Translating(m_name, [&] { m_database.exec(sql); });
}

RunTimeError Translated(const SQLite::Exception& error, const std::string& file) {
    const std::string database = "The model database " + file;
    switch (error.getErrorCode()) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return {ErrorKind::DatabaseLocked,
                    database + " is in use by another program. Close it there and try again."};
        case SQLITE_NOTADB:
            return {ErrorKind::NotAModel,
                    file + " is not a model database. Choose a file saved by this program."};
        case SQLITE_CORRUPT:
            return {ErrorKind::NotAModel, database + " is damaged. Use a saved copy of it."};
        case SQLITE_NOMEM:
            throw std::bad_alloc();
        case SQLITE_FULL:
            return {
                ErrorKind::FileAccess,
                database + " cannot be written. The disk is full: free some space and try again."};
        case SQLITE_READONLY:
        case SQLITE_PERM:
        case SQLITE_CANTOPEN:
            return {ErrorKind::FileAccess,
                    database +
                        " cannot be opened for writing. Check the rights of the file and "
                        "its directory."};
        case SQLITE_IOERR:
            return {ErrorKind::FileAccess,
                    database + " cannot be read or written: " + error.what() + ". Check the disk."};
        default:
            return {ErrorKind::DatabaseFailure, database + ": " + error.what() + "."};
    }
}

}  // namespace quarnel02
