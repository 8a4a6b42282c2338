// The cheapest line of small random models against all lines that there are: every partition of
// the tasks into ranges, every resource for each of them.

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <optional>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

#include "line/CheapestLine.h"
#include "line/CostTwin.h"
#include "line/RandomLine.h"
#include "line/ReportedChain.h"

namespace quarnel02 {
namespace {

using test::RandomModel;
using test::RandomRequest;
using test::Roll;

/// Cost of a group; none when the resource cannot do it or needs too many stations.
std::optional<PathwayCost> GroupTwin(const LineModel& model, const FixedDemandRequest& request,
                                     int resource, int first, int last) {
    const auto entries = model.Entries(resource, first, last);
    for (const MatrixEntry& entry : entries) {
        if (!(entry.TaskTime > 0)) {
            return std::nullopt;
        }
    }
    const WorkContent content =
        test::ContentTwin(entries, model.ResourceOf(resource), model.Parameters().TransportTime);
    const PathwayCost cost =
        test::CostTwin(content, model.ResourceOf(resource), model.Parameters(), request);
    const bool over = request.StationLimit && cost.Stations > *request.StationLimit;
    return over || cost.OverEveryLimit ? std::nullopt : std::optional(cost);
}

/// Walks through all lines for the tasks from `first` on and keeps the least cost of a whole line.
void TryLines(const LineModel& model, const FixedDemandRequest& request, int first, float cost,
              std::optional<float>& least) {
    if (first > model.TaskCount()) {
        least = least ? std::min(*least, cost) : cost;
        return;
    }
    for (int last = first; last <= model.TaskCount(); ++last) {
        for (int resource = 1; resource <= model.ResourceCount(); ++resource) {
            if (const auto group = GroupTwin(model, request, resource, first, last)) {
                TryLines(model, request, last + 1, cost + group->Cost, least);
            }
        }
    }
}

std::optional<float> LeastCost(const LineModel& model, const FixedDemandRequest& request) {
    std::optional<float> least;
    TryLines(model, request, 1, 0, least);
    return least;
}

/// Groups follow each other from the first task to the last, can be built, and cost what the line
/// costs.
void RequireSound(const Line& line, const LineModel& model, const FixedDemandRequest& request) {
    float cost = 0;
    int next = 1;
    for (const LineGroup& each : line.Groups) {
        const auto& [resource, first, last, stations] = each.Group;
        RC_ASSERT(first == next);
        RC_ASSERT(last >= first);
        const auto twin = GroupTwin(model, request, resource, first, last);
        RC_ASSERT(twin.has_value());
        RC_ASSERT(*twin == each.Cost);
        RC_ASSERT(stations == each.Cost.Stations);
        cost += each.Cost.Cost;
        next = last + 1;
    }
    RC_ASSERT(next == model.TaskCount() + 1);
    RC_ASSERT(cost == line.Cost);
}

/// What a line is, for comparing.
std::vector<std::tuple<int, int, int, int, int>> Described(const std::optional<Line>& line) {
    std::vector<std::tuple<int, int, int, int, int>> groups;
    if (line) {
        for (const LineGroup& each : line->Groups) {
            groups.emplace_back(each.Pathway, each.Group.Resource, each.Group.FirstTask,
                                each.Group.LastTask, each.Group.Stations);
        }
    }
    return groups;
}

RC_GTEST_PROP(CheapestLineOfRandomModels, IsTheCheapestOfAllLines, ()) {
    const LineModel model = RandomModel(Roll(5, 10)).Model();
    const FixedDemandRequest request = RandomRequest(model);
    const auto line = CheapestLine(Prepare(model), request);
    const auto least = LeastCost(model, request);
    RC_CLASSIFY(line.has_value(), "feasible");
    RC_CLASSIFY(line && line->Cost == 0, "free");
    RC_ASSERT(line.has_value() == least.has_value());
    if (line) {
        RC_ASSERT(line->Cost == *least);
        RequireSound(*line, model, request);
    }
}

RC_GTEST_PROP(CheapestLineOfRandomModels, DoesNotDependOnTheOrderOfEntry, ()) {
    const test::ModelScript parts = RandomModel(Roll(5, 10));
    const LineModel model = parts.Model();
    const FixedDemandRequest request = RandomRequest(model);
    RC_ASSERT(Described(CheapestLine(Prepare(model), request)) ==
              Described(CheapestLine(Prepare(test::Shuffled(parts)), request)));
}

RC_GTEST_PROP(CheapestLineOfRandomModels, NeverUsesACopyOfAResource, ()) {
    test::ModelScript parts = RandomModel(Roll(5, 10));
    const LineModel model = parts.Model();
    const FixedDemandRequest request = RandomRequest(model);
    parts.Resources.push_back(parts.Resources.front());
    const int copy = static_cast<int>(parts.Resources.size());
    for (const MatrixRow& row : std::vector<MatrixRow>(parts.Matrix)) {
        if (row.Resource == 1) {
            parts.Matrix.push_back({copy, row.Task, row.Entry});
        }
    }
    RC_ASSERT(Described(CheapestLine(Prepare(model), request)) ==
              Described(CheapestLine(Prepare(parts.Model()), request)));
}

RC_GTEST_PROP(CheapestWaysOfRandomModels, AreTheFirstOfTheCheapestOfTheirArcs, ()) {
    const PreparedLine line = Prepare(RandomModel(Roll(5, 10)).Model());
    const CostedPathways costed = CostAll(line, RandomRequest(line.Model));
    std::vector<Way> expected;
    for (int end = 2; end <= line.Model.TaskCount() + 1; ++end) {
        for (int start = 1; start < end; ++start) {
            std::set<std::pair<float, int>> by_cost;
            for (std::size_t place = 0; place < line.Pathways.size(); ++place) {
                const Pathway& pathway = line.Pathways[place];
                if (pathway.FirstTask == start && pathway.LastTask + 1 == end &&
                    costed.States[place] == PathwayState::Feasible) {
                    by_cost.emplace(costed.Costs[place].Cost, static_cast<int>(place) + 1);
                }
            }
            if (!by_cost.empty()) {
                const auto& [cost, number] = *by_cost.begin();
                expected.push_back({number, start, end, static_cast<double>(cost)});
            }
        }
    }
    RC_ASSERT(CheapestWays(line, costed) == expected);
}

RC_GTEST_PROP(ReportedChainOfRandomModels, IsTheCheapestToTheLastNodeWhereItFindsOne, ()) {
    const PreparedLine line = Prepare(RandomModel(Roll(4, 10)).Model());
    const std::vector<Way> ways = CheapestWays(line, CostAll(line, RandomRequest(line.Model)));
    RC_PRE(!ways.empty());
    const ReportedChain reported = SearchReportedChain(ways);
    RC_CLASSIFY(reported.End == DeadEnd::None, "a line");
    if (reported.End == DeadEnd::None) {
        const int last_node = ways.back().End;
        const std::vector<NodeLabel> labels = CheapestLabels(ways, last_node);
        RC_ASSERT(reported.Labels.back() == labels.back());
        const std::vector<int> backwards(reported.Pathways.rbegin(), reported.Pathways.rend());
        RC_ASSERT(backwards == ChainTo(labels, last_node));
    }
}

RC_GTEST_PROP(ReportedChainOfRandomModels, HasNoDeadEndWhereEveryArcHasAWay, ()) {
    const PreparedLine line = Prepare(RandomModel(10).Model());
    FixedDemandRequest request = RandomRequest(line.Model);
    request.StationLimit.reset();
    const std::vector<Way> ways = CheapestWays(line, CostAll(line, request));
    const auto nodes = static_cast<std::size_t>(line.Model.TaskCount()) + 1;
    RC_PRE(ways.size() == nodes * (nodes - 1) / 2);
    RC_ASSERT(SearchReportedChain(ways).End == DeadEnd::None);
}

}  // namespace
}  // namespace quarnel02
