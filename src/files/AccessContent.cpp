#include "files/AccessContent.h"

#include <chrono>
#include <vector>

#include "jet/Writer.h"

namespace quarnel02 {

namespace {

jet::ColumnType TypeOf(FieldType type) {
    switch (type) {
        case FieldType::Integer:
            return jet::ColumnType::LongInteger;
        case FieldType::Real:
            return jet::ColumnType::Double;
        case FieldType::Single:
            return jet::ColumnType::Single;
        case FieldType::Text:
            break;
    }
    return jet::ColumnType::Text;
}

jet::NewTable TableOf(ModelImage& image, const TableSchema& schema) {
    jet::NewTable table{std::string(schema.Name), {}, {}};
    for (const ColumnSchema& column : schema.Columns) {
        table.Columns.push_back({std::string(column.Name), TypeOf(column.Type)});
    }
    image.ReadRows(schema, [&](const std::vector<Value>& row) { table.Rows.emplace_back(row); });
    return table;
}

}  // namespace

std::string AccessContent(ModelImage& image, const std::string& name) {
    image.RequireWhole(name);
    std::vector<jet::NewTable> tables;
    for (const TableSchema& schema : ModelSchema()) {
        tables.push_back(TableOf(image, schema));
    }
    return jet::WriteDatabase(tables, std::chrono::system_clock::now());
}

}  // namespace quarnel02
