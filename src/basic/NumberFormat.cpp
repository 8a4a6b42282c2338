#include "basic/NumberFormat.h"

#include <algorithm>
#include <cmath>

#include "basic/Numbers.h"

namespace quarnel02 {

namespace {

struct Pattern {
    std::string_view Prefix;
    int WholeZeros = 0;  ///< digits that the whole part shows at least
    bool Grouped = false;
    bool Point = false;
    int Places = 0;      ///< decimals that are shown at most
    int PlaceZeros = 0;  ///< decimals that are shown at least
};

Pattern Read(std::string_view text) {
    Pattern pattern;
    const auto start = std::min(text.find_first_of("#0."), text.size());
    pattern.Prefix = text.substr(0, start);
    for (const char c : text.substr(start)) {
        if (c == '.') {
            pattern.Point = true;
        } else if (c == ',') {
            pattern.Grouped = true;
        } else if (pattern.Point) {
            ++pattern.Places;
            pattern.PlaceZeros = c == '0' ? pattern.Places : pattern.PlaceZeros;
        } else {
            pattern.WholeZeros += c == '0' ? 1 : 0;
        }
    }
    return pattern;
}

/// Drops all digits behind the given decimal place, rounding half away from zero.
void RoundTo(DecimalDigits& number, int places) {
    const int keep = number.PointAt + places;
    if (keep >= static_cast<int>(number.Digits.size())) {
        return;
    }
    if (keep < 0) {
        number.Digits.clear();
        return;
    }
    const auto cut = static_cast<std::size_t>(keep);
    const bool up = number.Digits[cut] >= '5';
    number.Digits.resize(cut);
    if (!up) {
        return;
    }
    auto digit = number.Digits.rbegin();
    while (digit != number.Digits.rend() && *digit == '9') {
        *digit++ = '0';
    }
    if (digit != number.Digits.rend()) {
        ++*digit;
    } else {
        number.Digits.insert(number.Digits.begin(), '1');
        ++number.PointAt;
    }
}

char DigitAt(const DecimalDigits& number, int position) {
    const bool stands = position >= 0 && position < static_cast<int>(number.Digits.size());
    return stands ? number.Digits[static_cast<std::size_t>(position)] : '0';
}

std::string WholePart(const DecimalDigits& number, const Pattern& pattern) {
    const int count = std::max(number.PointAt, pattern.WholeZeros);
    std::string text;
    for (int left = count; left > 0; --left) {
        text += DigitAt(number, number.PointAt - left);
        if (pattern.Grouped && left > 1 && left % 3 == 1) {
            text += ',';
        }
    }
    return text;
}

std::string Decimals(const DecimalDigits& number, const Pattern& pattern) {
    std::string text;
    for (int place = 0; place < pattern.Places; ++place) {
        text += DigitAt(number, number.PointAt + place);
    }
    const auto needed = text.find_last_not_of('0') + 1;
    text.resize(std::max(needed, static_cast<std::size_t>(pattern.PlaceZeros)));
    return text;
}

}  // namespace

std::string Format(double value, std::string_view pattern) {
    constexpr int significant = 15;
    if (!std::isfinite(value)) {
        return NumberText(value);
    }
    const Pattern parts = Read(pattern);
    DecimalDigits number = ToDecimalDigits(value, significant);
    RoundTo(number, parts.Places);
    const bool zero = number.Digits.find_first_not_of('0') == std::string::npos;
    if (zero) {
        number = {};
    }
    std::string text = number.Negative ? "-" : "";
    text += parts.Prefix;
    text += WholePart(number, parts);
    if (parts.Point) {
        text += '.' + Decimals(number, parts);
    }
    return text;
}

}  // namespace quarnel02
