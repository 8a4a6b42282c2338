#include "jet/ReadField.h"

#include <array>
#include <bit>
#include <cstdio>

#include "jet/DateText.h"
#include "jet/Decimals.h"
#include "jet/LongValue.h"

namespace quarnel02::jet {

namespace {

constexpr std::int64_t kYes = -1;
constexpr std::size_t kGuidBytes = 16;

std::size_t FixedLength(const StoredColumn& column) {
    switch (column.Described.Type) {
        case ColumnType::Byte:
            return sizeof(std::uint8_t);
        case ColumnType::Integer:
            return sizeof(std::uint16_t);
        case ColumnType::LongInteger:
        case ColumnType::Single:
            return sizeof(std::uint32_t);
        case ColumnType::BigInteger:
        case ColumnType::Currency:
        case ColumnType::Double:
        case ColumnType::DateTime:
            return sizeof(std::uint64_t);
        case ColumnType::Decimal:
            return kDecimalBytes;
        case ColumnType::Guid:
            return kGuidBytes;
        default:
            return column.Length;
    }
}

Value DateValue(Bytes field) {
    const auto days = std::bit_cast<double>(field.U64(0));
    if (auto text = DateText(days)) {
        return std::move(*text);
    }
    return days;
}

std::string GuidText(Bytes field) {
    std::array<char, 64> text{};
    const int length = std::snprintf(
        text.data(), text.size(), "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
        field.U32(0), static_cast<unsigned>(field.U16(4)), static_cast<unsigned>(field.U16(6)),
        static_cast<unsigned>(field.U8(8)), static_cast<unsigned>(field.U8(9)),
        static_cast<unsigned>(field.U8(10)), static_cast<unsigned>(field.U8(11)),
        static_cast<unsigned>(field.U8(12)), static_cast<unsigned>(field.U8(13)),
        static_cast<unsigned>(field.U8(14)), static_cast<unsigned>(field.U8(15)));
    return {text.data(), static_cast<std::size_t>(length)};
}

std::int64_t Whole(Bytes field, ColumnType type) {
    switch (type) {
        case ColumnType::Byte:
            return field.U8(0);
        case ColumnType::Integer:
            return static_cast<std::int16_t>(field.U16(0));
        case ColumnType::LongInteger:
            return static_cast<std::int32_t>(field.U32(0));
        default:
            return static_cast<std::int64_t>(field.U64(0));
    }
}

}  // namespace

Value ReadField(const Pages& pages, const TextDecoder& texts, const RowFields& row,
                const StoredColumn& column) {
    const ColumnType type = column.Described.Type;
    if (type == ColumnType::YesNo) {
        return row.Marked(column) ? kYes : 0;
    }
    const auto field = row.Field(column, FixedLength(column));
    if (!field) {
        return {};
    }
    switch (type) {
        case ColumnType::Byte:
        case ColumnType::Integer:
        case ColumnType::LongInteger:
        case ColumnType::BigInteger:
            return Whole(*field, type);
        case ColumnType::Single:
            return static_cast<double>(std::bit_cast<float>(field->U32(0)));
        case ColumnType::Double:
            return std::bit_cast<double>(field->U64(0));
        case ColumnType::Currency:
            return CurrencyOf(*field);
        case ColumnType::Decimal:
            return DecimalOf(*field, column.Scale);
        case ColumnType::DateTime:
            return DateValue(*field);
        case ColumnType::Guid:
            return GuidText(*field);
        case ColumnType::Memo: {
            const std::string text = ReadLongValue(pages, *field);
            return texts.Decode(Bytes(text));
        }
        default:
            return texts.Decode(*field);
    }
}

}  // namespace quarnel02::jet
