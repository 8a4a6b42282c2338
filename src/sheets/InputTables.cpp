#include "sheets/InputTables.h"

#include <string>
#include <utility>

#include "model/RowWriter.h"
#include "model/ScenariosTable.h"
#include "model/Schema.h"

namespace quarnel02 {

namespace {

InputRow ReadRow(const RecordSet& set, std::size_t columns) {
    InputRow row;
    row.reserve(columns);
    for (std::size_t column = 0; column < columns; ++column) {
        row.push_back(set.Field(static_cast<int>(column)));
    }
    return row;
}

TableRows ReadTable(const Database& database, std::string_view name) {
    if (name == ScenariosSchema().Name && !HasScenarios(database)) {
        return {};
    }
    const std::size_t columns = FindTable(name)->Columns.size();
    RecordSet set = database.OpenRecordSet("SELECT * FROM " + std::string(name) + ";");
    TableRows rows;
    rows.reserve(static_cast<std::size_t>(set.RecordCount()));
    for (; !set.Eof(); set.MoveNext()) {
        rows.push_back(ReadRow(set, columns));
    }
    return rows;
}

template <std::size_t... Column>
void WriteRows(const Database& database, const TableSchema& schema, const TableRows& rows,
               std::index_sequence<Column...> /*columns*/) {
    RowWriter writer = RowWriter::Adding(database, schema.Name, {schema.Columns[Column].Name...});
    for (const InputRow& row : rows) {
        writer.Write({row.at(Column)...});
    }
}

/// The row writer takes lists of a fixed length.
void WriteRows(const Database& database, const TableSchema& schema, const TableRows& rows) {
    constexpr std::size_t most = 10;
    constexpr std::size_t gen = 8;
    constexpr std::size_t matrix = 5;
    switch (schema.Columns.size()) {
        case most:
            return WriteRows(database, schema, rows, std::make_index_sequence<most>());
        case gen:
            return WriteRows(database, schema, rows, std::make_index_sequence<gen>());
        case matrix:
            return WriteRows(database, schema, rows, std::make_index_sequence<matrix>());
        default:
            return WriteRows(database, schema, rows, std::make_index_sequence<2>());
    }
}

}  // namespace

const std::vector<InputTable>& AllInputTables() {
    static const std::vector<InputTable> tables = {{"Gen", &InputTables::Gen},
                                                   {"Tasks", &InputTables::Tasks},
                                                   {"Resources", &InputTables::Resources},
                                                   {"Matrix", &InputTables::Matrix},
                                                   {"Demand", &InputTables::Demand},
                                                   {"Scenarios", &InputTables::Scenarios}};
    return tables;
}

InputTables ReadInputTables(const Database& database) {
    InputTables tables;
    for (const InputTable& table : AllInputTables()) {
        tables.*table.Rows = ReadTable(database, table.Name);
    }
    return tables;
}

void WriteInputTables(const Database& database, const InputTables& tables) {
    Transaction transaction(database);
    for (const InputTable& table : AllInputTables()) {
        const TableRows& rows = tables.*table.Rows;
        if (ReadTable(database, table.Name) != rows) {
            DeleteAllRows(database, table.Name);
            WriteRows(database, *FindTable(table.Name), rows);
        }
    }
    transaction.Commit();
}

}  // namespace quarnel02
