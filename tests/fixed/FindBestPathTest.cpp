#include "fixed/FindBestPath.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/NetworkScript.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::CostedNetwork;
using test::ExpectRunTimeError;
using test::Way;

using Lines = std::vector<std::string>;
using Ways = std::vector<Way>;

constexpr const char* kUnreachedStart = "message[information]: There is no feasible solution.";
constexpr const char* kUnlabelledWayIn = "message[critical]: There is no feasible solution.";
constexpr const char* kBrokenChain = "message[critical]: There is no feasible solution!";

/// Runs the search, which must end with this message and without a report.
void ExpectDeadEnd(CostedNetwork& network, const char* message) {
    network.Form.picArc.OnChange = [&] { network.Form.Events.emplace_back("drawn"); };
    network.Search();
    EXPECT_EQ(network.Form.Events.front(), "drawn");
    EXPECT_EQ(network.Form.Events.back(), message);
    EXPECT_FALSE(network.HasReport());
    EXPECT_FALSE(network.Form.LastDesign);
}

/// Runs the search, which must end with the report.
void ExpectSolved(CostedNetwork& network) {
    network.Search();
    EXPECT_EQ(network.Form.Events,
              Lines{"start: notepad.exe " + PathText(network.Copy.File("RunRpt.txt"))});
    EXPECT_TRUE(network.HasReport());
    EXPECT_FALSE(network.Form.picArc.Figures().empty());
}

TEST(FindBestPath, TakesTheCheaperOfTwoChains) {
    CostedNetwork network({{1, 2, 10}, {1, 3, 45}, {2, 3, 20}, {1, 4, 99}, {2, 4, 70}, {3, 4, 30}});
    ExpectSolved(network);
    // Node 3: 45 directly, 10 + 20 over node 2; node 4: 99, 80 over 2, 60 over 3.
    EXPECT_EQ(network.Labels(), (Lines{"2|1|1|10", "3|3|2|30", "4|6|3|60"}));
    EXPECT_EQ(network.States(), (Lines{"4", "1", "4", "1", "1", "4"}));
}

TEST(FindBestPath, MarksOnePathwayWhenAllStartAtTheFirstNode) {
    CostedNetwork network({{1, 2, 10}, {1, 3, 11}, {1, 4, 12}});
    ExpectSolved(network);
    EXPECT_EQ(network.Labels(), (Lines{"2|1|1|10", "3|2|1|11", "4|3|1|12"}));
    EXPECT_EQ(network.States(), (Lines{"1", "1", "4"}));
}

TEST(FindBestPath, LeavesATieToTheWayInFromTheLowerNode) {
    CostedNetwork network({{1, 2, 10}, {1, 3, 30}, {2, 3, 20}});
    ExpectSolved(network);
    EXPECT_EQ(network.Labels(), (Lines{"2|1|1|10", "3|2|1|30"}));
    EXPECT_EQ(network.States(), (Lines{"1", "4", "1"}));
}

TEST(FindBestPath, LeavesATieToTheLowerNodeInWhateverOrderArcsStand) {
    CostedNetwork network({{3, 4, 5}, {2, 4, 10}, {2, 3, 5}, {1, 2, 1}});
    ExpectSolved(network);
    EXPECT_EQ(network.Labels(), (Lines{"2|4|1|1", "3|3|2|6", "4|2|2|11"}));
    EXPECT_EQ(network.States(), (Lines{"1", "4", "1", "4"}));
}

/// Runs the search, which must report a line and then say which tasks it leaves out.
void ExpectShortLine(CostedNetwork& network, const char* message) {
    network.Search();
    EXPECT_EQ(network.Form.Events,
              (Lines{"start: notepad.exe " + PathText(network.Copy.File("RunRpt.txt")), message}));
    EXPECT_TRUE(network.HasReport());
}

TEST(FindBestPath, SaysWhichTasksALineLeavesOut) {
    CostedNetwork network({{1, 2, 10}, {2, 3, 5}, {3, 4, 7, 2}});
    ExpectShortLine(network,
                    "message[critical]: This line ends after task 2: no resource can do tasks 3 "
                    "to 3 within the limits.");
    EXPECT_EQ(network.Labels(), (Lines{"2|1|1|10", "3|2|2|15"}));
    EXPECT_EQ(network.States(), (Lines{"4", "4", "2"}));
    EXPECT_EQ(network.Form.LastDesign->Caption, "1 shift, 1,000 units a year, ends after task 2");
}

