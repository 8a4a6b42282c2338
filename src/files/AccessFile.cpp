#include "files/AccessFile.h"

#include <algorithm>
#include <cmath>

#include "basic/Numbers.h"
#include "files/AccessLock.h"
#include "files/ModelChecks.h"
#include "files/OptionalColumns.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

const char* KindText(jet::ObjectKind kind) {
    switch (kind) {
        case jet::ObjectKind::Table:
            return "table ";
        case jet::ObjectKind::LinkedTable:
            return "linked table ";
        case jet::ObjectKind::Query:
            return "query ";
        case jet::ObjectKind::Relationship:
            return "relationship ";
        case jet::ObjectKind::Form:
            return "form ";
        case jet::ObjectKind::Report:
            return "report ";
        case jet::ObjectKind::Macro:
            return "macro ";
        case jet::ObjectKind::Module:
            return "module ";
        case jet::ObjectKind::Page:
            return "page ";
        case jet::ObjectKind::Other:
            break;
    }
    return "object ";
}

bool HasColumn(const TableSchema& table, std::string_view name) {
    return std::any_of(table.Columns.begin(), table.Columns.end(),
                       [&](const ColumnSchema& each) { return SameName(each.Name, name); });
}

/// A single stands for the decimal number that was entered: 12.1, not 12.1000003814697.
Value Plain(const Value& value, bool isSingle) {
    const auto* real = std::get_if<double>(&value);
    const bool plain = isSingle && real != nullptr && std::isfinite(*real);
    return plain ? Value(DecimalOfSingle(static_cast<float>(*real))) : value;
}

}  // namespace

AccessFile::AccessFile(const fs::path& path, std::string_view name)
    : m_name(name), m_content(name), m_reader([&] {
          RequireNotOpenInAccess(path, name);
          return jet::Reader(path, name);
      }()) {}

void AccessFile::RequireReadable() const {
    for (const TableSchema& table : ModelSchema()) {
        static_cast<void>(MappingOf(table));
    }
}

AccessFile::Field AccessFile::DefaultField(const TableSchema& table,
                                           std::string_view column) const {
    const auto value = DefaultOfColumn(table.Name, column);
    if (!value) {
        RefuseFile(m_name, "has no column " + std::string(column) + " in table " +
                               std::string(table.Name) + ".");
    }
    return {{}, false, *value};
}

AccessFile::Mapping AccessFile::MappingOf(const TableSchema& table) const {
    const std::vector<jet::Column> columns = m_reader.Columns(table.Name);
    Mapping mapping;
    for (const ColumnSchema& ours : table.Columns) {
        const auto found =
            std::find_if(columns.begin(), columns.end(),
                         [&](const jet::Column& each) { return SameName(each.Name, ours.Name); });
        if (found == columns.end()) {
            mapping.Fields.push_back(DefaultField(table, ours.Name));
            continue;
        }
        mapping.Fields.push_back(
            {mapping.Columns.size(), found->Type == jet::ColumnType::Single, {}});
        mapping.Columns.push_back(static_cast<std::size_t>(found - columns.begin()));
    }
    return mapping;
}

std::int64_t AccessFile::ReadRows(const TableSchema& table, const RowAction& action) {
    const Mapping mapping = MappingOf(table);
    RowIntake intake(m_name, table, m_content);
    std::vector<Value> values(table.Columns.size());
    m_reader.ReadRows(table.Name, mapping.Columns, [&](const jet::Row& row) {
        intake.StartRow();
        for (std::size_t i = 0; i < values.size(); ++i) {
            const Field& field = mapping.Fields[i];
            values[i] = intake.Take([&] {
                return field.Place
                           ? FieldFrom(Plain(row[*field.Place], field.IsSingle), table.Columns[i])
                           : field.Default;
            });
        }
        action(values);
    });
    return intake.Rows();
}

void AccessFile::AddForeignColumns(const std::string& table,
                                   std::vector<std::string>& objects) const {
    for (const jet::Column& column : m_reader.Columns(table)) {
        if (!HasColumn(*FindTable(table), column.Name)) {
            objects.push_back("column " + column.Name + " of table " + table);
        }
    }
}

std::vector<std::string> AccessFile::ObjectsBeyondModel() const {
    std::vector<std::string> objects;
    for (const jet::DatabaseObject& object : m_reader.Objects()) {
        if (object.Kind == jet::ObjectKind::Table && FindTable(object.Name) != nullptr &&
            FindTable(object.Name) != &ScenariosSchema()) {
            AddForeignColumns(object.Name, objects);
        } else {
            objects.push_back(KindText(object.Kind) + object.Name);
        }
    }
    return objects;
}

}  // namespace quarnel02
