#include "line/CheapestLine.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/ModelScript.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::ModelScript;
using test::WorkedExample;

PreparedLine WorkedLine() {
    return Prepare(WorkedExample().Model());
}

/// Two presses alike but for what the second one costs.
PreparedLine TwinPresses(double secondCost = 10000) {
    ModelScript model = WorkedExample();
    model.Resources.push_back(model.Resources[0]);
    model.Resources[1].FixedCost = secondCost;
    model.Matrix.push_back({2, 1, 30, 1, 500});
    model.Matrix.push_back({2, 2, 20, 1, 500});
    return Prepare(model.Model());
}

FixedDemandRequest OneShift(double volume) {
    return {volume, 1, {}};
}

FixedDemandRequest Limited(double volume, std::int16_t limit) {
    return {volume, 1, limit};
}

TEST(CheapestLine, PutsBothTasksOfTheWorkedExampleOnOneStation) {
    const auto line = CheapestLine(WorkedLine(), OneShift(100000));
    ASSERT_TRUE(line);
    ASSERT_EQ(line->Groups.size(), 1U);
    EXPECT_EQ(line->Groups[0].Group, (StationGroup{1, 1, 2, 1}));
    EXPECT_EQ(line->Groups[0].Pathway, 2);
    EXPECT_NEAR(line->Groups[0].Cost.Time, 61.111, 0.001);
    EXPECT_EQ(line->Groups[0].Cost.Investment, 12600.0F);
    EXPECT_NEAR(line->Cost, 64335.55, 0.01);
}

TEST(CheapestLine, SetsUpParallelStationsForTwiceTheVolume) {
    // Alone, task 1 takes (30 + 5) / 0.9 = 38.9 s, more than the 36 s that there are: two stations.
    const auto line = CheapestLine(WorkedLine(), OneShift(200000));
    ASSERT_TRUE(line);
    ASSERT_EQ(line->Groups.size(), 1U);
    EXPECT_EQ(line->Groups[0].Group, (StationGroup{1, 1, 2, 2}));
    EXPECT_NEAR(line->Cost, 98115.55, 0.01);
}

TEST(CheapestLine, SplitsTheTasksWhereTheLimitSaysSo) {
    // At 150,000 a unit has 48 s: both tasks take 61.1 s, each alone takes 38.9 and 27.8 s.
    const auto line = CheapestLine(WorkedLine(), Limited(150000, 1));
    ASSERT_TRUE(line);
    ASSERT_EQ(line->Groups.size(), 2U);
    EXPECT_EQ(line->Groups[0].Group, (StationGroup{1, 1, 1, 1}));
    EXPECT_EQ(line->Groups[1].Group, (StationGroup{1, 2, 2, 1}));
    // Machine (20 / 3600) x 150,000 x (35 + 25), labour 2 x 30,000, capital 2 x 3,780.
    EXPECT_NEAR(line->Cost, 50000 + 60000 + 7560, 0.05);
}

TEST(CheapestLine, IsNoneWithinTooNarrowALimit) {
    EXPECT_FALSE(CheapestLine(WorkedLine(), Limited(200000, 1)));
    EXPECT_TRUE(CheapestLine(WorkedLine(), Limited(200000, 2)));
    EXPECT_FALSE(CheapestLine(WorkedLine(), Limited(100000, 0)));
}

TEST(CheapestLine, IsNoneWhenATaskIsLeftOut) {
    ModelScript model = WorkedExample();
    model.Matrix[1].Entry.TaskTime = 0;
    EXPECT_FALSE(CheapestLine(Prepare(model.Model()), OneShift(100000)));
    model.Matrix.clear();
    EXPECT_FALSE(CheapestLine(Prepare(model.Model()), OneShift(100000)));
    EXPECT_FALSE(CheapestLine({}, OneShift(100000)));
}

TEST(CheapestLine, TakesTheFirstOfResourcesAlike) {
    const auto line = CheapestLine(TwinPresses(), OneShift(100000));
    ASSERT_TRUE(line);
    EXPECT_EQ(line->Groups[0].Group.Resource, 1);
    EXPECT_EQ(CheapestLine(TwinPresses(9999), OneShift(100000))->Groups[0].Group.Resource, 2);
}