TEST(FindBestPath, CountsAllTasksThatALineLeavesOut) {
    CostedNetwork network({{1, 2, 10}, {2, 13, 5, 2}});
    ExpectShortLine(network,
                    "message[critical]: This line ends after task 1: no resource can do tasks 2 "
                    "to 12 within the limits.");
}

TEST(FindBestPath, NotesTheDesignThatItShows) {
    CostedNetwork network({{1, 2, 10}});
    ExpectSolved(network);
    EXPECT_EQ(network.Form.LastDesign->Caption, "1 shift, 1,000 units a year");
    network.Order.Request.Shifts = 3;
    network.Order.Request.Volume = 12500;
    network.Search();
    EXPECT_EQ(network.Form.LastDesign->Caption, "3 shifts, 12,500 units a year");
}

TEST(FindBestPath, DrawsTheNetworkBeforeItWritesTheSummary) {
    CostedNetwork network({{1, 2, 10}});
    network.Form.picArc.OnChange = [&] { network.Form.Events.emplace_back("network"); };
    network.Form.picGraph[0].OnChange = [&] { network.Form.Events.emplace_back("summary"); };
    network.Search();
    Lines steps = network.Form.Events;
    steps.erase(std::unique(steps.begin(), steps.end()), steps.end());
    EXPECT_EQ(steps, (Lines{"network", "summary",
                            "start: notepad.exe " + PathText(network.Copy.File("RunRpt.txt"))}));
}

TEST(FindBestPath, IgnoresOtherStates) {
    CostedNetwork network({{1, 2, 10}, {1, 3, 1, 2}, {2, 3, 20}, {1, 3, 2, 3}, {1, 2, 1, 2}});
    ExpectSolved(network);
    EXPECT_EQ(network.States(), (Lines{"4", "2", "4", "3", "2"}));
}

TEST(FindBestPath, ReleasesTheChoiceOfTheLastRunFirst) {
    // The chosen pathways of an earlier run are candidates again; old labels are gone.
    CostedNetwork network({{1, 2, 10, 4}, {2, 3, 20, 4}, {1, 3, 25}});
    RecordSet labels = network.Form.OpenWorkingCopy().OpenRecordSet(test::kAllLabels);
    for (const int node : {9, 7, 5}) {
        labels.AddNew();
        labels.Set("ThisPath", node);
        labels.Set("PathId", 77);
        labels.Set("SubPath", 1);
        labels.Set("PathCost", 1);
        labels.Update();
    }
    ExpectSolved(network);
    EXPECT_EQ(network.Labels(), (Lines{"2|1|1|10", "3|3|1|25"}));
    EXPECT_EQ(network.States(), (Lines{"1", "1", "4"}));
}

TEST(FindBestPath, GivesTheSameResultWhenRunTwice) {
    CostedNetwork network({{1, 2, 10}, {1, 3, 45}, {2, 3, 20}, {3, 4, 1}});
    ExpectSolved(network);
    const auto labels = network.Labels();
    const auto states = network.States();
    network.Form.Events.clear();
    ExpectSolved(network);
    EXPECT_EQ(network.Labels(), labels);
    EXPECT_EQ(network.States(), states);
}

TEST(FindBestPath, RoundsLabelsToSingle) {
    // 16777216 + 1 is no single.
    CostedNetwork network({{1, 2, 16777216}, {2, 3, 1}, {3, 4, 3}});
    ExpectSolved(network);
    // 16777216 + 3 rounds half to even up to 16777220.
    EXPECT_EQ(network.Labels(), (Lines{"2|1|1|16777216", "3|2|2|16777216", "4|3|3|16777220"}));
}

TEST(FindBestPath, EndsAtANodeWhoseFirstWayInStartsAtAnUnlabelledNode) {
    // The way in from node 3 would do, but node 2 comes first and is not reached.
    CostedNetwork network({{1, 3, 10}, {2, 4, 5}, {3, 4, 1}});
    ExpectDeadEnd(network, kUnreachedStart);
    EXPECT_EQ(network.Labels(), Lines{"3|1|1|10"});
    EXPECT_EQ(network.States(), (Lines{"1", "1", "1"}));
}

TEST(FindBestPath, TakesANodeReachedAtNoCostForReached) {
    CostedNetwork network({{1, 2, 0}, {2, 3, 5}});
    ExpectSolved(network);
    EXPECT_EQ(network.Labels(), (Lines{"2|1|1|0", "3|2|2|5"}));
    EXPECT_EQ(network.States(), (Lines{"4", "4"}));
}

