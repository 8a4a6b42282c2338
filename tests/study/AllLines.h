#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "line/CheapestLine.h"
#include "line/StationGroup.h"

namespace quarnel02::test {

/// A whole line found by trying; its cost is added up as the fixed design does it.
struct TriedLine {
    std::vector<StationGroup> Groups;
    float Cost = 0;
};

/// All lines for the tasks behind those of `begun`: every partition into ranges, every resource.
inline void TryLines(const PreparedLine& line, const CostedPathways& costed, const TriedLine& begun,
                     std::vector<TriedLine>& lines) {
    const int next = begun.Groups.empty() ? 1 : begun.Groups.back().LastTask + 1;
    if (next > line.Model.TaskCount()) {
        lines.push_back(begun);
        return;
    }
    for (std::size_t place = 0; place < line.Pathways.size(); ++place) {
        const auto& [resource, first, last] = line.Pathways[place];
        if (first != next || costed.States[place] != PathwayState::Feasible) {
            continue;
        }
        TriedLine longer = begun;
        longer.Groups.push_back({resource, first, last, costed.Costs[place].Stations});
        longer.Cost += costed.Costs[place].Cost;
        TryLines(line, costed, longer, lines);
    }
}

inline std::vector<TriedLine> AllLines(const PreparedLine& line,
                                       const FixedDemandRequest& request) {
    std::vector<TriedLine> lines;
    if (line.Model.TaskCount() > 0) {
        TryLines(line, CostAll(line, request), {}, lines);
    }
    return lines;
}

/// Cost of a line at a request, when it has the same stations there.
inline std::optional<float> CostOf(const PreparedLine& line, const FixedDemandRequest& request,
                                   const std::vector<StationGroup>& groups) {
    const CostedPathways costed = CostAll(line, request);
    float sum = 0;
    for (const StationGroup& group : groups) {
        const auto place = std::find(line.Pathways.begin(), line.Pathways.end(),
                                     Pathway{static_cast<std::int16_t>(group.Resource),
                                             static_cast<std::int16_t>(group.FirstTask),
                                             static_cast<std::int16_t>(group.LastTask)}) -
                           line.Pathways.begin();
        const auto at = static_cast<std::size_t>(place);
        if (at == line.Pathways.size() || costed.States[at] != PathwayState::Feasible ||
            costed.Costs[at].Stations != group.Stations) {
            return std::nullopt;
        }
        sum += costed.Costs[at].Cost;
    }
    return sum;
}

}  // namespace quarnel02::test
