// Tables that would hold more than 10,000 records end early, and the run says so.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "basic/NumberFormat.h"
#include "support/StochBruteForce.h"
#include "support/StochDesk.h"
#include "support/StochModels.h"
#include "support/StochSolve.h"

namespace quarnel02 {
namespace {

using test::LongTableModel;
using test::StochDesk;

using Lines = std::vector<std::string>;

/// The notices of a design.
Lines NoticesOf(const test::ModelScript& model) {
    StochDesk desk(model);
    desk.Design();
    Lines notices = desk.Form.Events;
    std::erase_if(notices, [](const std::string& each) { return !each.starts_with("notice"); });
    return notices;
}

TEST(LongTables, EndAtTenThousandRecords) {
    StochDesk desk(LongTableModel());
    desk.Design();
    constexpr std::size_t record = 22;
    EXPECT_LT(ReadFile(desk.File("Final2")).size(), 10000 * record);
    EXPECT_EQ(ReadFile(desk.File("Final3")).size(), 10000 * record);
    const float end = desk.Result.ExpectedCosts.End();
    EXPECT_LT(end, desk.Demand.LastVolume());
    EXPECT_EQ(NoticesOf(LongTableModel()),
              Lines{"notice: Table Temp1 is full at 10000 records: its cost curve ends at a volume "
                    "of " +
                    Format(static_cast<double>(end), "#,##0") + "."});
}

// 21,600,000 s a year and 21,600 s per unit: k stations serve up to 1,000 k units.
test::ModelScript ManyStations(float volume) {
    test::ModelScript model = test::PenaltyModel();
    model.Matrix = {{1, 1, 21600, 1, 1000}};
    model.Demand = {{1000000, 40}, {volume, 60}};
    return model;
}

TEST(EarlyEnds, AreNoticedWhereStationsRunOut) {
    EXPECT_EQ(NoticesOf(ManyStations(1365100)),  // 3 times that is 4,095,300
              Lines{"notice: Table F1T1.R1 is full at 4095 parallel stations: its "
                    "cost curve ends at a volume of 4,095,000."});
}

TEST(EarlyEnds, AreNotNoticedWhereStationsJustDo) {
    EXPECT_EQ(NoticesOf(ManyStations(1365000)), Lines{});
}

TEST(EarlyEnds, AreNoticedWhereStationsRunOutFromTheStart) {
    test::ModelScript model = ManyStations(6000000);
    model.Demand[0].Volume = 4096000;
    EXPECT_EQ(NoticesOf(model), Lines{"notice: Table F1T1.R1 is not made: 4095 parallel stations "
                                      "are not enough for a volume of 4,096,000."});
}

TEST(EarlyEnds, OfAResourceThatNoLimitWouldDoDoNotEndTheRun) {
    test::ModelScript model = test::StagesModel();
    model.Resources.push_back({"Slow", 0, 1});
    model.Matrix.push_back({3, 1, 1e9, 1, 0});  // more than 32,767 stations
    test::StochSolve solve(model, "2");
    solve.Press();
    EXPECT_EQ(
        solve.EventsOf({"notice", "message"}),
        Lines{"notice: Table F1T1.R3 is not made: 4095 parallel stations are not enough for a "
              "volume of 100,000."});
    EXPECT_EQ(solve.Files(), Lines{"ProdRpt.txt"});
    EXPECT_NE(solve.ProductionReport().find("Total Cost: $146,000"), std::string::npos);
}

TEST(LongTables, StillGiveTheBestOfWhatTheyHold) {
    StochDesk desk(LongTableModel(), "0.5");
    desk.Design();
    const float end = desk.Result.ExpectedCosts.End();
    const test::StochBruteForce truth(LongTableModel(), 0.5);
    EXPECT_LE(desk.Line().Capacity, end);
    const double cost = static_cast<double>(desk.Line().ExpectedCost);
    const auto truth_at = [&](float volume) {
        return *truth.DesignCost(3, volume) + truth.Penalty(volume);
    };
    EXPECT_NEAR(cost, truth_at(desk.Line().Capacity), 1e-6 * cost);
    for (float volume = truth.FirstVolume(); volume <= end; volume += end / 199) {
        EXPECT_LE(cost, truth_at(volume) * (1 + 1e-6)) << volume;
    }
}

TEST(LongTables, AreNoticedOnceInAWholeRun) {
    test::StochSolve solve(LongTableModel());
    solve.Press();
    const auto notices = solve.EventsOf({"notice"});
    ASSERT_EQ(notices.size(), 1U);
    EXPECT_TRUE(notices[0].starts_with("notice: Table Temp1 is full at 10000 records"));
    EXPECT_EQ(solve.Files(), Lines{"ProdRpt.txt"});
}

}  // namespace
}  // namespace quarnel02
