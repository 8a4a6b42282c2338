#include "study/ArcCurves.h"

#include <algorithm>

namespace quarnel02 {

namespace {

GridCurve CheapestTo(const ArcCurves& arcs, const std::vector<GridCurve>& prefixes, int last,
                     const StudyWatch& watch) {
    GridCurve cheapest = arcs.At(1, last);
    for (int first = 2; first <= last; ++first) {
        watch.Look();
        const GridCurve& before = prefixes[static_cast<std::size_t>(first) - 2];
        const GridCurve& arc = arcs.At(first, last);
        if (!arc.empty() && !before.empty()) {
            cheapest = Cheaper(cheapest, Behind(arc, before, first - 1));
        }
    }
    return cheapest;
}

}  // namespace

std::vector<GridCurve> CheapestPrefixes(const ArcCurves& arcs, const StudyWatch& watch) {
    std::vector<GridCurve> prefixes;
    for (int last = 1; last <= arcs.TaskCount(); ++last) {
        prefixes.push_back(CheapestTo(arcs, prefixes, last, watch));
    }
    return prefixes;
}

std::vector<StationGroup> GroupsAt(const std::vector<GridCurve>& prefixes, int step) {
    std::vector<StationGroup> groups;
    for (int last = static_cast<int>(prefixes.size()); last > 0;) {
        const GroupTag& tag = SegmentAt(prefixes[static_cast<std::size_t>(last) - 1], step)->Tag;
        groups.push_back({tag.Resource, tag.PreviousTask + 1, last, tag.Stations});
        last = tag.PreviousTask;
    }
    std::reverse(groups.begin(), groups.end());
    return groups;
}

}  // namespace quarnel02
