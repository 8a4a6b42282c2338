#include "study/Alternatives.h"

#include "study/CheapestLines.h"
#include "study/PathwayPlaces.h"

namespace quarnel02 {

namespace {

std::optional<Replacement> ReplacementOf(const PreparedLine& line, const PathwayPlaces& places,
                                         const CostedPathways& costed, const LineGroup& group) {
    std::optional<Replacement> cheapest;
    const auto& [own, first, last, stations] = group.Group;
    for (int resource = 1; resource <= line.Model.ResourceCount(); ++resource) {
        const auto place = places.Of(resource, first, last);
        if (resource == own || !place || costed.States[*place] != PathwayState::Feasible) {
            continue;
        }
        const PathwayCost& cost = costed.Costs[*place];
        if (!cheapest || cost.Cost < cheapest->Group.Cost.Cost) {
            cheapest = {
                {static_cast<int>(*place) + 1, {resource, first, last, cost.Stations}, cost},
                static_cast<double>(cost.Cost) - static_cast<double>(group.Cost.Cost)};
        }
    }
    return cheapest;
}

}  // namespace

std::vector<Alternative> AlternativesFor(const PreparedLine& line,
                                         const FixedDemandRequest& request, int count) {
    const CostBasis basis = BasisOf(request, line.Model.Parameters());
    std::vector<Alternative> alternatives;
    for (Line& design : CheapestLines(line, CostAll(line, request), count)) {
        CostFigures figures;
        for (const LineGroup& group : design.Groups) {
            figures += FiguresOf(line.Model, group.Group, basis);
        }
        const auto cheapest = static_cast<double>(
            alternatives.empty() ? design.Cost : alternatives.front().Design.Cost);
        const double difference = static_cast<double>(design.Cost) - cheapest;
        alternatives.push_back({std::move(design), figures, difference});
    }
    return alternatives;
}

std::vector<std::optional<Replacement>> Replacements(const PreparedLine& line,
                                                     const FixedDemandRequest& request,
                                                     const Line& design) {
    const PathwayPlaces places(line);
    const CostedPathways costed = CostAll(line, request);
    std::vector<std::optional<Replacement>> replacements;
    for (const LineGroup& group : design.Groups) {
        replacements.push_back(ReplacementOf(line, places, costed, group));
    }
    return replacements;
}

}  // namespace quarnel02
