#include "line/CheapestLine.h"

#include <cstddef>

namespace quarnel02 {

namespace {

/// Place of an arc among all arcs by end node and start node.
std::size_t ArcPlace(int start, int end) {
    const auto arcs_before_end =
        static_cast<std::size_t>(end - 1) * static_cast<std::size_t>(end - 2) / 2;
    return arcs_before_end + static_cast<std::size_t>(start - 1);
}

Way WayOf(const PreparedLine& line, const CostedPathways& costed, std::size_t place) {
    const Pathway& pathway = line.Pathways[place];
    return {static_cast<int>(place) + 1, pathway.FirstTask, pathway.LastTask + 1,
            static_cast<double>(costed.Costs[place].Cost)};
}

LineGroup GroupOf(const PreparedLine& line, const CostedPathways& costed, int number) {
    const auto place = static_cast<std::size_t>(number) - 1;
    const auto& [resource, first, last] = line.Pathways[place];
    const PathwayCost& cost = costed.Costs[place];
    return {number, {resource, first, last, cost.Stations}, cost};
}

}  // namespace

CostedPathways CostAll(const PreparedLine& line, const FixedDemandRequest& request) {
    return CostAll(line, WorkloadOf(request, line.Model.Parameters()), request.StationLimit);
}

CostedPathways CostAll(const PreparedLine& line, const Workload& workload,
                       std::optional<std::int16_t> stationLimit) {
    CostedPathways costed;
    costed.Costs.reserve(line.Pathways.size());
    costed.States.reserve(line.Pathways.size());
    for (std::size_t place = 0; place < line.Pathways.size(); ++place) {
        const Resource& resource = line.Model.ResourceOf(line.Pathways[place].Resource);
        const PathwayCost cost =
            CostOfGroup(line.Contents[place], resource, line.Model.Parameters(), workload);
        costed.Costs.push_back(cost);
        costed.States.push_back(IsOverLimit(cost, stationLimit) ? PathwayState::OverLimit
                                                                : PathwayState::Feasible);
    }
    return costed;
}

std::vector<Way> CheapestWays(const PreparedLine& line, const CostedPathways& costed) {
    const int last_node = line.Model.TaskCount() + 1;
    std::vector<Way> of_arcs(ArcPlace(1, last_node + 1));
    for (std::size_t place = 0; place < line.Pathways.size(); ++place) {
        if (costed.States[place] != PathwayState::Feasible) {
            continue;
        }
        const Way way = WayOf(line, costed, place);
        Way& cheapest = of_arcs[ArcPlace(way.Start, way.End)];
        if (cheapest.Pathway == 0 || way.Cost < cheapest.Cost) {
            cheapest = way;
        }
    }
    std::erase_if(of_arcs, [](const Way& way) { return way.Pathway == 0; });
    return of_arcs;
}

void MarkDearer(std::vector<PathwayState>& states, std::span<const Way> cheapest) {
    for (PathwayState& state : states) {
        if (state == PathwayState::Feasible) {
            state = PathwayState::Dearer;
        }
    }
    for (const Way& way : cheapest) {
        states[static_cast<std::size_t>(way.Pathway) - 1] = PathwayState::Feasible;
    }
}

std::optional<Line> CheapestLine(const PreparedLine& line, const FixedDemandRequest& request) {
    const CostedPathways costed = CostAll(line, request);
    const std::vector<Way> ways = CheapestWays(line, costed);
    const int last_node = line.Model.TaskCount() + 1;
    const std::vector<NodeLabel> labels = CheapestLabels(ways, last_node);
    if (labels.empty() || !labels.back().IsReached()) {
        return std::nullopt;
    }
    Line cheapest{{}, labels.back().Cost};
    for (const int number : ChainTo(labels, last_node)) {
        cheapest.Groups.push_back(GroupOf(line, costed, number));
    }
    return cheapest;
}

}  // namespace quarnel02
