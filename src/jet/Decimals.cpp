#include "jet/Decimals.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

namespace quarnel02::jet {

namespace {

constexpr unsigned kCurrencyPlaces = 4;
constexpr unsigned kMostPlaces = 38;
constexpr unsigned kNegative = 0x80;
constexpr unsigned kWordBits = 32;
constexpr std::uint64_t kTen = 10;

/// Highest first.
using Words = std::array<std::uint32_t, 4>;

/// Divides by ten and returns the rest.
char TakeLastDigit(Words& number) {
    std::uint64_t rest = 0;
    for (std::uint32_t& word : number) {
        const std::uint64_t part = rest << kWordBits | word;
        word = static_cast<std::uint32_t>(part / kTen);
        rest = part % kTen;
    }
    return static_cast<char>('0' + rest);
}

std::string Digits(Words number) {
    std::string digits;
    while (std::any_of(number.begin(), number.end(), [](auto word) { return word != 0; })) {
        digits += TakeLastDigit(number);
    }
    std::reverse(digits.begin(), digits.end());
    return digits.empty() ? "0" : digits;
}

double Real(bool negative, const Words& number, unsigned places) {
    const std::string text = (negative ? "-" : "") + Digits(number) + "e-" + std::to_string(places);
    double real = 0;
    std::from_chars(text.data(), text.data() + text.size(), real);
    return real;
}

}  // namespace

double CurrencyOf(Bytes field) {
    std::uint64_t amount = field.U64(0);
    const bool negative = static_cast<std::int64_t>(amount) < 0;
    if (negative) {
        amount = 0 - amount;
    }
    return Real(
        negative,
        {0, 0, static_cast<std::uint32_t>(amount >> kWordBits), static_cast<std::uint32_t>(amount)},
        kCurrencyPlaces);
}

double DecimalOf(Bytes field, unsigned scale) {
    if (scale > kMostPlaces) {
        throw Damage();
    }
    const Bytes number = field.Part(1, kDecimalBytes - 1);
    return Real((field.U8(0) & kNegative) != 0,
                {number.U32(0), number.U32(4), number.U32(8), number.U32(12)}, scale);
}

}  // namespace quarnel02::jet
