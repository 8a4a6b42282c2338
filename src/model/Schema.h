#pragma once

#include <string_view>
#include <vector>

#include "model/Value.h"

namespace quarnel02 {

struct ColumnSchema {
    std::string_view Name;
    FieldType Type;
};

struct TableSchema {
    std::string_view Name;
    std::vector<ColumnSchema> Columns;
};

/// Names of the table's columns, in file order.
std::vector<std::string_view> NamesOf(const TableSchema& table);

/// The eight tables of a model, columns in file order. Says the same as schema.sql, and which
/// reals are singles, which SQL cannot say.
const std::vector<TableSchema>& ModelSchema();

/// The table of scenarios, which a file may lack; the ninth of our own.
const TableSchema& ScenariosSchema();

/// The table of that name, that of scenarios included, letter case aside; nullptr when a model has
/// none such.
const TableSchema* FindTable(std::string_view name);

/// Type of a column; Text for a column that a model does not know.
FieldType TypeOfColumn(const TableSchema* table, std::string_view column);

/// Equality of names of tables and fields, which letter case does not distinguish.
bool SameName(std::string_view a, std::string_view b);

}  // namespace quarnel02
