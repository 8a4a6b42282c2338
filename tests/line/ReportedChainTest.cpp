#include "line/ReportedChain.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

#include "line/RandomLine.h"

namespace quarnel02 {
namespace {

using Ways = std::vector<Way>;
using Chain = std::vector<int>;
using Labels = std::vector<NodeLabel>;

TEST(ReportedChain, FollowsTheCheapestLabelsBackwards) {
    const Ways ways = {{7, 1, 2, 10}, {8, 1, 3, 50}, {9, 2, 3, 30}, {3, 3, 4, 5}};
    const ReportedChain chain = SearchReportedChain(ways);
    EXPECT_EQ(chain.End, DeadEnd::None);
    EXPECT_EQ(chain.Pathways, (Chain{3, 9, 7}));
    EXPECT_EQ(chain.Labels, (Labels{{2, 7, 1, 10}, {3, 9, 2, 40}, {4, 3, 3, 45}}));
}

TEST(ReportedChain, EndsAtTheLastNodeThatAnyWayReaches) {
    const Ways ways = {{1, 1, 2, 10}, {2, 1, 3, 5}};
    EXPECT_EQ(SearchReportedChain(ways).Pathways, (Chain{2}));
}

TEST(ReportedChain, GivesTiesToTheEarlierWay) {
    const Ways ways = {{1, 1, 2, 10}, {2, 1, 3, 40}, {3, 2, 3, 30}};
    EXPECT_EQ(SearchReportedChain(ways).Pathways, (Chain{2}));
}

TEST(ReportedChain, PassesNodesThatAreReachedAtNoCost) {
    const Ways ways = {{1, 1, 2, 0}, {2, 2, 3, 7}};
    const ReportedChain chain = SearchReportedChain(ways);
    EXPECT_EQ(chain.End, DeadEnd::None);
    EXPECT_EQ(chain.Pathways, (Chain{2, 1}));
}

TEST(ReportedChain, EndsWhereTheFirstWayIntoANodeStartsNowhereThoughALaterOneWouldDo) {
    const Ways ways = {{1, 1, 2, 10}, {2, 1, 4, 90}, {3, 3, 5, 1}, {4, 4, 5, 1}};
    const ReportedChain chain = SearchReportedChain(ways);
    EXPECT_EQ(chain.End, DeadEnd::UnreachedStart);
    EXPECT_EQ(chain.Labels, (Labels{{2, 1, 1, 10}, {4, 2, 1, 90}}));
    EXPECT_TRUE(chain.Pathways.empty());
}

TEST(ReportedChain, EndsAtACheaperWayFromANodeWithoutALabel) {
    const Ways ways = {{1, 1, 4, 10}, {2, 1, 5, 90}, {3, 3, 5, 1}};
    const ReportedChain chain = SearchReportedChain(ways);
    EXPECT_EQ(chain.End, DeadEnd::UnlabelledWayIn);
    EXPECT_EQ(chain.Labels, (Labels{{4, 1, 1, 10}}));
}

TEST(ReportedChain, PassesOverADearerWayFromANodeWithoutALabel) {
    const Ways ways = {{1, 1, 4, 10}, {2, 1, 5, 90}, {3, 3, 5, 90}};
    EXPECT_EQ(SearchReportedChain(ways).Pathways, (Chain{2}));
}

TEST(ReportedChain, EndsAtACheaperSecondWayFromTheStart) {
    const Ways ways = {{1, 1, 2, 10}, {2, 1, 2, 9}};
    EXPECT_EQ(SearchReportedChain(ways).End, DeadEnd::UnlabelledWayIn);
}

TEST(ReportedChain, TakesTheVeryFirstWayForAStartAndBreaksWhereTheLineNeedsIt) {
    const Ways unused = {{1, 2, 3, 10}, {2, 1, 4, 5}};
    const ReportedChain around = SearchReportedChain(unused);
    EXPECT_EQ(around.End, DeadEnd::None);
    EXPECT_EQ(around.Pathways, (Chain{2}));
    EXPECT_EQ(around.Labels.front(), (NodeLabel{3, 1, 2, 10}));
    const Ways needed = {{1, 2, 3, 10}, {2, 3, 4, 5}};
    const ReportedChain broken = SearchReportedChain(needed);
    EXPECT_EQ(broken.End, DeadEnd::BrokenChain);
    EXPECT_EQ(broken.Pathways, (Chain{2, 1})) << "what was chosen so far stays";
}

/// The search step by step over a map of labels.
ReportedChain Twin(const Ways& ways) {
    std::map<int, NodeLabel> labels;
    const auto through = [&](const Way& way) {
        return (labels.contains(way.Start) ? labels.at(way.Start).Cost : 0.0F) +
               static_cast<float>(way.Cost);
    };
    const auto take = [](std::map<int, NodeLabel>& from) {
        Labels list;
        for (const auto& [node, label] : from) {
            list.push_back(label);
        }
        return list;
    };
    NodeLabel hand{ways[0].End, ways[0].Pathway, ways[0].Start, static_cast<float>(ways[0].Cost)};
    for (std::size_t i = 1; i < ways.size(); ++i) {
        const Way& way = ways[i];
        const float cost = through(way);
        const bool labelled = labels.contains(way.Start);
        if (way.End != hand.Node) {
            labels[hand.Node] = hand;
            if (way.Start != 1 && !labels.contains(way.Start)) {
                return {take(labels), {}, DeadEnd::UnreachedStart};
            }
            hand = {way.End, way.Pathway, way.Start, through(way)};
        } else if (cost < hand.Cost && !labelled) {
            return {take(labels), {}, DeadEnd::UnlabelledWayIn};
        } else if (cost < hand.Cost) {
            hand = {way.End, way.Pathway, way.Start, cost};
        }
    }
    labels[hand.Node] = hand;
    ReportedChain chain{take(labels), {}, DeadEnd::None};
    for (int node = hand.Node; node != 1; node = labels.at(node).Start) {
        if (!labels.contains(node)) {
            chain.End = DeadEnd::BrokenChain;
            break;
        }
        chain.Pathways.push_back(labels.at(node).Pathway);
    }
    return chain;
}

/// Ways of a random network in order, few of them free; most networks have holes.
Ways RandomWays() {
    const int last = test::Roll(2, 7);
    const int density = test::Roll(1, 4);
    Ways ways;
    for (int end = 2; end <= last; ++end) {
        for (int start = 1; start < end; ++start) {
            if (test::Roll(1, 4) <= density) {
                const int cost = std::max(0, test::Roll(-3, 12));
                ways.push_back(
                    {static_cast<int>(ways.size()) + 1, start, end, static_cast<double>(cost)});
            }
        }
    }
    return ways;
}

RC_GTEST_PROP(ReportedChain, AgreesWithTheSearchStepByStep, ()) {
    const Ways ways = RandomWays();
    RC_PRE(!ways.empty());
    const ReportedChain chain = SearchReportedChain(ways);
    const ReportedChain twin = Twin(ways);
    RC_TAG(static_cast<int>(chain.End));
    RC_ASSERT(chain.End == twin.End);
    RC_ASSERT(chain.Labels == twin.Labels);
    RC_ASSERT(chain.Pathways == twin.Pathways);
}

}  // namespace
}  // namespace quarnel02