TEST(CheapestLine, KeepsTasksTogetherWhereAllSplitsCostTheSame) {
    ModelScript free = WorkedExample();
    free.Resources = {{"Free"}};
    free.Matrix = {{1, 1, 5, 1}, {1, 2, 5, 1}};
    const auto line = CheapestLine(Prepare(free.Model()), {1000, 0, {}});
    EXPECT_FALSE(line) << "without shifts there is no time";
    free.LaborCost = 0;
    const auto all_free = CheapestLine(Prepare(free.Model()), OneShift(1000));
    ASSERT_TRUE(all_free) << "nodes reached at no cost are reached";
    EXPECT_EQ(all_free->Cost, 0.0F);
    ASSERT_EQ(all_free->Groups.size(), 1U);
    EXPECT_EQ(all_free->Groups[0].Group, (StationGroup{1, 1, 2, 1}));
}

TEST(CheapestLine, RefusesVolumesThatAreNoVolumes) {
    const PreparedLine line = WorkedLine();
    EXPECT_EQ(test::ExpectRunTimeError(ErrorKind::DivisionByZero,
                                       [&] { CheapestLine(line, OneShift(0)); }),
              "Fixed Demand is 0. Enter an annual volume above 0.");
    EXPECT_EQ(
        test::ExpectRunTimeError(ErrorKind::Overflow, [&] { CheapestLine(line, OneShift(-5)); }),
        "Fixed Demand: -5 is negative. Enter an annual volume above 0.");
}

TEST(CostAll, TellsPathwaysOverTheLimitButCostsThem) {
    const CostedPathways costed = CostAll(WorkedLine(), Limited(150000, 1));
    ASSERT_EQ(costed.States.size(), 3U);
    EXPECT_EQ(costed.States[0], PathwayState::Feasible);
    EXPECT_EQ(costed.States[1], PathwayState::OverLimit);
    EXPECT_EQ(costed.Costs[1].Stations, 2);
    EXPECT_GT(costed.Costs[1].Cost, 0.0F);
}

TEST(CostAll, PutsMoreStationsThanCanBeCountedOverEveryLimit) {
    // 61 s of work in the 7.2 million seconds of a year: 32,768 stations make under 3.9e9 units.
    const CostedPathways costed = CostAll(WorkedLine(), OneShift(4e9));
    EXPECT_EQ(costed.States[1], PathwayState::OverLimit);
    EXPECT_EQ(costed.Costs[1].Stations, 32767);
}

TEST(CheapestWays, AreOnePerArcByEndAndStart) {
    const PreparedLine line = TwinPresses(9999);
    CostedPathways costed = CostAll(line, OneShift(100000));
    const std::vector<Way> ways = CheapestWays(line, costed);
    // Pathways 1 to 3 are those of the first press, 4 to 6 of the second: task 1, 1 and 2, task 2.
    ASSERT_EQ(ways.size(), 3U);
    EXPECT_EQ(ways[0], (Way{4, 1, 2, static_cast<double>(costed.Costs[3].Cost)}));
    EXPECT_EQ(ways[1], (Way{5, 1, 3, static_cast<double>(costed.Costs[4].Cost)}));
    EXPECT_EQ(ways[2], (Way{6, 2, 3, static_cast<double>(costed.Costs[5].Cost)}));
    MarkDearer(costed.States, ways);
    for (std::size_t place = 0; place < 3; ++place) {
        EXPECT_EQ(costed.States[place], PathwayState::Dearer);
        EXPECT_EQ(costed.States[place + 3], PathwayState::Feasible);
    }
}

TEST(MarkDearer, LeavesPathwaysOverTheLimitAlone) {
    const PreparedLine line = WorkedLine();
    CostedPathways costed = CostAll(line, Limited(150000, 1));
    MarkDearer(costed.States, CheapestWays(line, costed));
    EXPECT_EQ(costed.States[1], PathwayState::OverLimit);
    EXPECT_EQ(costed.States[2], PathwayState::Feasible);
}

}  // namespace
}  // namespace quarnel02
