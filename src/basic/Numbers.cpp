#include "basic/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "basic/OneLine.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

constexpr int kDoubleDigits = 15;
constexpr int kSingleDigits = 7;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view TrimBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

[[noreturn]] void ThrowNotANumber(std::string_view text, std::string_view field) {
    std::string message(field);
    if (TrimBlanks(text).empty()) {
        message += " is empty. Enter a number, for example 12,500 or 0.25.";
    } else {
        message += ": \"" + OneLine(text) +
                   "\" is not a number. Enter digits, for example 12,500 or 0.25.";
    }
    throw RunTimeError(ErrorKind::TypeMismatch, message);
}

[[noreturn]] void ThrowOverflow(const std::string& value, std::string_view field,
                                std::string_view range) {
    throw RunTimeError(ErrorKind::Overflow, std::string(field) + ": " + value +
                                                " is out of range. Enter a value " +
                                                std::string(range) + ".");
}

/// Length of the whole part at the front of `text`, or npos when its commas do not separate
/// groups of three digits. The first group has a value: "0,250" is a decimal comma, misread as 250.
std::size_t WholePartLength(std::string_view text) {
    std::size_t length = 0;
    std::size_t group = 0;
    bool grouped = false;
    for (; length < text.size() && (IsDigit(text[length]) || text[length] == ','); ++length) {
        if (text[length] != ',') {
            ++group;
            continue;
        }
        if (group == 0 || group > 3 || (grouped && group != 3) || text.front() == '0') {
            return std::string_view::npos;
        }
        grouped = true;
        group = 0;
    }
    return grouped && group != 3 ? std::string_view::npos : length;
}

/// The text in the form that from_chars reads: no plus sign, no separators. Empty when it is not
/// a number.
std::string PlainNumber(std::string_view text) {
    std::string plain;
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
        if (text.front() == '-') {
            plain += '-';
        }
        text.remove_prefix(1);
    }
    const auto whole = WholePartLength(text);
    if (whole == std::string_view::npos || text.empty() ||
        (!IsDigit(text.front()) && text.front() != '.')) {
        return {};
    }
    for (const char c : text.substr(0, whole)) {
        if (c != ',') {
            plain += c;
        }
    }
    plain += text.substr(whole);
    return plain;
}

std::string LayOutPlain(const DecimalDigits& number) {
    const int count = static_cast<int>(number.Digits.size());
    if (number.PointAt <= 0) {
        return "0." + std::string(static_cast<std::size_t>(-number.PointAt), '0') + number.Digits;
    }
    if (number.PointAt >= count) {
        return number.Digits + std::string(static_cast<std::size_t>(number.PointAt - count), '0');
    }
    const auto point = static_cast<std::size_t>(number.PointAt);
    return number.Digits.substr(0, point) + "." + number.Digits.substr(point);
}

std::string LayOutExponent(const DecimalDigits& number) {
    const int exponent = number.PointAt - 1;
    std::string text = number.Digits.substr(0, 1);
    if (number.Digits.size() > 1) {
        text += "." + number.Digits.substr(1);
    }
    const std::string size = std::to_string(std::abs(exponent));
    return text + (exponent < 0 ? "E-" : "E+") + (size.size() < 2 ? "0" : "") + size;
}

std::string DefaultText(double value, int significant) {
    if (!std::isfinite(value)) {
        return std::isnan(value) ? "NaN" : (value < 0 ? "-Infinity" : "Infinity");
    }
    const DecimalDigits number = ToDecimalDigits(value, significant);
    if (number.Digits.empty()) {
        return "0";
    }
    const int places = static_cast<int>(number.Digits.size()) - number.PointAt;
    const bool plain =
        number.PointAt <= significant && (number.PointAt > 0 || places <= significant);
    return (number.Negative ? "-" : "") + (plain ? LayOutPlain(number) : LayOutExponent(number));
}

}  // namespace

double TextToDouble(std::string_view text, std::string_view field) {
    const std::string plain = PlainNumber(TrimBlanks(text));
    if (plain.empty()) {
        ThrowNotANumber(text, field);
    }
    double value = 0;
    const char* const end = plain.data() + plain.size();
    const auto [stop, error] = std::from_chars(plain.data(), end, value);
    if (error == std::errc::invalid_argument || stop != end) {
        ThrowNotANumber(text, field);
    }
    if (error == std::errc::result_out_of_range) {
        if (plain.find("e-") != std::string::npos || plain.find("E-") != std::string::npos) {
            return 0;  // too small to tell from 0
        }
        ThrowOverflow(std::string(text), field, "that a double-precision number can hold");
    }
    return value;
}

float TextToSingle(std::string_view text, std::string_view field) {
    return ToSingle(TextToDouble(text, field), field);
}

std::int16_t TextToInteger(std::string_view text, std::string_view field) {
    return ToInteger(TextToDouble(text, field), field);
}

float ToSingle(double value, std::string_view field) {
    const auto single = static_cast<float>(value);
    if (!std::isfinite(single)) {
        ThrowOverflow(NumberText(value), field, "that a single-precision number can hold");
    }
    return single;
}

double DecimalOfSingle(float single) {
    if (single == std::trunc(single)) {
        return static_cast<double>(single);
    }
    std::array<char, 32> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), single);
    double decimal = 0;
    std::from_chars(text.data(), written.ptr, decimal);
    // Rounded to a double first, a decimal next to the middle of two singles may read as the other.
    return static_cast<float>(decimal) == single ? decimal : static_cast<double>(single);
}

std::int16_t ToInteger(double value, std::string_view field) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int16_t>::min() &&
          rounded <= std::numeric_limits<std::int16_t>::max())) {
        ThrowOverflow(NumberText(value), field, "from -32,768 to 32,767");
    }
    return static_cast<std::int16_t>(rounded);
}

std::string NumberText(double value) {
    return DefaultText(value, kDoubleDigits);
}

std::string NumberText(float value) {
    return DefaultText(static_cast<double>(value), kSingleDigits);
}

std::string NumberText(int value) {
    return std::to_string(value);
}

std::string NumberText(std::int64_t value) {
    return std::to_string(value);
}

DecimalDigits ToDecimalDigits(double value, int significant) {
    DecimalDigits number;
    number.Negative = std::signbit(value) && value != 0;
    std::array<char, 40> buffer{};
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                      std::chars_format::scientific, significant - 1);
    const std::string_view text(buffer.data(),
                                static_cast<std::size_t>(result.ptr - buffer.data()));
    const auto mark = text.find('e');
    for (const char c : text.substr(0, mark)) {
        if (c != '.') {
            number.Digits += c;
        }
    }
    number.Digits.erase(number.Digits.find_last_not_of('0') + 1);
    const char* const exponent = text.data() + mark + (text[mark + 1] == '+' ? 2 : 1);
    std::from_chars(exponent, result.ptr, number.PointAt);
    ++number.PointAt;
    return number;
}

}  // namespace quarnel02