TEST(FindBestPath, TakesACheaperWayInFromANodeReachedAtNoCost) {
    CostedNetwork network({{1, 2, 0}, {1, 3, 9}, {2, 3, 5}});
    ExpectSolved(network);
    EXPECT_EQ(network.Labels(), (Lines{"2|1|1|0", "3|3|2|5"}));
}

TEST(FindBestPath, TakesANodeWhoseCostIsLostInRoundingForReached) {
    // 1 + 1e9 rounds to the single 1e9 itself.
    CostedNetwork network({{1, 2, 1}, {2, 3, 1e9}});
    ExpectSolved(network);
    EXPECT_EQ(network.Labels(), (Lines{"2|1|1|1", "3|2|2|1000000000"}));
}

TEST(FindBestPath, EndsAtAFreeWayInFromAnUnlabelledNode) {
    CostedNetwork network({{1, 4, 10}, {2, 4, 0}, {4, 5, 1}});
    ExpectDeadEnd(network, kUnlabelledWayIn);
}

TEST(FindBestPath, EndsAtACheaperWayInFromAnUnlabelledNode) {
    // Node 4 costs 10 from the start; from node 2 it would cost 5, but node 2 is not reached.
    CostedNetwork network({{1, 4, 10}, {2, 4, 5}, {4, 5, 1}});
    ExpectDeadEnd(network, kUnlabelledWayIn);
    EXPECT_EQ(network.Labels(), Lines{});
}

TEST(FindBestPath, EndsAtACheaperWayInFromTheFirstNodeWhichHasNoLabel) {
    // Two pathways on the arc (1, 2), both in state 1; the second is cheaper.
    CostedNetwork network({{1, 2, 10}, {1, 2, 8}});
    ExpectDeadEnd(network, kUnlabelledWayIn);
}

TEST(FindBestPath, PassesOverADearerWayInFromAnUnlabelledNode) {
    CostedNetwork network({{1, 3, 4}, {2, 3, 5}, {3, 4, 1}});
    ExpectSolved(network);
    EXPECT_EQ(network.States(), (Lines{"4", "1", "4"}));
}

TEST(FindBestPath, KeepsTheFirstOfTwoEqualPathwaysOfOneArc) {
    CostedNetwork network({{1, 2, 10}, {1, 2, 10}});
    ExpectSolved(network);
    EXPECT_EQ(network.States(), (Lines{"4", "1"}));
}

TEST(FindBestPath, TakesTheFirstRowForAStartAndFindsTheChainBroken) {
    // The line begins at node 2; its first arc is accepted, but leads nowhere on the way back.
    CostedNetwork network({{2, 3, 10}, {3, 4, 5}});
    ExpectDeadEnd(network, kBrokenChain);
    EXPECT_EQ(network.Labels(), (Lines{"3|1|2|10", "4|2|3|15"}));
    EXPECT_EQ(network.States(), (Lines{"4", "4"}));
}

TEST(FindBestPath, FindsTheChainBrokenAtOnceForALoneArcBehindTheStart) {
    CostedNetwork network({{2, 3, 10}});
    ExpectDeadEnd(network, kBrokenChain);
    EXPECT_EQ(network.States(), Lines{"4"});
}

TEST(FindBestPath, PassesOverAStartBehindTheFirstNodeWhenItIsDearer) {
    CostedNetwork network({{2, 3, 10}, {1, 4, 12}, {3, 4, 5}});
    ExpectSolved(network);
    EXPECT_EQ(network.States(), (Lines{"1", "4", "1"}));
}

TEST(FindBestPath, NeedsAFeasiblePathwayAndElseLeavesTheTables) {
    CostedNetwork network({{1, 2, 10, 2}});
    RecordSet labels = network.Form.OpenWorkingCopy().OpenRecordSet(test::kAllLabels);
    labels.AddNew();
    labels.Set("ThisPath", 5);
    labels.Update();
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { network.Search(); });
    EXPECT_EQ(network.Labels(), Lines{"5|0|0|0"});
    EXPECT_TRUE(network.Form.Events.empty());
}

TEST(FindBestPath, KeepsTheLastChoiceWhenTheSearchFails) {
    // Only the state 4 of the last run is a candidate, and its arc has no end node to read.
    CostedNetwork network({{1, 2, 10, 4}});
    RecordSet arcs = network.Form.OpenWorkingCopy().OpenRecordSet(test::kAllArcs);
    arcs.Delete();
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { network.Search(); });
    EXPECT_EQ(network.States(), Lines{"4"});
}

}  // namespace
}  // namespace quarnel02
