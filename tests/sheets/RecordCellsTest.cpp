#include "sheets/RecordCells.h"

#include <gtest/gtest.h>

#include "sheets/BlockShape.h"
#include "sheets/SheetModels.h"

namespace quarnel02 {
namespace {

using test::SmallModel;

constexpr std::size_t kFixedCost = 3;
constexpr std::size_t kUptime = 5;
constexpr std::size_t kType = 9;

CellEdit SetResources(std::size_t row, std::size_t column, const TextBlock& block) {
    return SetRecordCells(SmallModel(), RecordKind::Resources, row, column, block);
}

TEST(RecordCells, ShowEveryFieldInTheOrderOfTheWindow) {
    EXPECT_EQ(RecordTexts(SmallModel(), RecordKind::Resources, {0, 0, 1, 10}),
              (TextBlock{{"1", "   ", "R1", "0", "0", "100", "1", "1", "1", "MNL"}}));
    EXPECT_EQ(RecordTexts(SmallModel(), RecordKind::Tasks, {1, 1, 9, 9}),
              (TextBlock{{"T2"}, {"T3"}}));
}

TEST(RecordCells, SetWhatIsTyped) {
    const CellEdit edit = SetResources(1, kFixedCost, {{"$1,200", "2.5", "95%"}});
    EXPECT_TRUE(edit.Refused.IsEmpty());
    EXPECT_EQ(edit.Cells, 3U);
    EXPECT_EQ(RecordTexts(edit.Tables, RecordKind::Resources, {1, kFixedCost, 1, 3}),
              (TextBlock{{"1200", "2.5", "95"}}));
    InputTables expected = SmallModel();
    expected.Resources[1][ResourceColumn::FixedCost] = 1200.0;
    expected.Resources[1][ResourceColumn::VarCost] = 2.5;
    expected.Resources[1][ResourceColumn::UpTime] = 95.0;
    EXPECT_EQ(edit.Tables, expected);
}

TEST(RecordCells, TakeNamesAsOneLineAndTypesByLetter) {
    const CellEdit edit = SetRecordCells(SmallModel(), RecordKind::Tasks, 0, 1, {{"two\nlines"}});
    EXPECT_EQ(edit.Tables.Tasks[0][TaskColumn::Description], Value(std::string("two lines")));
    EXPECT_EQ(SetResources(0, kType, {{"p"}}).Tables.Resources[0][ResourceColumn::Type],
              Value(std::int64_t{2}));
}

TEST(RecordCells, TheDecimalSignIsThatOfTheWholeBlock) {
    const CellEdit edit = SetResources(0, kFixedCost, {{"1,250"}, {"0,5"}});
    EXPECT_EQ(edit.Tables.Resources[0][ResourceColumn::FixedCost], Value(1.25));
}

TEST(RecordCells, ABlockThatFailsInItsLastCellChangesNothing) {
    const CellEdit edit = SetResources(0, kFixedCost, {{"1", "2", "90"}, {"3", "4", "101"}});
    EXPECT_EQ(edit.Tables, SmallModel());
    EXPECT_EQ(edit.Cells, 0U);
    ASSERT_EQ(edit.Refused.Count(), 1U);
    EXPECT_EQ(edit.Refused.First()[0].Row, 1U);
    EXPECT_EQ(edit.Refused.First()[0].Column, kUptime);
    EXPECT_EQ(edit.Refused.Message("Nothing was pasted."),
              "Nothing was pasted. Row 2 (R2), Uptime (%): uptime is 101 %; it must be above 0 and "
              "at most 100.");
}

TEST(RecordCells, EveryKindOfMisfitIsNamed) {
    EXPECT_EQ(SetResources(0, 0, {{"0"}}).Refused.First()[0].Reason,
              "Row 1 (R1), Number: number is 0; it must be a whole number from 1 to 32,767.");
    EXPECT_EQ(SetResources(0, kFixedCost, {{""}}).Refused.First()[0].Reason,
              "Row 1 (R1), Fixed cost ($): fixed cost is empty; it must be at least 0.");
    EXPECT_EQ(
        SetResources(0, kFixedCost, {{"cheap"}}).Refused.First()[0].Reason,
        "Row 1 (R1), Fixed cost ($): fixed cost: \"cheap\" is not a number. Enter digits, for "
        "example 12,500 or 0.25.");
    EXPECT_EQ(SetResources(0, kType, {{"X"}}).Refused.First()[0].Reason,
              "Row 1 (R1), Type of equipment: type of equipment is \"X\"; it must be MNL, FXD, PGM "
              "or AUT.");
    EXPECT_EQ(SetResources(0, kType, {{"M", "1"}}).Refused.First()[0].Reason,
              "Row 1 (R1), column 11: the sheet has 10 columns.");
    EXPECT_EQ(SetResources(2, 1, {{"new"}}).Refused.First()[0].Reason,
              "Row 3: the sheet has 2 resources.");
}

TEST(RecordCells, OnlyTheFirstMisfitsAreNamed) {
    const CellEdit edit =
        SetResources(0, kFixedCost, {{"-1", "-1", "-1", "-1"}, {"-1", "-1", "-1", "-1"}});
    EXPECT_EQ(edit.Refused.Count(), 8U);
    EXPECT_EQ(edit.Refused.First().size(), Misfits::kKept);
    EXPECT_TRUE(edit.Refused.Message("No.").ends_with(" And 3 more cells do not fit."));
}

TEST(RecordCells, AShortRowLeavesTheRestAlone) {
    const CellEdit edit = SetResources(0, kFixedCost, {{"5"}, {"6", "7"}});
    EXPECT_EQ(edit.Cells, 3U);
    EXPECT_EQ(edit.Tables.Resources[0][ResourceColumn::VarCost], Value(0.0));
    EXPECT_EQ(edit.Tables.Resources[1][ResourceColumn::VarCost], Value(7.0));
}

TEST(RecordCells, ClearingGivesTheFiguresOfANewRecord) {
    const CellEdit set = SetResources(0, kFixedCost, {{"5", "6", "90", "2", "3", "4", "AUT"}});
    const CellEdit edit = ClearRecordCells(set.Tables, RecordKind::Resources, {0, 0, 1, 10});
    EXPECT_EQ(edit.Cells, 9U);
    EXPECT_EQ(RecordTexts(edit.Tables, RecordKind::Resources, {0, 0, 1, 10}),
              (TextBlock{{"1", "", "", "0", "0", "100", "1", "1", "1", "MNL"}}));
    EXPECT_EQ(edit.Tables.Resources[1], SmallModel().Resources[1]);
}

TEST(RecordCells, SayHowManyRecordsABlockLacks) {
    EXPECT_EQ(MissingRecords(SmallModel(), RecordKind::Tasks, 1, {{"a"}, {"b"}}), 0U);
    EXPECT_EQ(MissingRecords(SmallModel(), RecordKind::Tasks, 1, TextBlock(5, {"", "a"})), 3U);
    EXPECT_EQ(MissingRecords(SmallModel(), RecordKind::Resources, 0, {{"a"}, {""}, {"b"}, {" "}}),
              1U);
}

TEST(RecordCells, BlankCellsBeyondTheSheetDoNoHarm) {
    EXPECT_TRUE(SetResources(1, kType, {{"M", ""}, {"", " "}}).Refused.IsEmpty());
}

TEST(BlockShape, KnowsItsLastCellThatIsNotBlank) {
    EXPECT_EQ(FilledSize({{"a", "b", " "}, {"c"}, {""}}).Rows, 2U);
    EXPECT_EQ(FilledSize({{"a", "b", " "}, {"c"}, {""}}).Columns, 2U);
    EXPECT_EQ(FilledSize({}).Rows, 0U);
}

TEST(BlockShape, FillsASelectionThatIsAMultiple) {
    EXPECT_EQ(FittedTo({{"a"}}, 2, 3), (TextBlock{{"a", "a", "a"}, {"a", "a", "a"}}));
    EXPECT_EQ(FittedTo({{"a", "b"}}, 2, 4),
              (TextBlock{{"a", "b", "a", "b"}, {"a", "b", "a", "b"}}));
    EXPECT_EQ(FittedTo({{"a", "b"}}, 1, 3), (TextBlock{{"a", "b"}}));
    EXPECT_EQ(FittedTo({{"a"}, {"b"}}, 3, 1), (TextBlock{{"a"}, {"b"}}));
    EXPECT_EQ(FittedTo({{"a"}, {"b"}}, 1, 1), (TextBlock{{"a"}, {"b"}}));
    EXPECT_EQ(FittedTo({{"a", "b"}, {"c"}}, 4, 4), (TextBlock{{"a", "b"}, {"c"}}));
    EXPECT_EQ(FittedTo({}, 2, 2), TextBlock());
}

TEST(BlockShape, FillsDownAndRight) {
    EXPECT_EQ(FilledDown({{"a", "b"}, {"c", "d"}, {"e", "f"}}),
              (TextBlock{{"a", "b"}, {"a", "b"}, {"a", "b"}}));
    EXPECT_EQ(FilledRight({{"a", "b"}, {"c", "d"}}), (TextBlock{{"a", "a"}, {"c", "c"}}));
}

}  // namespace
}  // namespace quarnel02
