// Tables that would hold more than 10,000 records end early, and the run says so.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "basic/NumberFormat.h"
#include "stoch/CurveFile.h"
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
