#pragma once

#include <string>
#include <string_view>

#include "sheets/DelimitedText.h"

namespace quarnel02 {

/// The sign in front of the decimals of a number; the other one groups its thousands.
enum class DecimalSign { Point, Comma };

/// The decimal sign of a block of cells: the comma when at least one of its numbers can only be
/// meant so ("12,5", "0,250", "1.234,5") and none can only be meant the other way ("12.5",
/// "1,234.5"); else the point. So 12,500 is twelve and a half next to 0,250, and else 12500.
DecimalSign DecimalSignOf(const TextBlock& block);

/// Text to number as TextToDouble does it, with that decimal sign; a text that can only be meant
/// the other way is taken so. Thousands may also be grouped by blanks. `field` names the value in
/// the error. Throws TypeMismatch when the text is empty or no number, Overflow beyond the range.
double EnteredNumber(std::string_view text, DecimalSign sign, std::string_view field);

}  // namespace quarnel02
