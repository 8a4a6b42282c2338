#pragma once

#include <cstdint>
#include <optional>

#include "line/CostModel.h"
#include "line/LineModel.h"

namespace quarnel02 {

/// What a design for one volume is asked for.
struct FixedDemandRequest {
    double Volume = 0;                         ///< units per year, above 0
    std::int16_t Shifts = 1;                   ///< of 8 hours per day
    std::optional<std::int16_t> StationLimit;  ///< most parallel stations of a group; none: any
};

/// The year's volume and shifts with the seconds that they leave for a unit.
/// Throws DivisionByZero for a volume of 0 and Overflow for a negative one.
Workload WorkloadOf(const FixedDemandRequest& request, const Production& production);

/// Whether a group has more parallel stations than are allowed; no limit allows any number that can
/// be counted.
bool IsOverLimit(const PathwayCost& cost, std::optional<std::int16_t> stationLimit);

}  // namespace quarnel02
