#pragma once

#include <cstdint>
#include <span>

#include "line/LineModel.h"
#include "line/StationGroup.h"

namespace quarnel02 {

/// The largest annual volume that studies look at, units per year.
inline constexpr int kMostVolume = 2000000000;

/// The largest whole annual volume, up to kMostVolume, that so many parallel stations of a work
/// time (seconds per unit of one station) make in so many shifts per day, as the fixed design
/// counts stations; 0 when they do not even make one unit. Throws Overflow.
int LargestVolume(const Production& production, std::int16_t shifts, float workTime, int stations);

/// The same for a line: that of its slowest station.
int CapacityOf(const LineModel& model, std::span<const StationGroup> groups, std::int16_t shifts);

}  // namespace quarnel02
