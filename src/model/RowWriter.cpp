#include "model/RowWriter.h"

#include <utility>

#include "model/Connection.h"
#include "model/Schema.h"

namespace quarnel02 {

RowWriter::RowWriter(const Database& database, std::string_view table,
                     const std::vector<std::string_view>& fields, std::string sql)
    : m_database(database), m_sql(std::move(sql)) {
    (void)database.OpenSession();
    for (const std::string_view field : fields) {
        m_types.push_back(TypeOfColumn(FindTable(table), field));
        m_titles.push_back(std::string(table) + '.' + std::string(field));
    }
}

RowWriter RowWriter::Adding(const Database& database, std::string_view table, Columns columns) {
    return {database, table, columns, InsertText(table, columns)};
}

RowWriter RowWriter::Changing(const Database& database, std::string_view table, Columns columns,
                              std::string_view key) {
    std::vector<std::string_view> fields = columns;
    fields.push_back(key);
    return {database, table, fields, UpdateText(table, columns, key)};
}

void RowWriter::Write(std::initializer_list<Value> values) {
    Connection& store = *m_database.OpenSession()->Store;
    m_values.clear();
    for (const Value& value : values) {
        const std::size_t place = m_values.size();
        m_values.push_back(ConvertTo(m_types.at(place), value, m_titles[place]));
    }
    store.Change(m_sql, m_values);
}

void DeleteAllRows(const Database& database, std::string_view table) {
    database.OpenSession()->Store->Change("DELETE FROM " + std::string(table), {});
}

}  // namespace quarnel02
