#include "study/PenaltyFlips.h"

#include <algorithm>
#include <vector>

namespace quarnel02 {

namespace {

/// In ascending order the capacities that may be the cheapest for some penalty: where the cost of
/// the lines or the expected production bends or jumps.
std::vector<float> CandidateVolumes(const ExpectedDesigns& designs) {
    std::vector<float> volumes;
    for (const CurveSegment& segment : designs.Prefixes.back().Segments()) {
        volumes.insert(volumes.end(), {segment.Start, segment.End});
    }
    for (const DemandPoint& point : designs.Demand.Points()) {
        if (designs.Prefixes.back().At(point.Volume) != nullptr) {
            volumes.push_back(point.Volume);
        }
    }
    std::sort(volumes.begin(), volumes.end());
    return volumes;
}

/// A capacity as a straight line over the penalty.
struct CostOfCapacity {
    double WithoutPenalty = 0;  ///< dollars per year
    double Unmet = 0;           ///< expected units per year
};

CostOfCapacity CostAt(const ExpectedDesigns& designs, float volume) {
    return {designs.Prefixes.back().At(volume)->CostAt(volume),
            designs.Demand.Production().ShortfallAt(volume)};
}

/// The penalty at which both cost the same; they differ in the unmet units.
double MeetingPoint(const CostOfCapacity& one, const CostOfCapacity& other) {
    return (other.WithoutPenalty - one.WithoutPenalty) / (one.Unmet - other.Unmet);
}

}  // namespace

PenaltyFlips PenaltyFlipsOf(const ExpectedDesigns& designs) {
    PenaltyFlips flips;
    if (!designs.Result.Line) {
        return flips;
    }
    const CostOfCapacity now = CostAt(designs, designs.Result.Line->Capacity);
    for (const float volume : CandidateVolumes(designs)) {
        const CostOfCapacity other = CostAt(designs, volume);
        if (other.Unmet == now.Unmet) {
            continue;
        }
        const double penalty = MeetingPoint(now, other);
        if (other.Unmet < now.Unmet && (!flips.Above || penalty < flips.Above->Penalty)) {
            flips.Above = {penalty, volume};
        }
        if (other.Unmet > now.Unmet && penalty >= 0 &&
            (!flips.Below || penalty > flips.Below->Penalty)) {
            flips.Below = {penalty, volume};
        }
    }
    return flips;
}

}  // namespace quarnel02
