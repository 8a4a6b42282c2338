#pragma once

#include <string>
#include <string_view>

namespace quarnel02 {

/// Writes `value` under a number pattern such as "#,###", "$#,###", "#,###.00", "###.##" or
/// "###0".
/// - "#" is an optional digit and prints nothing for a zero that need not stand; "0" always
///   prints a digit. So 0 under "#,###" is empty, 0.5 under "#.00" is ".50", and 5 under
///   "###.##" is "5.".
/// - A comma between digits groups the whole part in thousands; text before the first digit is
///   copied; a negative amount carries its sign in front of everything ("-$5").
/// - The value is rounded half away from zero on its decimal text of 15 digits. What is not finite
/// is
///   written as its default text. Widen a single
///   before formatting: amounts above 7 digits keep their last dollars.
std::string Format(double value, std::string_view pattern);

}  // namespace quarnel02
