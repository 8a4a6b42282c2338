#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "model/Database.h"
#include "model/Value.h"

namespace quarnel02 {

/// Writes many rows of one table with one prepared statement. Values are converted as
/// RecordSet::Set does; open record sets keep the rows that they had.
///
/// Every call throws RunTimeError: ObjectClosed when the database was closed, what ConvertTo
/// throws, and whatever the store reports.
class RowWriter {
  public:
    using Columns = std::initializer_list<std::string_view>;

    /// A writer of new rows that sets these columns; all others get the table's defaults.
    static RowWriter Adding(const Database& database, std::string_view table, Columns columns);
    /// A writer that sets these columns in the rows whose column `key` has the value that stands
    /// behind theirs. It is no error when no row has it.
    static RowWriter Changing(const Database& database, std::string_view table, Columns columns,
                              std::string_view key);

    /// One value for each column, in their order; a changing writer takes that of the key last.
    void Write(std::initializer_list<Value> values);

  private:
    RowWriter(const Database& database, std::string_view table,
              const std::vector<std::string_view>& fields, std::string sql);

    Database m_database;
    std::string m_sql;
    std::vector<FieldType> m_types;
    std::vector<std::string> m_titles;  ///< for messages
    std::vector<Value> m_values;        ///< the row in hand
};

/// Deletes all rows of a table. Throws as RowWriter does.
void DeleteAllRows(const Database& database, std::string_view table);

}  // namespace quarnel02
