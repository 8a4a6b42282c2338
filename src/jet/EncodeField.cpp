#include "jet/EncodeField.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

#include "jet/Little.h"
#include "jet/Utf16.h"

namespace quarnel02::jet {

namespace {

constexpr double kCurrencyUnits = 10000;
constexpr char16_t kByteOrderMark = 0xFEFF;

[[noreturn]] void RefuseType() {
    throw FieldFault(true, "is not of the column's type. Correct it.");
}

[[noreturn]] void RefuseRange() {
    throw FieldFault(false, "is beyond the range of the column. Correct it.");
}

double RealOf(const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        return static_cast<double>(*whole);
    }
    const auto* real = std::get_if<double>(&value);
    if (real == nullptr) {
        RefuseType();
    }
    if (!std::isfinite(*real)) {
        RefuseRange();
    }
    return *real;
}

std::int64_t WholeOf(double real) {
    constexpr double limit = 0x1p63;
    if (!(real >= -limit && real < limit)) {
        RefuseRange();
    }
    if (real != std::trunc(real)) {
        RefuseType();
    }
    return static_cast<std::int64_t>(real);
}

template <class Stored>
std::string WholeBytes(const Value& value) {
    const auto* held = std::get_if<std::int64_t>(&value);
    const std::int64_t whole = held != nullptr ? *held : WholeOf(RealOf(value));
    if (whole < std::numeric_limits<Stored>::min() || whole > std::numeric_limits<Stored>::max()) {
        RefuseRange();
    }
    std::string bytes;
    AppendNumber(bytes, static_cast<std::uint64_t>(whole), sizeof(Stored));
    return bytes;
}

std::string SingleBytes(double real) {
    // The halfway point to infinity, which rounding takes there.
    constexpr double limit = 0x1.ffffffp127;
    if (std::abs(real) >= limit) {
        RefuseRange();
    }
    std::string bytes;
    AppendNumber(bytes, std::bit_cast<std::uint32_t>(static_cast<float>(real)), sizeof(float));
    return bytes;
}

std::string DoubleBytes(double real) {
    std::string bytes;
    AppendNumber(bytes, std::bit_cast<std::uint64_t>(real), sizeof(real));
    return bytes;
}

bool IsCompressible(const std::u16string& text) {
    constexpr char16_t byte_end = 0x100;
    return text.size() > kCodeUnit && std::all_of(text.begin(), text.end(), [](char16_t unit) {
               return unit > 0 && unit < byte_end;
           });
}

std::string TextBytes(const std::u16string& text, bool compress) {
    const bool narrow = compress && IsCompressible(text);
    std::string bytes;
    if (narrow) {
        AppendNumber(bytes, kByteOrderMark, kCodeUnit);
    }
    for (const char16_t unit : text) {
        AppendNumber(bytes, unit, narrow ? 1 : kCodeUnit);
    }
    return bytes;
}

const std::string& TextIn(const Value& value) {
    const auto* text = std::get_if<std::string>(&value);
    if (text == nullptr) {
        RefuseType();
    }
    return *text;
}

std::string TextBytes(const Value& value, std::size_t mostBytes, bool compress) {
    const auto text = Utf16Of(TextIn(value));
    if (!text) {
        throw FieldFault(true, "is damaged: it is not UTF-8. Enter it again.");
    }
    if (text->size() * kCodeUnit > mostBytes) {
        throw FieldFault(false, "has " + std::to_string(text->size()) +
                                    " characters, and the column takes " +
                                    std::to_string(mostBytes / kCodeUnit) + ". Shorten it.");
    }
    if (text->starts_with(kByteOrderMark)) {  // which would mark it as compressed
        throw FieldFault(true, "begins with a byte order mark. Enter it again.");
    }
    return TextBytes(*text, compress);
}

}  // namespace

std::string EncodeField(const WrittenColumn& column, const Value& value, bool compress) {
    switch (column.Type) {
        case TypeCode::Byte:
            return WholeBytes<std::uint8_t>(value);
        case TypeCode::Integer:
            return WholeBytes<std::int16_t>(value);
        case TypeCode::LongInteger:
            return WholeBytes<std::int32_t>(value);
        case TypeCode::Currency:
            return WholeBytes<std::int64_t>(std::round(RealOf(value) * kCurrencyUnits));
        case TypeCode::Single:
            return SingleBytes(RealOf(value));
        case TypeCode::Double:
        case TypeCode::DateTime:
            return DoubleBytes(RealOf(value));
        case TypeCode::Text:
            return TextBytes(value, column.Length, compress);
        case TypeCode::Binary:
            return TextIn(value);
        default:
            RefuseType();
    }
}

}  // namespace quarnel02::jet
