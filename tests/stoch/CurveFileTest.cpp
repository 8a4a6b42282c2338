// Writing cost curves: neighbours on one line are joined, and a table has an end.

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "basic/Files.h"
#include "stoch/CurveFile.h"
#include "stoch/Notices.h"
#include "stoch/Records.h"
#include "support/StochDesk.h"
#include "support/StochModels.h"

namespace quarnel02 {
namespace {

float After(float volume) {
    return std::nextafter(volume, 1e30F);
}

/// A curve's file, written in one go.
class Table {
  public:
    std::optional<float> Write(const std::vector<ArcSegment>& segments) {
        CurveWriter<ArcSegment> file(Path());
        for (const ArcSegment& segment : segments) {
            file.Write(segment);
        }
        return file.Close();
    }
    [[nodiscard]] std::vector<ArcSegment> Read() const {
        std::vector<ArcSegment> segments;
        for (CurveReader<ArcSegment> file(Path()); !file.AtEnd(); file.Advance()) {
            segments.push_back(file.Current());
        }
        return segments;
    }

  private:
    [[nodiscard]] std::filesystem::path Path() const { return m_directory.Path() / "IT11"; }
    TemporaryDirectory m_directory;
};

/// A step per record, none of which can be joined.
std::vector<ArcSegment> Steps(int count) {
    std::vector<ArcSegment> steps;
    float start = 1000;
    for (int step = 0; step < count; ++step) {
        const float end = start + 1;
        const float cost = step % 2 == 0 ? 10 : 20;
        steps.push_back({start, end, cost, cost, 4097});
        start = After(end);
    }
    return steps;
}

TEST(CurveWriter, JoinsNeighboursOnOneLineWithTheSameChoice) {
    Table table;
    EXPECT_EQ(table.Write({{100, 200, 5, 5, 4097}, {After(200), 300, 5, 5, 4097}}), std::nullopt);
    const auto segments = table.Read();
    ASSERT_EQ(segments.size(), 1U);
    EXPECT_EQ(segments[0].SegStart, 100);
    EXPECT_EQ(segments[0].SegEnd, 300);
}

TEST(CurveWriter, KeepsNeighboursApartThatDifferInChoiceOrSlopeOrJump) {
    const std::vector<ArcSegment> first = {{100, 200, 10, 20, 4097}};
    for (const ArcSegment& next : {ArcSegment{After(200), 300, 20, 30, 4098},     // choice
                                   ArcSegment{After(200), 300, 20, 40, 4097},     // slope
                                   ArcSegment{After(200), 300, 21, 31, 4097}}) {  // jump
        Table table;
        table.Write({first[0], next});
        EXPECT_EQ(table.Read().size(), 2U);
    }
}

TEST(CurveWriter, HoldsTenThousandRecordsAndNoMore) {
    Table table;
    EXPECT_EQ(table.Write(Steps(10000)), std::nullopt);
    EXPECT_EQ(table.Read().size(), 10000U);

    const auto steps = Steps(10500);
    EXPECT_EQ(table.Write(steps), steps[9999].SegEnd);
    const auto kept = table.Read();
    ASSERT_EQ(kept.size(), 10000U);
    EXPECT_EQ(kept.back().SegEnd, steps[9999].SegEnd);
}

TEST(CurveWriter, CountsJoinedRecordsOnce) {
    std::vector<ArcSegment> segments;
    float start = 1000;
    for (int step = 0; step < 10500; ++step) {
        segments.push_back({start, start + 1, 10, 10, 4097});
        start = After(start + 1);
    }
    Table table;
    EXPECT_EQ(table.Write(segments), std::nullopt);
    const auto joined = table.Read();
    ASSERT_EQ(joined.size(), 1U);
    EXPECT_EQ(joined[0].SegEnd, segments.back().SegEnd);
}

TEST(Choice, HoldsResourceAndStations) {
    EXPECT_EQ(ToChoice(3, 7), 3 * 4096 + 7);
    for (const auto& [resource, stations] :
         {std::pair(1, 1), std::pair(1, 4095), std::pair(4095, 1), std::pair(4095, 4095)}) {
        EXPECT_EQ(ResourceOf(ToChoice(resource, stations)), resource);
        EXPECT_EQ(StationsOf(ToChoice(resource, stations)), stations);
    }
}

TEST(Notices, NameTheTableAndTheVolume) {
    test::StochDesk desk(test::StagesModel());
    desk.Form.Events.clear();
    NoticeEarlyEnd(desk.Run, "/somewhere/IT12", std::nullopt);
    EXPECT_TRUE(desk.Form.Events.empty());
    NoticeEarlyEnd(desk.Run, "/somewhere/IT12", 1234567.0F);
    EXPECT_EQ(desk.Form.Events,
              std::vector<std::string>{"notice: Table IT12 is full at 10000 records: its cost "
                                       "curve ends at a volume of 1,234,567."});
}

// 21,600,000 s a year and 21,600 s per unit: k stations serve up to 1,000 k units.
TEST(ResourceCurve, EndsWhereItWouldNeedMoreStationsThanAChoiceHolds) {
    test::ModelScript model = test::PenaltyModel();
    model.Matrix = {{1, 1, 21600, 1, 1000}};
    model.Demand = {{1000000, 40}, {2000000, 60}};
    test::StochDesk desk(model);
    desk.BuildDemandTables();
    desk.BuildArc(1, 1);
    float end = 0;
    int stations = 0;
    for (CurveReader<ArcSegment> file(desk.Run.Files.Initial(1, 1)); !file.AtEnd();
         file.Advance()) {
        end = file.Current().SegEnd;
        stations = StationsOf(file.Current().Choice);
    }
    EXPECT_EQ(stations, 4095);
    EXPECT_NEAR(static_cast<double>(end), 4095000, 0.5);
    EXPECT_LT(end, desk.Run.LastVolume);
}

TEST(ResourceCurve, IsMissingWhereEvenTheLowestVolumeNeedsTooMany) {
    test::ModelScript model = test::PenaltyModel();
    model.Matrix = {{1, 1, 21600, 1, 1000}};
    model.Demand = {{5000000, 40}, {6000000, 60}};
    test::StochDesk desk(model);
    desk.BuildDemandTables();
    desk.BuildArc(1, 1);
    EXPECT_FALSE(std::filesystem::exists(desk.Run.Files.Initial(1, 1)));
}

}  // namespace
}  // namespace quarnel02
