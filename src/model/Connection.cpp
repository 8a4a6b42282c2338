#include "model/Connection.h"

#include <sqlite3.h>

#include <map>
#include <utility>

#include "basic/Files.h"

namespace quarnel02 {

namespace {

constexpr int kBusyMilliseconds = 3000;

SQLite::Database OpenFile(const std::filesystem::path& path) {
    const std::string name = PathText(path);
    if (!std::filesystem::exists(path)) {
        throw RunTimeError(ErrorKind::FileNotFound, "The model database " + name +
                                                        " does not exist. Check the file's name "
                                                        "and place.");
    }
    try {
        SQLite::Database database(name, SQLite::OPEN_READWRITE, kBusyMilliseconds);
        database.exec("PRAGMA journal_mode = DELETE");
        database.exec("PRAGMA synchronous = NORMAL");
        database.exec("PRAGMA temp_store = MEMORY");
        return database;
    } catch (const SQLite::Exception& error) {
        throw Connection::Translated(error, name);
    }
}

void Bind(SQLite::Statement& statement, std::span<const Value> values) {
    int index = 1;
    for (const Value& value : values) {
        std::visit(
            [&](const auto& each) {
                if constexpr (std::is_same_v<std::decay_t<decltype(each)>, std::monostate>) {
                    statement.bind(index);
                } else {
                    statement.bind(index, each);
                }
            },
            value);
        ++index;
    }
}

/// Resets a statement when its use ends, also by an exception, so that it holds no lock.
class Resetting {
  public:
    explicit Resetting(SQLite::Statement& statement) : m_statement(statement) {}
    ~Resetting() { m_statement.tryReset(); }
    Resetting(const Resetting&) = delete;
    Resetting& operator=(const Resetting&) = delete;
    Resetting(Resetting&&) = delete;
    Resetting& operator=(Resetting&&) = delete;

  private:
    SQLite::Statement& m_statement;
};

void AppendValue(const SQLite::Column& column, std::vector<Value>& values) {
    switch (column.getType()) {
        case SQLITE_INTEGER:
            values.emplace_back(std::int64_t{column.getInt64()});
            break;
        case SQLITE_FLOAT:
            values.emplace_back(column.getDouble());
            break;
        case SQLITE_NULL:
            values.emplace_back();
            break;
        default:
            values.emplace_back(column.getString());
    }
}

}  // namespace

Query::Query(SQLite::Database& database, const std::string& text)
    : Shape(ShapeOf(text)),
      Table(FindTable(Shape.Table)),
      FirstField(Shape.Table.empty() ? 0 : 1),
      Statement(database, Shape.Table.empty() ? text : WithRowId(text)) {
    for (int column = FirstField; column < Statement.getColumnCount(); ++column) {
        FieldNames.emplace_back(Statement.getColumnName(column));
        FieldTypes.push_back(TypeOfColumn(Table, FieldNames.back()));
    }
}

std::shared_ptr<Connection> Connection::To(const std::filesystem::path& path) {
    static std::map<std::filesystem::path, std::weak_ptr<Connection>> open;
    auto& known = open[path.lexically_normal()];
    auto connection = known.lock();
    if (!connection) {
        connection = std::make_shared<Connection>(path);
        known = connection;
    }
    return connection;
}

Connection::Connection(const std::filesystem::path& path)
    : m_name(PathText(path)), m_database(OpenFile(path)) {}

Query& Connection::Prepare(std::string_view sql, std::vector<Value>& literals) {
    ParameterizeSql(sql, m_text);
    literals = m_text.Literals;
    auto& query = m_queries[m_text.Text];
    if (!query) {
        query = Guarded([&] { return std::make_unique<Query>(m_database, m_text.Text); });
    }
    return *query;
}

void Connection::Fetch(Query& query, const std::vector<Value>& literals, Rows& rows) {
    Guarded([&] {
        const Resetting reset(query.Statement);
        Bind(query.Statement, literals);
        const int columns = query.Statement.getColumnCount();
        while (query.Statement.executeStep()) {
            if (query.FirstField == 1) {
                rows.Ids.push_back(query.Statement.getColumn(0).getInt64());
            }
            for (int column = query.FirstField; column < columns; ++column) {
                AppendValue(query.Statement.getColumn(column), rows.Values);
            }
            ++rows.Count;
        }
    });
}

int Connection::Change(const std::string& sql, std::span<const Value> values,
                       const std::string& table, const UnfetchedSet* writer) {
    FetchOthers(table, writer);
    return Guarded([&] {
        auto& statement = m_changes[sql];
        if (!statement) {
            statement = std::make_unique<SQLite::Statement>(m_database, sql);
        }
        const Resetting reset(*statement);
        Bind(*statement, values);
        return statement->exec();
    });
}

void Connection::FetchOthers(const std::string& table, const UnfetchedSet* writer) {
    const auto waiting = m_unfetched;
    for (UnfetchedSet* set : waiting) {
        if (set != writer && SameName(set->TableName(), table)) {
            set->FetchNow();
        }
    }
}

void Connection::Begin() {
    if (m_transactions == 0) {
        Guarded([&] { m_database.exec("BEGIN IMMEDIATE"); });
    }
    ++m_transactions;
}

void Connection::End(bool commit) {
    if (--m_transactions > 0) {
        return;
    }
    if (commit) {
        try {
            Guarded([&] { m_database.exec("COMMIT"); });
        } catch (const RunTimeError&) {
            m_database.tryExec("ROLLBACK");
            throw;
        }
    } else {
        m_database.tryExec("ROLLBACK");
    }
}

RunTimeError Connection::Translated(const SQLite::Exception& error, const std::string& file) {
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
        case SQLITE_FULL:
            return {ErrorKind::FileAccess,
                    database + " cannot be written: the disk is full. Free some space."};
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
