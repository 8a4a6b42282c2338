#pragma once

#include <string>
#include <string_view>

namespace quarnel02 {

/// A figure of a computation: thousands separated, at most four decimals, none that are 0; a share
/// of a unit that four decimals would not show has its default text.
std::string FigureText(double value);

/// "3 shifts", "1 shift".
std::string CountText(double count, std::string_view singular, std::string_view plural);

}  // namespace quarnel02
