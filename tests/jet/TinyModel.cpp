#include "jet/TinyModel.h"

#include <bit>

namespace quarnel02::jet {

namespace {

TinyColumn TinyColumnOf(const Column& column) {
    switch (column.Type) {
        case ColumnType::Double:
            return {column.Name, TypeCode::Double, 8};
        case ColumnType::Single:
            return {column.Name, TypeCode::Single, 4};
        case ColumnType::Text:
            return TinyText(column.Name);
        default:
            return {column.Name};
    }
}

std::optional<std::string> FieldOf(unsigned version, const Column& column, const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) {
        return version == 0 ? *text : Wide(*text);
    }
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        return Little(static_cast<std::uint64_t>(*whole), 4);
    }
    if (const auto* real = std::get_if<double>(&value)) {
        return column.Type == ColumnType::Single
                   ? Little(std::bit_cast<std::uint32_t>(static_cast<float>(*real)), 4)
                   : LittleReal(*real);
    }
    return {};
}

TinyTable TinyTableOf(unsigned version, const NewTable& table) {
    TinyTable tiny{table.Name, {}, {}};
    for (const Column& column : table.Columns) {
        tiny.Columns.push_back(TinyColumnOf(column));
    }
    for (const Row& row : table.Rows) {
        TinyRow& fields = tiny.Rows.emplace_back();
        for (std::size_t i = 0; i < row.size(); ++i) {
            fields.Fields.push_back(FieldOf(version, table.Columns[i], row[i]));
        }
    }
    return tiny;
}

}  // namespace

TinyFile TinyFileOf(unsigned version, std::span<const NewTable> tables) {
    TinyFile file(version);
    for (const NewTable& table : tables) {
        file.Add(TinyTableOf(version, table));
    }
    return file;
}

}  // namespace quarnel02::jet
