// Tables that would hold more than 10,000 records end early, and the run says so.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "basic/NumberFormat.h"
#include "stoch/CurveFile.h"
#include "stoch/RecordFile.h"
#include "stoch/Records.h"
#include "support/StochBruteForce.h"
#include "support/StochDesk.h"
#include "support/StochModels.h"
#include "support/StochSolve.h"

namespace quarnel02 {
namespace {

using test::LongTableModel;
using test::StochDesk;

using Lines = std::vector<std::string>;

std::vector<DesignSegment> DesignsOf(const std::filesystem::path& table) {
    std::vector<DesignSegment> designs;
    for (CurveReader<DesignSegment> file(table); !file.AtEnd(); file.Advance()) {
        designs.push_back(file.Current());
    }
    return designs;
}

/// Of the table that is full at a volume.
std::string NoticeText(const std::string& table, float volume) {
    return "Table " + table + " is full at 10000 records: its cost curve ends at a volume of " +
           Format(static_cast<double>(volume), "#,##0") + ".";
}

TEST(LongTables, EndAtTenThousandRecords) {
    StochDesk desk(LongTableModel());
    desk.Form.Events.clear();
    desk.BuildDemandTables();
    desk.BuildFinalTables();
    EXPECT_LT(DesignsOf(desk.Run.Files.Final(2)).size(), 10000U);
    EXPECT_EQ(DesignsOf(desk.Run.Files.Final(2)).back().SegEnd, desk.Run.LastVolume);
    const auto designs = DesignsOf(desk.Run.Files.Final(3));
    ASSERT_EQ(designs.size(), 10000U);
    EXPECT_LT(designs.back().SegEnd, desk.Run.LastVolume);
    EXPECT_EQ(desk.Form.Events, Lines{"notice: " + NoticeText("Temp1", designs.back().SegEnd)});
}

/// A curve of flat steps, the even ones at `even` dollars and the odd ones at `odd`.
template <class Segment>
void WriteSteps(const std::filesystem::path& path, int steps, float even, float odd) {
    RecordWriter<Segment> file(path);
    for (int step = 0; step < steps; ++step) {
        Segment segment{};
        segment.SegStart = step == 0 ? 100000.0F : NextSingle(100000.0F + static_cast<float>(step));
        segment.SegEnd = 100001.0F + static_cast<float>(step);
        segment.CostStart = segment.CostEnd = step % 2 == 0 ? even : odd;
        file.Write(segment);
    }
    file.Close();
}

/// Two curves whose lower envelope changes from one to the other at each of 12,000 steps.
template <class Segment>
void WriteRivals(const std::filesystem::path& first, const std::filesystem::path& second) {
    WriteSteps<Segment>(first, 12000, 1, 3);
    WriteSteps<Segment>(second, 12000, 4, 2);
}

TEST(EarlyEnds, AreNoticedWhereResourceTablesAreMerged) {
    StochDesk desk(test::StagesModel());
    LoadStochData(desk.Run);
    desk.Run.StartTask = 1;
    desk.Run.EndTask = 2;
    WriteRivals<ArcSegment>(desk.Run.Files.Resource(1, 2, 1), desk.Run.Files.Resource(1, 2, 2));
    desk.Form.Events.clear();
    BuildInitialTable(desk.Run);
    EXPECT_EQ(desk.Form.Events, Lines{"notice: " + NoticeText("IT12", 110000)});
}

TEST(EarlyEnds, AreNoticedWhereCandidatesAreMerged) {
    StochDesk desk(test::StagesModel());
    desk.Run.EndTask = 2;
    WriteRivals<DesignSegment>(desk.Run.Files.Candidate(1), desk.Run.Files.Candidate(2));
    desk.Form.Events.clear();
    BuildFinalTable(desk.Run, 3);
    EXPECT_EQ(desk.Form.Events, Lines{"notice: " + NoticeText("Final2", 110000)});
}

TEST(EarlyEnds, AreNoticedWhereAnArcIsAddedToDesigns) {
    StochDesk desk(test::StagesModel());
    desk.Run.EndTask = 2;
    WriteSteps<ArcSegment>(desk.Run.Files.Initial(2, 2), 9000, 1, 3);
    WriteSteps<DesignSegment>(desk.Run.Files.Final(1), 9000, 1, 3);
    desk.Form.Events.clear();
    BuildIntermediateTable(desk.Run);
    EXPECT_EQ(desk.Form.Events, Lines{});
    WriteSteps<ArcSegment>(desk.Run.Files.Initial(2, 2), 12000, 1, 3);
    WriteSteps<DesignSegment>(desk.Run.Files.Final(1), 12000, 1, 3);
    BuildIntermediateTable(desk.Run);
    EXPECT_EQ(desk.Form.Events, Lines{"notice: " + NoticeText("Temp1", 110000)});
}

TEST(EarlyEnds, AreNoticedWherePenaltiesAreAdded) {
    StochDesk desk(test::StagesModel(), "2");
    desk.BuildDemandTables();
    WriteSteps<DesignSegment>(desk.Run.Files.Final(2), 12000, 1, 3);
    desk.Form.Events.clear();
    AddExpectedPenalties(desk.Run);
    EXPECT_EQ(desk.Form.Events, Lines{"notice: " + NoticeText("Final2", 110000)});
}

// 21,600,000 s a year and 21,600 s per unit: k stations serve up to 1,000 k units.
test::ModelScript ManyStations(double volume) {
    test::ModelScript model = test::PenaltyModel();
    model.Matrix = {{1, 1, 21600, 1, 1000}};
    model.Demand = {{1000000, 40}, {volume, 60}};
    return model;
}

TEST(EarlyEnds, AreNoticedWhereStationsRunOut) {
    StochDesk desk(ManyStations(1365100));  // 3 times that is 4,095,300
    desk.BuildDemandTables();
    desk.Form.Events.clear();
    desk.BuildArc(1, 1);
    EXPECT_EQ(desk.Form.Events,
              Lines{"notice: Table F1T1.R1 is full at 4095 parallel stations: its "
                    "cost curve ends at a volume of 4,095,000."});
}

TEST(EarlyEnds, AreNotNoticedWhereStationsJustDo) {
    StochDesk desk(ManyStations(1365000));
    desk.BuildDemandTables();
    desk.Form.Events.clear();
    desk.BuildArc(1, 1);
    EXPECT_EQ(desk.Form.Events, Lines{});
}

TEST(EarlyEnds, AreNoticedWhereStationsRunOutFromTheStart) {
    test::ModelScript model = ManyStations(6000000);
    model.Demand[0].first = 4096000;
    StochDesk desk(model);
    desk.BuildDemandTables();
    desk.Form.Events.clear();
    desk.BuildArc(1, 1);
    EXPECT_EQ(desk.Form.Events, Lines{"notice: Table F1T1.R1 is not made: 4095 parallel stations "
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
    desk.Solve();
    const float end = DesignsOf(desk.Run.Files.Final(3)).back().SegEnd;
    const test::StochBruteForce truth(LongTableModel(), 0.5);
    EXPECT_LE(desk.Run.Capacity, end);
    const double cost = static_cast<double>(desk.Run.ExpectedCost);
    const auto truth_at = [&](float volume) {
        return *truth.DesignCost(3, volume) + truth.Penalty(volume);
    };
    EXPECT_NEAR(cost, truth_at(desk.Run.Capacity), 1e-6 * cost);
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
