// A line as a table, and how its figures are computed.

#include "study/LineTable.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <numeric>
#include <string>
#include <vector>

#include "line/CheapestLine.h"
#include "line/RandomLine.h"
#include "study/CostBasis.h"
#include "study/FigureText.h"
#include "study/HowComputed.h"
#include "study/StationTime.h"
#include "study/VolumePieces.h"
#include "support/ModelScript.h"

namespace quarnel02 {
namespace {

using test::Roll;

RC_GTEST_PROP(TablesOfRandomLines, SayWhatTheDesignSays, ()) {
    const PreparedLine line = Prepare(test::RandomModel(Roll(7, 10)).Model());
    const FixedDemandRequest request = test::RandomRequest(line.Model);
    const auto design = CheapestLine(line, request);
    RC_PRE(design.has_value());
    const LineTable table =
        TableOf(line.Model, GroupsOf(*design), BasisOf(request, line.Model.Parameters()));
    RC_ASSERT(table.Rows.size() == design->Groups.size());
    double shares = 0;
    for (std::size_t place = 0; place < table.Rows.size(); ++place) {
        const StationRow& row = table.Rows[place];
        const PathwayCost& cost = design->Groups[place].Cost;
        RC_ASSERT(row.Group == design->Groups[place].Group);
        RC_ASSERT(row.Time == static_cast<double>(cost.Time));
        RC_ASSERT(row.Figures.Investment == static_cast<double>(cost.Investment));
        RC_ASSERT(row.Figures.Total == static_cast<double>(cost.Cost));
        RC_ASSERT(std::fabs(row.Time + row.Idle - table.Basis.AvailableCycleTime) <
                  1e-9 * table.Basis.AvailableCycleTime);
        RC_ASSERT(row.Load <= 1 + 2e-6);
        shares += row.Share;
    }
    RC_ASSERT(table.Totals.Total == 0 || std::fabs(shares - 1) < 1e-9);
    RC_ASSERT(std::fabs(table.Totals.Total - static_cast<double>(design->Cost)) <=
              1e-6 * table.Totals.Total);
}

RC_GTEST_PROP(TimesOfRandomStations, AddUpToTheTimeOfTheStation, ()) {
    const PreparedLine line = Prepare(test::RandomModel(Roll(7, 10)).Model());
    const FixedDemandRequest request = test::RandomRequest(line.Model);
    const auto design = CheapestLine(line, request);
    RC_PRE(design.has_value());
    for (const LineGroup& group : design->Groups) {
        const std::vector<TimePart> parts = TimePartsOf(line.Model, group.Group);
        const double sum = std::accumulate(
            parts.begin(), parts.end(), 0.0,
            [](double before, const TimePart& part) { return before + part.Seconds; });
        const auto time = static_cast<double>(group.Cost.Time);
        RC_ASSERT(std::fabs(sum - time) <= 2e-6 * time);
        for (const TimePart& part : parts) {
            RC_ASSERT(part.Seconds >= 0);
        }
    }
}

/// A bench for tasks 1 to 3 with tools 1, 2, 2, and a robot for task 4.
LineModel BenchAndRobot() {
    test::ModelScript model;
    model.Tasks = 4;
    model.TransportTime = 3;
    model.Penalty = 1.5;
    model.Resources = {{"Bench", 0, 1000, 0, 100, 1, 5, 1}, {"Robot", 2, 40000, 9, 80, 1.25, 0, 4}};
    model.Matrix = {
        {1, 1, 20, 1, 100}, {1, 2, 30, 2, 250}, {1, 3, 10, 2, 999}, {2, 4, 16, 7, 2000}};
    model.Demand = {{60000, 50}, {120000, 50}};
    return model.Model();
}

const std::vector<StationGroup> kBenchAndRobot = {{1, 1, 3, 1}, {2, 4, 4, 1}};

LineTable FixedTable() {
    return TableOf(BenchAndRobot(), kBenchAndRobot,
                   BasisOf(FixedDemandRequest{100000, 1, {}}, BenchAndRobot().Parameters()));
}

TEST(LineTable, HasStationsWithTimesAndCosts) {
    const LineTable table = FixedTable();
    // 250 days x 28,800 s / 100,000 units = 72 s.
    ASSERT_EQ(table.Rows.size(), 2U);
    const StationRow& bench = table.Rows[0];
    EXPECT_EQ(bench.Resource, "Bench");
    EXPECT_EQ(bench.Tools, (std::vector<int>{1, 2}));
    EXPECT_EQ(bench.Time, 70);  // 20 + 30 + 5 + 10, and 5 back to tool 1
    EXPECT_EQ(bench.Idle, 2);
    EXPECT_DOUBLE_EQ(bench.Load, 70.0 / 72);
    EXPECT_EQ(bench.Figures.Investment, 1350);
    EXPECT_EQ(bench.Figures.Capital, 337.5);
    EXPECT_EQ(bench.Figures.Machine, 0);
    EXPECT_EQ(bench.Figures.Labour, 40000);
    EXPECT_EQ(bench.Figures.Total, 40337.5);
    const StationRow& robot = table.Rows[1];
    EXPECT_EQ(robot.Time, 23.75);  // 16 / 0.8 + 3 / 0.8
    EXPECT_EQ(robot.Figures.Investment, 52500);
    EXPECT_DOUBLE_EQ(robot.Figures.Machine, 4750);
    EXPECT_EQ(robot.Figures.Labour, 10000);
    EXPECT_EQ(table.Totals.Total, 40337.5 + 27875);
    EXPECT_EQ(table.Stations, 2);
    EXPECT_EQ(table.CycleTime, 70);
    EXPECT_DOUBLE_EQ(robot.Share, 27875 / 68212.5);
}

TEST(StationTime, TellsTasksToolsTransportAndUptimeApart) {
    const std::vector<TimePart> bench = TimePartsOf(BenchAndRobot(), {1, 1, 3, 2});
    ASSERT_EQ(bench.size(), 6U);
    EXPECT_EQ(bench[0].Seconds, 10);
    EXPECT_EQ(bench[1].Task, 2);
    EXPECT_EQ(bench[1].Seconds, 15);
    EXPECT_EQ(bench[3].Kind, TimeKind::ToolChange);
    EXPECT_EQ(bench[3].Seconds, (5 + 2) / 2.0);
    EXPECT_EQ(bench[4].Kind, TimeKind::Transport);
    EXPECT_EQ(bench[4].Seconds, 1.5);
    EXPECT_EQ(bench[5].Seconds, 0);
    const std::vector<TimePart> robot = TimePartsOf(BenchAndRobot(), {2, 4, 4, 1});
    EXPECT_EQ(robot[3].Kind, TimeKind::UptimeLoss);
    EXPECT_DOUBLE_EQ(robot[3].Seconds, 4.75);
}

TEST(HowComputed, GoesStepByStep) {
    const LineTable table = FixedTable();
    EXPECT_EQ(
        HowComputed(BenchAndRobot(), table.Rows[0], 1, table.Basis),
        "Station 1: Bench 1-3\n"
        "Task 1: 20 s / 100 % uptime = 20 s\n"
        "Task 2: 30 s / 100 % uptime = 30 s\n"
        "Tool 2 after tool 1: tool change 5 s\n"
        "Task 3: 10 s / 100 % uptime = 10 s\n"
        "End of the cycle: the longer one of transport 3 s and tool change to the first tool "
        "5 s; 5 s / 100 % uptime = 5 s\n"
        "Work time, the sum: 70 s per unit\n"
        "Available cycle time: 250 days x 1 shift x 8 h x 3,600 s / 100,000 units = 72 s\n"
        "Stations: 70 s / 72 s = 0.9722, rounded up: 1\n"
        "Time of one station: 70 s / 1 = 70 s; load 70 / 72 = 97.2222 %, idle 2 s\n"
        "Tools: 100 $ (tool 1) + 250 $ (tool 2) = 350 $ per station\n"
        "Investment: 1 station x (350 $ tools + 1,000 $) x 1 investment factor (ICF) = 1,350 $\n"
        "Capital: 1,350 $ x 0.25 annual capital factor (ACF) = 337.5 $ per year\n"
        "Machine: 0 $/h / 3,600 s x 100,000 units x 70 s x 100 % uptime = 0 $ per year\n"
        "Labour: 1 station x 1 shift x 8 h x 250 days x 20 $/h / 1 station per worker = "
        "40,000 $ per year\n"
        "Total: 337.5 $ + 0 $ + 40,000 $ = 40,337.5 $ per year\n");
}

TEST(HowComputed, AddsTheStationsUp) {
    EXPECT_EQ(HowComputed(BenchAndRobot(), FixedTable()),
              "Available cycle time: 250 days x 1 shift x 8 h x 3,600 s / 100,000 units = 72 s\n"
              "Cycle time: 70 s, of the slowest station\n"
              "Investment: 1,350 $ + 52,500 $ = 53,850 $\n"
              "Capital per year: 337.5 $ + 13,125 $ = 13,462.5 $\n"
              "Machine per year: 0 $ + 4,750 $ = 4,750 $\n"
              "Labour per year: 40,000 $ + 10,000 $ = 50,000 $\n"
              "Total per year: 40,337.5 $ + 27,875 $ = 68,212.5 $\n");
}

TEST(HowComputed, ExplainsWhatIsExpectedAtACapacity) {
    // A capacity of 90,000 is met by 60,000 units in two shifts and by 120,000 in three.
    const LineModel model = BenchAndRobot();
    const DemandDistribution demand(model.Demand());
    const LineTable table =
        TableOf(model, kBenchAndRobot, BasisOf(demand, 90000, model.Parameters()));
    EXPECT_EQ(table.Basis.Units, 75000);
    EXPECT_EQ(table.Basis.Shifts, 2.5);
    EXPECT_EQ(table.Basis.AvailableCycleTime, 240);
    EXPECT_EQ(table.Rows[1].Figures.Labour, 25000);
    EXPECT_EQ(HowComputed(model, table),
              "Capacity: 90,000 units per year with 3 shifts\n"
              "Expected production: 50 % x 60,000 + 50 % x 90,000 = 75,000 units per year\n"
              "Expected shifts: 50 % x 2 + 50 % x 3 = 2.5 per day\n"
              "Expected penalty: 15,000 units not made x 1.5 $ = 22,500 $ per year\n"
              "Available cycle time: 250 days x 3 shifts x 8 h x 3,600 s / 90,000 units = 240 s\n"
              "Cycle time: 70 s, of the slowest station\n"
              "Investment: 1,350 $ + 52,500 $ = 53,850 $\n"
              "Capital per year: 337.5 $ + 13,125 $ = 13,462.5 $\n"
              "Machine per year: 0 $ + 3,562.5 $ = 3,562.5 $\n"
              "Labour per year: 100,000 $ + 25,000 $ = 125,000 $\n"
              "Total per year: 100,337.5 $ + 41,687.5 $ = 142,025 $\n");
    EXPECT_NE(HowComputed(model, table.Rows[1], 2, table.Basis)
                  .find("75,000 units expected x 23.75 s x 80 % uptime = 3,562.5 $ per year\n"),
              std::string::npos);
    EXPECT_NE(HowComputed(model, table.Rows[1], 2, table.Basis).find("x 2.5 shifts expected x 8 h"),
              std::string::npos);
}

TEST(HowComputed, SaysWhereAStationIsFullByTolerance) {
    // 70 s of 70.00003 s... the other way round: 102,857.2 units leave 69.99997 s.
    const FixedDemandRequest request{102857.2, 1, {}};
    const LineTable table =
        TableOf(BenchAndRobot(), kBenchAndRobot, BasisOf(request, BenchAndRobot().Parameters()));
    EXPECT_LT(table.Rows[0].Idle, 0);
    EXPECT_NE(HowComputed(BenchAndRobot(), table.Rows[0], 1, table.Basis)
                  .find("rounded up: 1 (over by no more than one part in a million)\n"),
              std::string::npos);
}

TEST(FigureText, HasAtMostFourDecimals) {
    EXPECT_EQ(FigureText(0), "0");
    EXPECT_EQ(FigureText(12), "12");
    EXPECT_EQ(FigureText(1234567.5), "1,234,567.5");
    EXPECT_EQ(FigureText(-2.00004), "-2");
    EXPECT_EQ(FigureText(1.0 / 3), "0.3333");
    EXPECT_EQ(FigureText(0.00025), "0.00025");
}

}  // namespace
}  // namespace quarnel02
