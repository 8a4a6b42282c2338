#include "model/RowWriter.h"

#include <utility>

#include "model/Connection.h"
#include "model/Schema.h"

namespace quarnel02 {

namespace {

std::string Quoted(std::string_view name) {
    return '"' + std::string(name) + '"';
}

/// Names with something between them: `"Cost"=?,"Time"=?`.
std::string Joined(RowWriter::Columns columns, std::string_view behindEach) {
    std::string text;
    for (const std::string_view column : columns) {
        text += (text.empty() ? "" : ",") + Quoted(column) + std::string(behindEach);
    }
    return text;
}

std::string Marks(std::size_t count) {
    std::string marks;
    for (std::size_t place = 0; place < count; ++place) {
        marks += place == 0 ? "?" : ",?";
    }
    return marks;
}

}  // namespace

RowWriter::RowWriter(const Database& database, std::string_view table, std::string sql)
    : m_session(database.OpenSession()), m_table(table), m_sql(std::move(sql)) {}

void RowWriter::AddColumn(std::string_view table, std::string_view column) {
    m_types.push_back(TypeOfColumn(FindTable(table), column));
    m_titles.push_back(std::string(table) + '.' + std::string(column));
}

RowWriter RowWriter::Adding(const Database& database, std::string_view table, Columns columns) {
    RowWriter writer(database, table,
                     "INSERT INTO " + std::string(table) + " (" + Joined(columns, "") +
                         ") VALUES (" + Marks(columns.size()) + ")");
    for (const std::string_view column : columns) {
        writer.AddColumn(table, column);
    }
    return writer;
}

RowWriter RowWriter::Changing(const Database& database, std::string_view table, Columns columns,
                              std::string_view key) {
    RowWriter writer(database, table,
                     "UPDATE " + std::string(table) + " SET " + Joined(columns, "=?") + " WHERE " +
                         Quoted(key) + "=?");
    for (const std::string_view column : columns) {
        writer.AddColumn(table, column);
    }
    writer.AddColumn(table, key);
    return writer;
}

void RowWriter::Write(std::initializer_list<Value> values) {
    if (!m_session->Store) {
        throw RunTimeError(ErrorKind::ObjectClosed, "The database is closed.");
    }
    m_values.clear();
    for (const Value& value : values) {
        const std::size_t place = m_values.size();
        m_values.push_back(ConvertTo(m_types.at(place), value, m_titles[place]));
    }
    Connection& store = *m_session->Store;
    store.Change(m_sql, m_values, store.UseOf(m_table), nullptr);
}

void DeleteAllRows(const Database& database, std::string_view table) {
    Connection& store = *database.OpenSession()->Store;
    const std::string name(table);
    store.Change("DELETE FROM " + name, {}, store.UseOf(name), nullptr);
}

}  // namespace quarnel02
