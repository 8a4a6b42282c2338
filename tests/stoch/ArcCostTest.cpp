// With one certain demand v the cost curve is the fixed-demand cost model: capacity v works three
// shifts, 1.5 v two and 3 v one.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "line/CostModel.h"
#include "stoch/ArcCost.h"
#include "stoch/CurveFile.h"
#include "support/StochBruteForce.h"
#include "support/StochDesk.h"
#include "support/StochModels.h"

namespace quarnel02 {
namespace {

using test::Dice;
using test::ModelScript;
using test::StochDesk;

PathwayCost FixedCostOf(const StochRun& run, int resource, int start, int end, double demand,
                        std::int16_t shifts) {
    std::vector<MatrixEntry> by_task;
    for (int task = start; task <= end; ++task) {
        by_task.push_back(run.Pair(resource, task));
    }
    const WorkContent content =
        ContentOf(by_task, run.ResourceOf(resource), run.Parameters.TransportTime);
    return CostOfGroup(content, run.ResourceOf(resource), run.Parameters,
                       {demand, shifts, run.Parameters.Days * shifts * 8 * 3600 / demand});
}

ArcSegment SegmentAt(const std::filesystem::path& table, float volume) {
    CurveReader<ArcSegment> file(table);
    while (!file.AtEnd() && file.Current().SegEnd < volume) {
        file.Advance();
    }
    return file.AtEnd() ? ArcSegment{} : file.Current();
}

void ExpectFixedCosts(const StochRun& run, int resource, int start, int end, double demand) {
    const auto table = run.Files.Resource(start, end, resource);
    for (const auto& [shifts, factor] : {std::pair(3, 1.0), std::pair(2, 1.5), std::pair(1, 3.0)}) {
        SCOPED_TRACE(table.filename().string() + " shifts " + std::to_string(shifts));
        const auto capacity = static_cast<float>(factor * demand);
        const PathwayCost fixed =
            FixedCostOf(run, resource, start, end, demand, static_cast<std::int16_t>(shifts));
        const ArcSegment segment = SegmentAt(table, capacity);
        EXPECT_EQ(static_cast<float>(CostAt(segment, capacity)), fixed.Cost);
        EXPECT_EQ(ResourceOf(segment.Choice), resource);
        EXPECT_EQ(StationsOf(segment.Choice), fixed.Stations);
    }
}

TEST(ArcCost, EqualsTheFixedDemandCostOfACertainDemand) {
    constexpr int models = 60;
    Dice dice(7);
    int compared = 0;
    for (int number = 0; number < models; ++number) {
        ModelScript model = test::RandomStochModel(dice);
        const double demand = dice(20, 4000) * 100.0;
        model.Demand = {{demand, 100}};
        StochDesk desk(model);
        desk.BuildDemandTables();
        for (int resource = 1; resource <= desk.Run.Resources; ++resource) {
            desk.Run.StartTask = 1;
            desk.Run.EndTask = dice(1, model.Tasks);
            BuildResourceTables(desk.Run);
            if (ContentOfArc(desk.Run, resource, 1, desk.Run.EndTask)) {
                ExpectFixedCosts(desk.Run, resource, 1, desk.Run.EndTask, demand);
                ++compared;
            }
        }
    }
    EXPECT_GT(compared, models / 2);
}

TEST(ArcCost, OfTheWorkedExample) {
    ModelScript model = test::WorkedExample();
    model.Demand = {{100000, 100}};
    StochDesk desk(model);
    desk.BuildDemandTables();
    desk.BuildArc(1, 2);
    // One shift for 100,000 units: capacity 300,000 needs one station of 61.111 s within 72 s.
    // 0.3 x 12,600 + 30,555.56 + 30,000
    const ArcSegment segment = SegmentAt(desk.Run.Files.Initial(1, 2), 300000);
    EXPECT_NEAR(CostAt(segment, 300000), 64335.55, 0.01);
    EXPECT_EQ(StationsOf(segment.Choice), 1);
}

TEST(ArcCost, ASharedToolIsPaidAtTheCostOfTheFirstTaskWhateverTheOrderOfEntry) {
    ModelScript model = test::WorkedExample();
    model.Tasks = 4;
    model.Matrix = {{1, 1, 30, 2, 500}, {1, 2, 20, 1, 300}, {1, 3, 10, 2, 900}, {1, 4, 5, 1, 40}};
    model.Demand = {{100000, 50}, {200000, 50}};
    const auto by_task = [](const test::MatrixRow& a, const test::MatrixRow& b) {
        return a.Task < b.Task;
    };
    do {
        StochDesk desk(model);
        desk.BuildDemandTables();
        EXPECT_EQ(ContentOfArc(desk.Run, 1, 1, 4)->ToolCostSum, 800);
        EXPECT_EQ(ContentOfArc(desk.Run, 1, 2, 4)->ToolCostSum, 1200);
        EXPECT_EQ(ContentOfArc(desk.Run, 1, 3, 4)->ToolCostSum, 940);
    } while (std::next_permutation(model.Matrix.begin(), model.Matrix.end(), by_task));
}

TEST(ArcCost, APairWithoutATimeCannotBeDone) {
    const ModelScript model = test::WorkedExample();
    for (const char* nothing : {"0", "NULL"}) {
        const std::string sql = model.Sql() + "UPDATE Matrix SET TaskTime = " + nothing +
                                ", ToolNum = NULL, ToolCost = NULL WHERE TaskId = 2;";
        StochDesk desk(sql);
        LoadStochData(desk.Run);
        EXPECT_TRUE(ContentOfArc(desk.Run, 1, 1, 1).has_value());
        EXPECT_FALSE(ContentOfArc(desk.Run, 1, 2, 2).has_value()) << nothing;
        EXPECT_FALSE(ContentOfArc(desk.Run, 1, 1, 2).has_value()) << nothing;
    }
}

/// Times in tenths of a second that fill a cycle of a round time exactly.
std::vector<double> FillingTimes(Dice& dice, int tenths) {
    std::vector<double> times;
    for (const int parts = dice(2, 6); static_cast<int>(times.size()) < parts - 1;) {
        const int share = dice(1, tenths - (parts - static_cast<int>(times.size())));
        times.push_back(share / 10.0);
        tenths -= share;
    }
    times.push_back(tenths / 10.0);
    return times;
}

TEST(ArcCost, AStationThatIsExactlyFullIsFull) {
    Dice dice(11);
    for (int number = 0; number < 100; ++number) {
        const int cycle = 60 * dice(1, 5);
        const int stations = dice(1, 4);
        ModelScript model = test::WorkedExample();
        model.TransportTime = 0;
        model.Resources[0].UpTime = 100;
        model.Resources[0].ToolChange = 0;
        model.Matrix.clear();
        for (const double time : FillingTimes(dice, 10 * cycle * stations)) {
            model.Matrix.push_back({1, static_cast<int>(model.Matrix.size()) + 1, time, 1, 500});
        }
        model.Tasks = static_cast<int>(model.Matrix.size());
        const double volume = model.Days * 3 * 8 * 3600 / cycle;
        model.Demand = {{volume / 3, 50}, {volume, 50}};
        StochDesk desk(model);
        desk.BuildDemandTables();
        desk.BuildArc(1, model.Tasks);
        const ArcSegment segment =
            SegmentAt(desk.Run.Files.Initial(1, model.Tasks), static_cast<float>(volume));
        EXPECT_EQ(StationsOf(segment.Choice), stations) << "model " << number;
    }
}

TEST(ArcCost, OnlyVolumesThatAreMeantUseTheToleranceOfAFullStation) {
    StochDesk desk(test::PenaltyModel());  // k stations serve 100,000 k units
    desk.BuildDemandTables();
    desk.BuildArc(1, 1);
    const auto table = desk.Run.Files.Initial(1, 1);
    EXPECT_EQ(StationsOf(SegmentAt(table, 400000).Choice), 4);
    EXPECT_EQ(StationsOf(SegmentAt(table, 400000.0625F).Choice), 5);
}

TEST(ArcCost, APairNeedsATimeAboveZeroAndSoDoesEveryPairOfAnArc) {
    ModelScript model;
    model.Tasks = 3;
    model.Resources = {{"Hand"}};
    model.Matrix = {{1, 1, 10}, {1, 3, 0}};
    model.Demand = {{1000, 50}, {2000, 50}};
    StochDesk desk(model);
    desk.BuildDemandTables();
    EXPECT_TRUE(ContentOfArc(desk.Run, 1, 1, 1).has_value());
    EXPECT_FALSE(ContentOfArc(desk.Run, 1, 2, 2).has_value());  // no row
    EXPECT_FALSE(ContentOfArc(desk.Run, 1, 3, 3).has_value());  // a time of 0
    EXPECT_FALSE(ContentOfArc(desk.Run, 1, 1, 2).has_value());
    EXPECT_EQ(desk.Run.Pair(1, 2).TaskTime, 0);
    EXPECT_EQ(desk.Run.Pair(1, 2).ToolNum, 0);
    EXPECT_EQ(desk.Run.Pair(1, 2).ToolCost, 0);
}

}  // namespace
}  // namespace quarnel02
