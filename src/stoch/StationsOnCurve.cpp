#include "stoch/StationsOnCurve.h"

#include <algorithm>

namespace quarnel02 {

std::vector<StationGroup> StationsOn(const CurveSegment& segment,
                                     std::span<const CostCurve> prefixes) {
    std::vector<StationGroup> groups;
    int last_task = static_cast<int>(prefixes.size());
    const CurveSegment* piece = &segment;
    while (piece != nullptr) {
        const CurveTag& tag = piece->Tag;
        groups.push_back({tag.Resource, tag.PreviousTask + 1, last_task, tag.Stations});
        last_task = tag.PreviousTask;
        piece = last_task == 0
                    ? nullptr
                    : prefixes[static_cast<std::size_t>(last_task) - 1].At(segment.Start);
    }
    std::reverse(groups.begin(), groups.end());
    return groups;
}

}  // namespace quarnel02
