#pragma once

// Internal to model/: the open SQLite file behind one or more Database handles.

#include <SQLiteCpp/SQLiteCpp.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "basic/RunTimeError.h"
#include "model/Rows.h"
#include "model/Schema.h"
#include "model/Selection.h"
#include "model/SqlText.h"
#include "model/TableImage.h"
#include "model/Value.h"

namespace quarnel02 {

/// A table that is read or changed through a connection.
struct TableUse {
    explicit TableUse(std::string name) : Name(std::move(name)) {}

    std::string Name;
    std::uint64_t Changes = 0;  ///< counts the writes to the table and the starts of transactions

    std::uint64_t ReadsAt = 0;          ///< the count of changes that Reads and Image belong to
    int Reads = 0;                      ///< simple selections since the last change
    std::unique_ptr<TableImage> Image;  ///< taken once the table is read often
};

/// A prepared SELECT and what is known of its columns.
struct Query {
    Query(SQLite::Database& database, const std::string& text);

    SelectShape Shape;
    const TableSchema* Schema;  ///< of the single table; nullptr for joins and aggregates
    int FirstField;             ///< 1 when the row's identity stands in front of the fields, else 0
    SQLite::Statement Statement;
    std::vector<std::string> FieldNames;
    std::vector<std::string> FieldTitles;  ///< with the table's name, for messages
    std::vector<FieldType> FieldTypes;
    TableUse* Table = nullptr;  ///< the single table; nullptr for joins and aggregates

    std::optional<Selection> Simple;   ///< set when an image of the table can answer the query
    std::unique_ptr<Plan> SimplePlan;  ///< Simple made ready for the image
    std::optional<std::uint64_t> PlannedAt;  ///< the count of changes that SimplePlan belongs to
};

/// A record set whose rows have not been fetched yet, because nothing has asked for them.
class UnfetchedSet {
  public:
    virtual ~UnfetchedSet() = default;
    [[nodiscard]] virtual const TableUse* Table() const = 0;
    virtual void FetchNow() = 0;
};

/// Binds the values to the statement's places, in order.
void BindValues(SQLite::Statement& statement, std::span<const Value> values);

class Connection {
  public:
    /// The connection to the file, shared with every handle that is open on it now.
    static std::shared_ptr<Connection> To(const std::filesystem::path& path);

    explicit Connection(const std::filesystem::path& path);

    /// The prepared form of a SELECT; its numbers go to `literals`.
    Query& Prepare(std::string_view sql, std::vector<Value>& literals);

    /// The rows that the query selects now. Inside a transaction, in which nobody else can write,
    /// a small table that is read again and again is answered from an image of it.
    std::shared_ptr<Rows> Fetch(Query& query, const std::vector<Value>& literals);

    /// Runs an INSERT, UPDATE or DELETE on `table`; returns the number of rows it changed. Sets of
    /// the table that are not fetched yet are fetched first, so that they keep the rows they had
    /// when they were opened; `writer` is spared.
    int Change(const std::string& sql, std::span<const Value> values, TableUse& table,
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

    /// What SQLite reports, in our words. Throws std::bad_alloc where memory is short.
    static RunTimeError Translated(const SQLite::Exception& error, const std::string& file);

    /// What is known of a table.
    TableUse& UseOf(const std::string& table);

  private:
    TableImage* ImageFor(Query& query);
    void TakeImage(TableUse& table);
    void FetchOthers(const TableUse& table, const UnfetchedSet* writer) const;

    std::string m_name;
    SQLite::Database m_database;
    SqlText m_text;
    std::unordered_map<std::string, std::unique_ptr<Query>> m_queries;
    std::unordered_map<std::string, std::unique_ptr<SQLite::Statement>> m_changes;
    std::vector<std::unique_ptr<TableUse>> m_tables;
    std::vector<UnfetchedSet*> m_unfetched;
    int m_transactions = 0;
};

/// One opening of a database; its record sets end with it.
struct Session {
    std::shared_ptr<Connection> Store;  ///< null once the session is closed
};

}  // namespace quarnel02
