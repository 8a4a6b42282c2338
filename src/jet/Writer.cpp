#include "jet/Writer.h"

#include <algorithm>

#include "basic/Limits.h"
#include "basic/RunTimeError.h"
#include "jet/EncodeRow.h"
#include "jet/SystemTables.h"
#include "jet/WriteCatalogue.h"
#include "jet/WriteDefinition.h"
#include "jet/WriteHeader.h"
#include "jet/WriteUsageMap.h"
#include "jet/WrittenPages.h"

namespace quarnel02::jet {

namespace {

constexpr std::size_t kMostName = 64;

[[noreturn]] void Refuse(ErrorKind kind, const std::string& why) {
    throw RunTimeError(kind, "An Access database cannot hold the model: " + why);
}

void RequireName(const std::string& name) {
    const bool letters = std::all_of(name.begin(), name.end(), [](char letter) {
        return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
    });
    if (name.empty() || name.size() > kMostName || !letters) {
        Refuse(ErrorKind::TypeMismatch,
               "the name of table " + name + " is not of 1 to 64 letters A to Z. Rename it.");
    }
}

WrittenColumn Written(const NewTable& table, const Column& column) {
    const auto fixed = [&](TypeCode type, unsigned length) {
        return WrittenColumn{column.Name, type, length, kFixedFlags};
    };
    switch (column.Type) {
        case ColumnType::Byte:
            return fixed(TypeCode::Byte, 1);
        case ColumnType::Integer:
            return fixed(TypeCode::Integer, 2);
        case ColumnType::LongInteger:
            return fixed(TypeCode::LongInteger, 4);
        case ColumnType::Currency:
            return fixed(TypeCode::Currency, 8);
        case ColumnType::Single:
            return fixed(TypeCode::Single, 4);
        case ColumnType::Double:
            return fixed(TypeCode::Double, 8);
        case ColumnType::Text: {
            const int characters = std::clamp(column.Characters, 1, limits::kAccessText);
            return {column.Name, TypeCode::Text, 2 * static_cast<unsigned>(characters),
                    kVariableFlags};
        }
        default:
            Refuse(ErrorKind::TypeMismatch, "column " + column.Name + " of table " + table.Name +
                                                " is of a type that is not written. Change it.");
    }
}

std::vector<WrittenColumn> Written(const NewTable& table) {
    std::vector<WrittenColumn> columns;
    for (const Column& column : table.Columns) {
        columns.push_back(Written(table, column));
    }
    return columns;
}

/// Returns the pages of the rows.
std::vector<std::size_t> WriteRows(WrittenPages& pages, const NewTable& table,
                                   std::span<const WrittenColumn> columns, std::size_t definition) {
    RowEncoder rows(table.Name, columns, true);
    std::vector<std::size_t> used;
    for (const Row& row : table.Rows) {
        if (row.size() != columns.size()) {
            Refuse(ErrorKind::SubscriptOutOfRange,
                   "a row of table " + table.Name + " has not a value for each column.");
        }
        const std::string bytes = rows.Encode(row);
        if (used.empty() || !pages.HasRoom(used.back(), bytes.size())) {
            used.push_back(pages.Add());
            pages.StartRows(used.back(), definition);
        }
        pages.AddRow(used.back(), bytes);
    }
    return used;
}

/// Returns the page of the definition.
std::size_t WriteTable(WrittenPages& pages, const NewTable& table) {
    RequireName(table.Name);
    const auto columns = Written(table);
    const std::size_t definition = pages.Add();
    const std::size_t maps = pages.Add();
    const auto used = WriteRows(pages, table, columns, definition);
    const auto last = std::span(used).last(used.empty() ? 0 : 1);
    const std::string used_map = EncodeUsageMap(pages, used);
    const std::string free_map = EncodeUsageMap(pages, last);
    pages.StartRows(maps, 0);
    const std::uint32_t used_pointer = pages.AddRow(maps, used_map);
    const std::uint32_t free_pointer = pages.AddRow(maps, free_map);
    pages.Put(definition, EncodeDefinition({.Columns = columns,
                                            .Indices = {},
                                            .System = false,
                                            .Rows = table.Rows.size(),
                                            .UsedPages = used_pointer,
                                            .FreePages = free_pointer,
                                            .LongValuePages = {}}));
    return definition;
}

}  // namespace

std::string WriteDatabase(std::span<const NewTable> tables,
                          std::chrono::system_clock::time_point created) {
    const double day = DaysOf(created);
    WrittenPages pages(kSystemPages);
    WrittenCatalogue catalogue(day);
    for (const NewTable& table : tables) {
        catalogue.AddTable(table.Name, WriteTable(pages, table));
    }
    catalogue.Write(pages);
    WriteFreePages(pages);
    pages.Put(0, EncodeHeader(day));
    return std::move(pages.Bytes());
}

}  // namespace quarnel02::jet
