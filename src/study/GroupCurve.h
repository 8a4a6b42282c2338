#pragma once

#include <cstdint>
#include <optional>

#include "line/LineModel.h"
#include "line/WorkContent.h"
#include "study/GridCurve.h"

namespace quarnel02 {

/// Annual cost of a station group over whole volumes from `from` to `to`, units per year, with as
/// many parallel stations as the fixed design takes; ends early where more than `stationLimit`, or
/// than can be counted, would be needed. Not rounded to singles, apart from the investment.
/// Throws as CostOfGroup does.
GridCurve GroupCurve(const WorkContent& content, const Resource& resource,
                     const Production& production, std::int16_t shifts,
                     std::optional<std::int16_t> stationLimit, int from, int to);

}  // namespace quarnel02
