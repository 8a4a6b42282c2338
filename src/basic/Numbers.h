#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quarnel02 {

/// Text to number, independent of the locale: blanks around the number are ignored, the decimal
/// sign is a point, commas may separate the thousands of the whole part (in groups of three), an
/// exponent is allowed. `field` names the value in the error.
/// Throws TypeMismatch when the text is empty or no number, Overflow beyond the type's range.
double TextToDouble(std::string_view text, std::string_view field);
float TextToSingle(std::string_view text, std::string_view field);
std::int16_t TextToInteger(std::string_view text, std::string_view field);

/// Rounds to single precision. Throws Overflow beyond the range of a single.
float ToSingle(double value, std::string_view field);

/// The decimal number that stands for a single: a whole one as it is (12,345,678), any other as the
/// shortest decimal that reads back to it (33.3).
double DecimalOfSingle(float single);

/// Rounds half to even to a 16-bit integer. Throws Overflow outside -32768 to 32767.
std::int16_t ToInteger(double value, std::string_view field);

/// The default text of a number: up to 15 significant digits for a double and 7 for a single,
/// with an exponent ("1.5E-08") only where more places would be needed than that.
std::string NumberText(double value);
std::string NumberText(float value);
std::string NumberText(int value);
std::string NumberText(std::int64_t value);

/// The digits of a value as they stand in its default text: value = 0.d1d2d3... x 10^pointAt.
struct DecimalDigits {
    bool Negative = false;
    std::string Digits;  ///< without leading or trailing zeros; empty for 0
    int PointAt = 0;     ///< number of digits in front of the decimal point, may be negative
};

/// Decimal digits of `value` rounded to `significant` digits (1 to 17).
DecimalDigits ToDecimalDigits(double value, int significant);

}  // namespace quarnel02
