#pragma once

// Internal to model/: the open SQLite file behind one or more Database handles.

#include <SQLiteCpp/SQLiteCpp.h>

#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "basic/RunTimeError.h"
#include "model/Schema.h"
#include "model/SqlText.h"
#include "model/Value.h"

namespace quarnel02 {

/// A prepared SELECT and what is known of its columns.
struct Query {
    Query(SQLite::Database& database, const std::string& text);

    SelectShape Shape;
    const TableSchema* Table;  ///< schema of the single table; nullptr for joins and aggregates
    int FirstField;            ///< 1 when the row's identity stands in front of the fields, else 0
    SQLite::Statement Statement;
    std::vector<std::string> FieldNames;
    std::vector<FieldType> FieldTypes;
};

/// Rows of a result: the values row by row, and the identities of the rows of a single table.
struct Rows {
    std::vector<Value> Values;
    std::vector<std::int64_t> Ids;
    std::size_t Count = 0;
};

/// A record set whose rows have not been fetched yet, because nothing has asked for them.
class UnfetchedSet {
  public:
    virtual ~UnfetchedSet() = default;
    [[nodiscard]] virtual const std::string& TableName() const = 0;
    virtual void FetchNow() = 0;
};

class Connection {
  public:
    /// The connection to the file, shared with every handle that is open on it now.
    static std::shared_ptr<Connection> To(const std::filesystem::path& path);

    explicit Connection(const std::filesystem::path& path);

    /// The prepared form of a SELECT; its numbers go to `literals`.
    Query& Prepare(std::string_view sql, std::vector<Value>& literals);

    /// Runs the query and appends its rows to `rows`.
    void Fetch(Query& query, const std::vector<Value>& literals, Rows& rows);

    /// Runs an INSERT, UPDATE or DELETE on `table`; returns the number of rows it changed. Sets of
    /// the table that are not fetched yet are fetched first, so that they keep the rows they had
    /// when they were opened; `writer` is spared.
    int Change(const std::string& sql, std::span<const Value> values, const std::string& table,
               const UnfetchedSet* writer);

    [[nodiscard]] std::int64_t LastInsertedId() const { return m_database.getLastInsertRowid(); }

    void Register(UnfetchedSet* set) { m_unfetched.push_back(set); }
    void Unregister(const UnfetchedSet* set) { std::erase(m_unfetched, set); }

    /// Begins a transaction, or joins the one that is running.
    void Begin();
    /// Ends what the matching Begin began; the outermost one decides for all.
    void End(bool commit);

    /// Calls `action`; what SQLite reports comes out as a RunTimeError that names the file.
    template <class Action>
    decltype(auto) Guarded(Action action) const {
        try {
            return action();
        } catch (const SQLite::Exception& error) {
            throw Translated(error, m_name);
        }
    }

    static RunTimeError Translated(const SQLite::Exception& error, const std::string& file);

  private:
    void FetchOthers(const std::string& table, const UnfetchedSet* writer);

    std::string m_name;
    SQLite::Database m_database;
    SqlText m_text;
    std::unordered_map<std::string, std::unique_ptr<Query>> m_queries;
    std::unordered_map<std::string, std::unique_ptr<SQLite::Statement>> m_changes;
    std::vector<UnfetchedSet*> m_unfetched;
    int m_transactions = 0;
};

/// One opening of a database; its record sets end with it.
struct Session {
    std::shared_ptr<Connection> Store;  ///< null once the session is closed
};

}  // namespace quarnel02
