#include "study/CostedDesign.h"

#include <cmath>
#include <cstddef>

namespace quarnel02 {

std::optional<Line> DesignOf(const PreparedLine& line, const CostedPathways& costed) {
    const int last_node = line.Model.TaskCount() + 1;
    const std::vector<NodeLabel> labels = CheapestLabels(CheapestWays(line, costed), last_node);
    if (labels.empty() || !labels.back().IsReached()) {
        return std::nullopt;
    }
    Line design{{}, labels.back().Cost};
    for (const int number : ChainTo(labels, last_node)) {
        const auto place = static_cast<std::size_t>(number) - 1;
        const auto& [resource, first, last] = line.Pathways[place];
        const PathwayCost& cost = costed.Costs[place];
        design.Groups.push_back({number, {resource, first, last, cost.Stations}, cost});
    }
    return design;
}

double RoundingOf(double cost, int tasks) {
    // A sum of singles per task, and the roundings within the cost of a group.
    constexpr double of_a_single = 1.2e-7;
    constexpr int within_a_group = 4;
    return (tasks + within_a_group) * of_a_single * std::fabs(cost);
}

bool StaysCheapest(const PreparedLine& line, const CostedPathways& costed, const Line& former,
                   float cheapest) {
    double cost = 0;
    for (const LineGroup& group : former.Groups) {
        const auto place = static_cast<std::size_t>(group.Pathway) - 1;
        if (costed.States[place] != PathwayState::Feasible ||
            costed.Costs[place].Stations != group.Cost.Stations) {
            return false;
        }
        cost += static_cast<double>(costed.Costs[place].Cost);
    }
    return cost - static_cast<double>(cheapest) <= RoundingOf(cost, line.Model.TaskCount());
}

}  // namespace quarnel02
