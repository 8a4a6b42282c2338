#pragma once

namespace quarnel02 {

inline constexpr int kHoursPerShift = 8;
inline constexpr double kSecondsPerHour = 3600;

}  // namespace quarnel02
