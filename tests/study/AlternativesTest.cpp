// The cheapest lines against all lines.

#include "study/Alternatives.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <tuple>
#include <vector>

#include "line/RandomLine.h"
#include "study/AllLines.h"
#include "study/CheapestLines.h"
#include "study/VolumePieces.h"

namespace quarnel02 {
namespace {

using test::Roll;

RC_GTEST_PROP(CheapestLinesOfRandomModels, AreTheCheapestOfAllLines, ()) {
    const PreparedLine line = Prepare(test::RandomModel(Roll(7, 10)).Model());
    const FixedDemandRequest request = test::RandomRequest(line.Model);
    const int count = Roll(1, 12);
    std::vector<test::TriedLine> all = test::AllLines(line, request);
    RC_CLASSIFY(all.size() > 12, "more than enough lines");
    std::sort(all.begin(), all.end(), [](const auto& a, const auto& b) { return a.Cost < b.Cost; });
    const std::vector<Line> cheapest = CheapestLines(line, CostAll(line, request), count);
    RC_ASSERT(cheapest.size() == std::min(all.size(), static_cast<std::size_t>(count)));
    std::set<std::vector<int>> different;
    for (std::size_t rank = 0; rank < cheapest.size(); ++rank) {
        RC_ASSERT(cheapest[rank].Cost == all[rank].Cost);
        const auto groups = GroupsOf(cheapest[rank]);
        const auto tried = std::find_if(all.begin(), all.end(),
                                        [&](const auto& each) { return each.Groups == groups; });
        RC_ASSERT(tried != all.end());
        RC_ASSERT(tried->Cost == cheapest[rank].Cost);
        std::vector<int> pathways;
        for (const LineGroup& group : cheapest[rank].Groups) {
            pathways.push_back(group.Pathway);
        }
        RC_ASSERT(different.insert(pathways).second);
    }
}

RC_GTEST_PROP(CheapestLinesOfRandomModels, BeginWithTheFixedDesign, ()) {
    const PreparedLine line = Prepare(test::RandomModel(Roll(7, 10)).Model());
    const FixedDemandRequest request = test::RandomRequest(line.Model);
    const auto fixed = CheapestLine(line, request);
    const std::vector<Line> cheapest = CheapestLines(line, CostAll(line, request), 3);
    RC_ASSERT(cheapest.empty() == !fixed.has_value());
    if (fixed) {
        RC_ASSERT(GroupsOf(cheapest.front()) == GroupsOf(*fixed));
    }
}

RC_GTEST_PROP(ReplacementsInRandomModels, AreTheNextBestResourcesForTheSameTasks, ()) {
    const PreparedLine line = Prepare(test::RandomModel(Roll(7, 10)).Model());
    const FixedDemandRequest request = test::RandomRequest(line.Model);
    const auto fixed = CheapestLine(line, request);
    RC_PRE(fixed.has_value());
    const CostedPathways costed = CostAll(line, request);
    const auto replacements = Replacements(line, request, *fixed);
    RC_ASSERT(replacements.size() == fixed->Groups.size());
    for (std::size_t place = 0; place < replacements.size(); ++place) {
        const LineGroup& group = fixed->Groups[place];
        const auto& replacement = replacements[place];
        std::optional<float> least;
        for (std::size_t number = 0; number < line.Pathways.size(); ++number) {
            const Pathway& pathway = line.Pathways[number];
            if (pathway.FirstTask == group.Group.FirstTask &&
                pathway.LastTask == group.Group.LastTask &&
                pathway.Resource != group.Group.Resource &&
                costed.States[number] == PathwayState::Feasible) {
                least =
                    std::min(least.value_or(costed.Costs[number].Cost), costed.Costs[number].Cost);
            }
        }
        RC_ASSERT(replacement.has_value() == least.has_value());
        if (replacement) {
            RC_ASSERT(replacement->Group.Cost.Cost == *least);
            RC_ASSERT(replacement->Group.Group.Resource != group.Group.Resource);
            RC_ASSERT(replacement->Group.Group.FirstTask == group.Group.FirstTask);
            RC_ASSERT(replacement->Group.Group.LastTask == group.Group.LastTask);
            RC_ASSERT(replacement->Difference ==
                      static_cast<double>(*least) - static_cast<double>(group.Cost.Cost));
        }
    }
}

RC_GTEST_PROP(AlternativesOfRandomModels, SayWhatTheyCost, ()) {
    const PreparedLine line = Prepare(test::RandomModel(Roll(7, 10)).Model());
    const FixedDemandRequest request = test::RandomRequest(line.Model);
    const auto alternatives = AlternativesFor(line, request);
    RC_ASSERT(alternatives.size() <= 10U);
    for (const Alternative& each : alternatives) {
        double investment = 0;
        double running = 0;
        for (const LineGroup& group : each.Design.Groups) {
            investment += static_cast<double>(group.Cost.Investment);
            running += static_cast<double>(group.Cost.AnnualLabor);
        }
        RC_ASSERT(each.Figures.Investment == investment);
        RC_ASSERT(std::fabs(each.Figures.Labour + each.Figures.Machine - running) <=
                  1e-6 * (running + 1));
        RC_ASSERT(std::fabs(each.Figures.Total - static_cast<double>(each.Design.Cost)) <=
                  1e-6 * each.Figures.Total);
        RC_ASSERT(each.Difference == static_cast<double>(each.Design.Cost) -
                                         static_cast<double>(alternatives.front().Design.Cost));
    }
}

TEST(CheapestLines, AreNoneWithoutTasks) {
    const PreparedLine line = Prepare(LineModel());
    EXPECT_TRUE(CheapestLines(line, {}, 10).empty());
}

}  // namespace
}  // namespace quarnel02
