#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "line/FixedDemand.h"
#include "line/Pathways.h"

namespace quarnel02 {

/// Why a request for a fixed design has no line, and what would have one.
struct WhyNot {
    bool HasLine = false;              ///< there is one after all
    std::vector<int> ImpossibleTasks;  ///< tasks that no resource can do at all
    std::vector<int> OverloadedTasks;  ///< others for which even 32,767 stations are not enough
    std::vector<int> ForbiddenTasks;   ///< others that only the station limit forbids
    /// With the volume and shifts of the request; none when no limit would do.
    std::optional<std::int16_t> SmallestLimit;
    /// Per day, 1 to 3, with the volume and limit of the request; none when 3 are not enough.
    std::optional<std::int16_t> FewestShifts;
    /// Whole units per year, up to kMostVolume, with the shifts and limit of the request; none when
    /// not even one unit can be made.
    std::optional<int> LargestVolume;
};

/// Of a model with tasks. Throws as WorkloadOf does, and Overflow where a figure is beyond a
/// single.
WhyNot ExplainNoLine(const PreparedLine& line, const FixedDemandRequest& request);

/// What a stochastic design asks of a line: its lowest capacity, the least volume above 0 of the
/// demand, in three shifts with at most 4,095 parallel stations. It has a line when and only when
/// this request has one. Throws as DemandDistribution does.
FixedDemandRequest LeastExpectedRequest(const LineModel& model);

/// Why there is no line, as sentences, a line each; empty when there is one.
std::string WhyNotText(const WhyNot& why, const FixedDemandRequest& request);

/// The same for a stochastic design and the request that LeastExpectedRequest gives.
std::string ExpectedWhyNotText(const WhyNot& why, const FixedDemandRequest& least);

}  // namespace quarnel02
