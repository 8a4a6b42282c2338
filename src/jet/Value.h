#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace quarnel02::jet {

/// A field's value: Null, whole number, real number or text in UTF-8.
using Value = std::variant<std::monostate, std::int64_t, double, std::string>;
using Row = std::vector<Value>;

/// Types of a column, as Access names them, and the values that they hold.
enum class ColumnType {
    YesNo,        ///< -1 and 0, as Access itself turns Yes and No into numbers; never Null
    Byte,         ///< whole, 0 to 255
    Integer,      ///< whole, 16 bits
    LongInteger,  ///< whole, 32 bits
    BigInteger,   ///< whole, 64 bits ("Large Number")
    Currency,     ///< real, four decimal places
    Single,       ///< real, exactly the single
    Double,       ///< real
    Decimal,      ///< real, the nearest to the decimal number
    DateTime,     ///< text, 2026-03-01 14:30:00
    Text,
    Memo,
    Guid,      ///< text, {00112233-4455-6677-8899-AABBCCDDEEFF}
    Computed,  ///< by a formula of the file; its values are not read
    Other      ///< pictures, attachments and other bytes; its values are not read
};

/// A column of a table.
struct Column {
    std::string Name;
    ColumnType Type = ColumnType::Text;
    int Characters = 255;  ///< most that a Text takes, 1 to 255; of no meaning for other types

    bool operator==(const Column&) const = default;
};

}  // namespace quarnel02::jet
