#include "model/Connection.h"

#include <sqlite3.h>

#include <map>
#include <new>
#include <utility>

#include "basic/Files.h"

namespace quarnel02 {

namespace {

constexpr int kBusyMilliseconds = 3000;

SQLite::Database OpenFile(const std::filesystem::path& path) {
    const std::string name = PathText(path);
    if (KindOfFile(path) == FileKind::Missing) {
        throw RunTimeError(ErrorKind::FileNotFound, "The model database " + name +
                                                        " does not exist. Check the file's name "
                                                        "and place.");
    }
    try {
        SQLite::Database database(name, SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX,
                                  kBusyMilliseconds);
        database.exec("PRAGMA journal_mode = DELETE");
        database.exec("PRAGMA synchronous = NORMAL");
        database.exec("PRAGMA temp_store = MEMORY");
        return database;
    } catch (const SQLite::Exception& error) {
        throw Connection::Translated(error, name);
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

std::shared_ptr<Rows> Run(Query& query, const std::vector<Value>& literals) {
    const Resetting reset(query.Statement);
    BindValues(query.Statement, literals);
    const int columns = query.Statement.getColumnCount();
    auto rows = std::make_shared<Rows>();
    while (query.Statement.executeStep()) {
        if (query.FirstField == 1) {
            rows->Ids.push_back(query.Statement.getColumn(0).getInt64());
        }
        for (int column = query.FirstField; column < columns; ++column) {
            AppendValue(query.Statement.getColumn(column), rows->Values);
        }
        ++rows->Count;
    }
    return rows;
}

}  // namespace

void BindValues(SQLite::Statement& statement, std::span<const Value> values) {
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

Query::Query(SQLite::Database& database, const std::string& text)
    : Shape(ShapeOf(text)),
      Schema(FindTable(Shape.Table)),
      FirstField(Shape.Table.empty() ? 0 : 1),
      Statement(database, Shape.Table.empty() ? text : WithRowId(text)) {
    for (int column = FirstField; column < Statement.getColumnCount(); ++column) {
        FieldNames.emplace_back(Statement.getColumnName(column));
        FieldTitles.push_back(Shape.Table.empty() ? FieldNames.back()
                                                  : Shape.Table + "." + FieldNames.back());
        FieldTypes.push_back(TypeOfColumn(Schema, FieldNames.back()));
    }
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

Query& Connection::Prepare(std::string_view sql, std::vector<Value>& literals) {
    ParameterizeSql(sql, m_text);
    literals = m_text.Literals;
    auto& query = m_queries[m_text.Text];
    if (!query) {
        query = Guarded([&] { return std::make_unique<Query>(m_database, m_text.Text); });
        if (!query->Shape.Table.empty()) {
            query->Table = &UseOf(query->Shape.Table);
            query->Simple = ReadSelection(m_text.Text);
        }
    }
    return *query;
}

TableUse& Connection::UseOf(const std::string& table) {
    for (const auto& use : m_tables) {
        if (SameName(use->Name, table)) {
            return *use;
        }
    }
    return *m_tables.emplace_back(std::make_unique<TableUse>(table));
}

std::shared_ptr<Rows> Connection::Fetch(Query& query, const std::vector<Value>& literals) {
    if (TableImage* image = ImageFor(query)) {
        return image->Select(*query.SimplePlan, literals);
    }
    return Guarded([&] { return Run(query, literals); });
}

/// The image that answers the query; nullptr when the store has to.
TableImage* Connection::ImageFor(Query& query) {
    constexpr int reads_worth_an_image = 16;
    if (m_transactions == 0 || !query.Simple) {
        return nullptr;
    }
    TableUse& table = *query.Table;
    if (table.ReadsAt != table.Changes) {
        table.ReadsAt = table.Changes;
        table.Reads = 0;
        table.Image.reset();
    }
    if (table.Reads < reads_worth_an_image && ++table.Reads == reads_worth_an_image) {
        TakeImage(table);
    }
    if (!table.Image) {
        return nullptr;
    }
    if (query.PlannedAt != table.Changes) {
        query.SimplePlan = table.Image->Prepare(*query.Simple);
        query.PlannedAt = table.Changes;
    }
    return query.SimplePlan ? table.Image.get() : nullptr;
}

void Connection::TakeImage(TableUse& table) {
    constexpr std::size_t most_rows = 10000;
    std::vector<Value> literals;
    Query& all = Prepare("SELECT * FROM " + table.Name, literals);
    Query& count = Prepare("SELECT COUNT(*) FROM " + table.Name, literals);
    const auto rows = Guarded([&] { return Run(count, literals); });
    if (std::get<std::int64_t>(rows->Values.front()) <= static_cast<std::int64_t>(most_rows)) {
        table.Image = std::make_unique<TableImage>(all.FieldNames,
                                                   Guarded([&] { return Run(all, literals); }));
    }
}

int Connection::Change(const std::string& sql, std::span<const Value> values, TableUse& table,
                       const UnfetchedSet* writer) {
    FetchOthers(table, writer);
    ++table.Changes;
    return Guarded([&] {
        auto& statement = m_changes[sql];
        if (!statement) {
            statement = std::make_unique<SQLite::Statement>(m_database, sql);
        }
        const Resetting reset(*statement);
        BindValues(*statement, values);
        return statement->exec();
    });
}

void Connection::FetchOthers(const TableUse& table, const UnfetchedSet* writer) const {
    const auto waiting = m_unfetched;
    for (UnfetchedSet* set : waiting) {
        if (set != writer && set->Table() == &table) {
            set->FetchNow();
        }
    }
}

void Connection::Begin() {
    if (m_transactions == 0) {
        Guarded([&] { m_database.exec("BEGIN IMMEDIATE"); });
        for (const auto& table : m_tables) {
            ++table->Changes;
        }
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
