#include "sheets/EnteredNumber.h"

#include <algorithm>
#include <array>
#include <optional>

#include "basic/Numbers.h"

namespace quarnel02 {

namespace {

constexpr std::size_t kGroup = 3;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Blanks between digits group thousands: they become `grouping`. All others go.
std::string WithoutBlanks(std::string_view text, char grouping) {
    constexpr std::array<std::string_view, 4> blanks = {"\u202F", "\u00A0", " ", "\t"};
    std::string plain;
    while (!text.empty()) {
        const auto* const blank =
            std::find_if(blanks.begin(), blanks.end(),
                         [&](std::string_view each) { return text.starts_with(each); });
        const bool is_blank = blank != blanks.end();
        const std::size_t length = is_blank ? blank->size() : 1;
        if (!is_blank) {
            plain += text.front();
        } else if (!plain.empty() && IsDigit(plain.back()) && text.size() > length &&
                   IsDigit(text[length])) {
            plain += grouping;
        }
        text.remove_prefix(length);
    }
    return plain;
}

/// The digits and signs of a number without its sign and exponent; nothing for any other text.
std::optional<std::string> Mantissa(std::string_view text) {
    std::string plain = WithoutBlanks(text, ' ');
    plain.erase(0, plain.starts_with('-') || plain.starts_with('+') ? 1 : 0);
    plain.resize(std::min(plain.find_first_of("eE"), plain.size()));
    const bool number = std::any_of(plain.begin(), plain.end(), IsDigit) &&
                        plain.find_first_not_of("0123456789., ") == std::string::npos;
    return number ? std::optional(plain) : std::nullopt;
}

/// Whether the only such sign in the number can also group thousands: "12,500".
bool MayGroup(const std::string& number, std::size_t place) {
    return place >= 1 && place <= kGroup && number.front() != '0' &&
           number.size() - place - 1 == kGroup;
}

/// Which decimal sign the number must have; nothing when it may have either, or neither.
std::optional<DecimalSign> SignOf(std::string_view text) {
    const std::string number = Mantissa(text).value_or("");
    const auto point = number.rfind('.');
    const auto comma = number.rfind(',');
    const auto points = std::count(number.begin(), number.end(), '.');
    const auto commas = std::count(number.begin(), number.end(), ',');
    if (points > 0 && commas > 0) {
        return point > comma ? DecimalSign::Point : DecimalSign::Comma;
    }
    if (points + commas == 0 ||
        (points + commas == 1 && MayGroup(number, points > 0 ? point : comma))) {
        return std::nullopt;
    }
    const bool decimals = points + commas == 1;
    return (points > 0) == decimals ? DecimalSign::Point : DecimalSign::Comma;
}

void SwapSigns(std::string& text) {
    for (char& c : text) {
        if (c == '.') {
            c = ',';
        } else if (c == ',') {
            c = '.';
        }
    }
}

}  // namespace

DecimalSign DecimalSignOf(const TextBlock& block) {
    bool comma = false;
    for (const auto& row : block) {
        for (const std::string& text : row) {
            const auto sign = SignOf(text);
            if (sign == DecimalSign::Point) {
                return DecimalSign::Point;
            }
            comma = comma || sign == DecimalSign::Comma;
        }
    }
    return comma ? DecimalSign::Comma : DecimalSign::Point;
}

double EnteredNumber(std::string_view text, DecimalSign sign, std::string_view field) {
    if (!Mantissa(text)) {
        return TextToDouble(text, field);
    }
    const DecimalSign meant = SignOf(text).value_or(sign);
    std::string plain = WithoutBlanks(text, meant == DecimalSign::Comma ? '.' : ',');
    if (meant == DecimalSign::Comma) {
        SwapSigns(plain);
    }
    return TextToDouble(plain, field);
}

}  // namespace quarnel02
