#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace quarnel02 {

/// The last station group of what a piece of a curve is the cost of.
struct GroupTag {
    std::int16_t Resource = 0;
    std::int16_t Stations = 0;
    std::int16_t PreviousTask = 0;  ///< last task before the group; 0 when it starts the line

    bool operator==(const GroupTag&) const = default;
};

/// A cost that is straight over whole steps, for example units per year, From and To included.
struct GridSegment {
    int From = 0;
    int To = 0;
    double Base = 0;   ///< dollars per year at step 0, which the segment need not reach
    double Slope = 0;  ///< dollars per year and step
    GroupTag Tag;

    [[nodiscard]] double CostAt(int step) const { return Base + Slope * step; }
};

/// A cost over whole steps: segments one behind the other without gaps. All curves of a study start
/// at the same step, unless they are empty; they may end early. Costs are doubles: a curve tells
/// which line is the cheapest as if costs were not rounded to singles.
using GridCurve = std::vector<GridSegment>;

/// The segment of a step; nullptr outside the curve.
const GridSegment* SegmentAt(std::span<const GridSegment> curve, int step);

/// The cheaper one of two curves at every step. The first one counts where they are equal, apart
/// from the rounding of doubles; where one has ended the other one goes on alone.
GridCurve Cheaper(const GridCurve& first, const GridCurve& second);

/// The sum of two curves as far as both reach, with the tags of `last` behind `previousTask`.
GridCurve Behind(const GridCurve& last, const GridCurve& before, int previousTask);

}  // namespace quarnel02
