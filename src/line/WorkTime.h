#pragma once

#include <cstdint>

namespace quarnel02 {

inline constexpr std::int16_t kMostShifts = 3;  ///< a day
inline constexpr int kHoursPerShift = 8;
inline constexpr double kSecondsPerHour = 3600;

}  // namespace quarnel02
