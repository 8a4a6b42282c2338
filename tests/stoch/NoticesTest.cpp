// What is said of tables that end early, of rows left out and of a task that cannot be done.

#include "stoch/Notices.h"

#include <gtest/gtest.h>

#include <vector>

namespace quarnel02 {
namespace {

EarlyEnd TooLong(CurveStage stage, int first, int last, int number) {
    return {{stage, first, last, number}, CurveEnd::TooLong, 1234567, false};
}

TEST(NoticeOfAnEarlyEnd, NamesTheTableThatIsFullAndTheVolume) {
    const std::string full =
        " is full at 10000 records: its cost curve ends at a volume of 1,234,567.";
    EXPECT_EQ(NoticeOf(TooLong(CurveStage::Arc, 1, 12, 0)), "Table IT112" + full);
    EXPECT_EQ(NoticeOf(TooLong(CurveStage::Candidate, 1, 12, 3)), "Table Temp3" + full);
    EXPECT_EQ(NoticeOf(TooLong(CurveStage::Prefix, 1, 12, 0)), "Table Final12" + full);
    EXPECT_EQ(NoticeOf(TooLong(CurveStage::WithPenalties, 1, 12, 0)), "Table Final12" + full);
}

TEST(NoticeOfAnEarlyEnd, SaysWhereStationsRunOut) {
    const CurveName table{CurveStage::Resource, 1, 12, 3};
    EXPECT_EQ(NoticeOf({table, CurveEnd::TooManyStations, 4095000, false}),
              "Table F1T12.R3 is full at 4095 parallel stations: its cost curve ends at a volume "
              "of 4,095,000.");
    EXPECT_EQ(NoticeOf({table, CurveEnd::TooManyStations, 4096000, true}),
              "Table F1T12.R3 is not made: 4095 parallel stations are not enough for a volume of "
              "4,096,000.");
}

TEST(NoticeOfRowsLeftOut, CountsThem) {
    EXPECT_EQ(NoticeOfRowsLeftOut(1), "1 demand row without a number left out.");
    EXPECT_EQ(NoticeOfRowsLeftOut(2), "2 demand rows without a number left out.");
}

/// Two tasks, of which a resource has a time for the second one.
LineModel ModelOf(const std::string& description) {
    Resource hand;
    hand.Number = 1;
    return {{},
            {hand},
            {{1, description}, {2, description}},
            std::vector<MatrixRow>{{1, 2, {5, 1, 0}}},
            {}};
}

TEST(ImpossibleTask, WithoutATimeIsNamed) {
    EXPECT_EQ(ImpossibleTaskText(ModelOf(" Screw\tcover "), 1, 1000),
              "Error creating intermediate task table\n\nNo resource can do task 1 (Screw cover): "
              "none has a time for it. Enter one in the task-resource matrix.");
    EXPECT_EQ(ImpossibleTaskText(ModelOf(" "), 1, 1000),
              "Error creating intermediate task table\n\nNo resource can do task 1: none has a "
              "time for it. Enter one in the task-resource matrix.");
}

TEST(ImpossibleTask, OfTooManyStationsIsNamedWithTheLowestVolume) {
    EXPECT_EQ(ImpossibleTaskText(ModelOf("Weld"), 2, 2000000000),
              "Error creating intermediate task table\n\nNo resource can do task 2 (Weld) within "
              "4,095 parallel stations, even for the lowest volume of 2,000,000,000 units a year. "
              "Check its times, the working days and the demand.");
}

}  // namespace
}  // namespace quarnel02
