#include "jet/TableDefinition.h"

#include <algorithm>

namespace quarnel02::jet {

namespace {

constexpr std::size_t kMostColumns = 255;
constexpr std::size_t kMostIndices = 1000;  ///< no table has more than 32
/// 255 columns and 32 indices with the longest names fill fewer.
constexpr int kMostDefinitionPages = 64;
constexpr std::size_t kChainHeader = 8;
constexpr std::size_t kExtraFlagsAt = 16;
constexpr unsigned kComputed = 0xC0;

/// The chain's pages in one, without the headers of the second and later ones.
std::string Joined(const Pages& pages, std::size_t page) {
    std::string joined(pages.PageOf(kDefinitionPage, page).Text());
    page = Bytes(joined).U32(kOwnerAt);
    for (int count = 1; page != 0; ++count) {
        if (count == kMostDefinitionPages) {
            throw Damage();
        }
        const Bytes next = pages.PageOf(kDefinitionPage, page);
        joined += next.From(kChainHeader).Text();
        page = next.U32(kOwnerAt);
    }
    return joined;
}

ColumnType TypeOf(unsigned code) {
    switch (static_cast<TypeCode>(code)) {
        case TypeCode::YesNo:
            return ColumnType::YesNo;
        case TypeCode::Byte:
            return ColumnType::Byte;
        case TypeCode::Integer:
            return ColumnType::Integer;
        case TypeCode::LongInteger:
            return ColumnType::LongInteger;
        case TypeCode::Currency:
            return ColumnType::Currency;
        case TypeCode::Single:
            return ColumnType::Single;
        case TypeCode::Double:
            return ColumnType::Double;
        case TypeCode::DateTime:
            return ColumnType::DateTime;
        case TypeCode::Text:
            return ColumnType::Text;
        case TypeCode::Memo:
            return ColumnType::Memo;
        case TypeCode::Guid:
            return ColumnType::Guid;
        case TypeCode::Decimal:
            return ColumnType::Decimal;
        case TypeCode::BigInteger:
            return ColumnType::BigInteger;
        case TypeCode::Binary:
        case TypeCode::Ole:
            break;
    }
    return ColumnType::Other;
}

StoredColumn ReadColumn(Bytes column, const Format& layout) {
    StoredColumn read;
    read.Described.Type = TypeOf(column.U8(0));
    if (layout.Wide && (column.U8(kExtraFlagsAt) & kComputed) != 0) {
        read.Described.Type = ColumnType::Computed;
    }
    read.Number = column.U16(layout.NumberAt);
    read.VariableIndex = column.U16(layout.VariableAt);
    read.Scale = column.U8(layout.ScaleAt);
    read.Fixed = (column.U8(layout.FlagsAt) & kColumnIsFixed) != 0;
    read.FixedAt = column.U16(layout.FixedAt);
    read.Length = column.U16(layout.LengthAt);
    if (read.Described.Type == ColumnType::Text) {
        read.Described.Characters = static_cast<int>(read.Length / (layout.Wide ? 2 : 1));
    }
    return read;
}

/// Takes a name, which follows its length, off `rest`.
std::string TakeName(Bytes& rest, const TextDecoder& texts, bool wide) {
    const std::size_t prefix = wide ? 2 : 1;
    const std::size_t length = wide ? rest.U16(0) : rest.U8(0);
    std::string name = texts.Decode(rest.Part(prefix, length));
    rest = rest.From(prefix + length);
    return name;
}

}  // namespace

TableDefinition ReadTableDefinition(const Pages& pages, const TextDecoder& texts,
                                    std::size_t page) {
    const Format& layout = pages.Layout();
    const std::string joined = Joined(pages, page);
    const Bytes all(joined);
    const std::size_t columns = all.U16(layout.ColumnCountAt);
    const std::size_t indices = all.U32(layout.IndexCountAt);
    if (columns > kMostColumns || indices > kMostIndices) {
        throw Damage();
    }
    TableDefinition table;
    table.Page = page;
    table.Records = all.U32(layout.RecordsAt);
    table.HasVariable = all.U16(layout.VariableCountAt) != 0;
    table.UsageMap = all.U32(layout.UsageMapAt);
    Bytes rest = all.From(layout.IndicesAt + indices * layout.IndexSize);
    for (std::size_t i = 0; i < columns; ++i) {
        table.Columns.push_back(ReadColumn(rest.Part(0, layout.ColumnSize), layout));
        rest = rest.From(layout.ColumnSize);
    }
    for (StoredColumn& column : table.Columns) {
        column.Described.Name = TakeName(rest, texts, layout.Wide);
    }
    std::stable_sort(table.Columns.begin(), table.Columns.end(),
                     [](const auto& one, const auto& other) { return one.Number < other.Number; });
    return table;
}

}  // namespace quarnel02::jet
