#pragma once

// Internal to jet/.

#include <optional>
#include <string>

namespace quarnel02::jet {

/// 2026-03-01 14:30:00 for a number of days since 1899-12-30, whose fraction is the time of day
/// (before that day too). Nothing outside the years 100 to 9999.
std::optional<std::string> DateText(double days);

}  // namespace quarnel02::jet
