#include "sheets/MatrixSheet.h"

#include <gtest/gtest.h>

#include <chrono>

#include "sheets/SheetModels.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::SmallModel;

CellEdit Set(ShownFigure figure, std::size_t row, std::size_t column, const TextBlock& block) {
    return SetMatrixCells(SmallModel(), figure, row, column, block);
}

/// Task 1 on resource 1, whole.
std::string FirstPair(const CellEdit& edit) {
    return MatrixSheet(edit.Tables).Text(0, 0, ShownFigure::AllThree);
}

TEST(MatrixSheet, ShowsTheChosenFigures) {
    const InputTables tables = SmallModel();
    const MatrixSheet sheet(tables);
    EXPECT_EQ(sheet.Texts({0, 0, 3, 2}, ShownFigure::Time),
              (TextBlock{{"12.5", ""}, {"0", "7"}, {"", "9"}}));
    EXPECT_EQ(sheet.Texts({1, 1, 9, 9}, ShownFigure::Tool), (TextBlock{{"1"}, {"2"}}));
    EXPECT_EQ(sheet.Text(2, 1, ShownFigure::ToolCost), "26000");
    EXPECT_EQ(sheet.Text(0, 0, ShownFigure::AllThree), "12.5 | 3 | 400");
    EXPECT_EQ(sheet.Texts({0, 2, 3, 1}, ShownFigure::Time), TextBlock());
}

TEST(MatrixSheet, TellsPairsWithoutTimeFromMissingOnes) {
    InputTables tables = SmallModel();
    tables.Matrix.push_back({std::int64_t{1}, std::int64_t{3}, {}, {}, {}});
    const MatrixSheet sheet(tables);
    EXPECT_EQ(sheet.State(0, 0), PairState::Can);
    EXPECT_EQ(sheet.State(0, 1), PairState::Missing);
    EXPECT_EQ(sheet.State(1, 0), PairState::Cannot);
    EXPECT_EQ(sheet.State(2, 0), PairState::Cannot);
}

TEST(MatrixSheet, AddsUpTheTimesOfABlock) {
    const InputTables tables = SmallModel();
    const MatrixSheet::TimeSum sum = MatrixSheet(tables).TimesIn({0, 0, 2, 2});
    EXPECT_EQ(sum.Pairs, 2U);
    EXPECT_DOUBLE_EQ(sum.Seconds, 12.5 + 7);
}

TEST(MatrixCellEdits, KeepThePartsThatAreMissing) {
    EXPECT_EQ(FirstPair(Set(ShownFigure::AllThree, 0, 0, {{"8 | 4 | 50"}})), "8 | 4 | 50");
    EXPECT_EQ(FirstPair(Set(ShownFigure::AllThree, 0, 0, {{"8"}})), "8 | 3 | 400");
    EXPECT_EQ(FirstPair(Set(ShownFigure::AllThree, 0, 0, {{" | 4"}})), "12.5 | 4 | 400");
    EXPECT_EQ(FirstPair(Set(ShownFigure::AllThree, 0, 0, {{"8,5||50"}})), "8.5 | 3 | 50");
    EXPECT_EQ(FirstPair(Set(ShownFigure::Time, 0, 0, {{"8"}})), "8 | 3 | 400");
    EXPECT_EQ(FirstPair(Set(ShownFigure::Tool, 0, 0, {{"8"}})), "12.5 | 8 | 400");
    EXPECT_EQ(FirstPair(Set(ShownFigure::ToolCost, 0, 0, {{"8"}})), "12.5 | 3 | 8");
}

TEST(MatrixCellEdits, TypingIntoAnEmptyCellMakesThePair) {
    const CellEdit edit = Set(ShownFigure::Time, 0, 1, {{"4.5"}});
    InputTables expected = SmallModel();
    expected.Matrix.push_back(test::PairRow(1, 2, 4.5, 0, 0));
    EXPECT_EQ(edit.Tables, expected);
    EXPECT_EQ(edit.Cells, 1U);
}

TEST(MatrixCellEdits, AnEmptyCellRemovesThePairButNotItsTool) {
    InputTables expected = SmallModel();
    expected.Matrix.erase(expected.Matrix.begin());
    EXPECT_EQ(Set(ShownFigure::Time, 0, 0, {{""}}).Tables, expected);
    EXPECT_EQ(Set(ShownFigure::AllThree, 0, 0, {{" "}}).Tables, expected);
    EXPECT_EQ(Set(ShownFigure::Tool, 0, 0, {{""}}).Tables, SmallModel());
    EXPECT_EQ(Set(ShownFigure::ToolCost, 0, 0, {{""}}).Tables, SmallModel());
    EXPECT_EQ(Set(ShownFigure::AllThree, 0, 0, {{" | | "}}).Tables, SmallModel());
}

TEST(MatrixCellEdits, ClearingRemovesPairs) {
    const CellEdit edit = ClearMatrixCells(SmallModel(), {1, 0, 2, 2});
    EXPECT_EQ(edit.Cells, 3U);
    ASSERT_EQ(edit.Tables.Matrix.size(), 1U);
    EXPECT_EQ(edit.Tables.Matrix[0], SmallModel().Matrix[0]);
}

TEST(MatrixCellEdits, ABlockThatFailsInItsLastCellChangesNothing) {
    const CellEdit edit = Set(ShownFigure::Time, 0, 0, {{"1", "2"}, {"3", "4"}, {"", "-6"}});
    EXPECT_EQ(edit.Tables, SmallModel());
    EXPECT_EQ(edit.Cells, 0U);
    ASSERT_EQ(edit.Refused.Count(), 1U);
    EXPECT_EQ(edit.Refused.First()[0].Row, 2U);
    EXPECT_EQ(edit.Refused.First()[0].Column, 1U);
    EXPECT_EQ(edit.Refused.First()[0].Reason,
              "Task 3 (T3), resource 2 (R2): task time is -6 s; it must be at least 0.");
}

TEST(MatrixCellEdits, EveryKindOfMisfitIsNamed) {
    EXPECT_EQ(Set(ShownFigure::Tool, 0, 0, {{"2.5"}}).Refused.First()[0].Reason,
              "Task 1 (T1), resource 1 (R1): tool number is 2.5; it must be a whole number.");
    EXPECT_EQ(Set(ShownFigure::Tool, 0, 0, {{"40000"}}).Refused.First()[0].Reason,
              "Task 1 (T1), resource 1 (R1): tool number is 40000; it must be a whole number from "
              "-32,767 to 32,767.");
    EXPECT_EQ(Set(ShownFigure::AllThree, 0, 0, {{"1|2|3|4"}}).Refused.First()[0].Reason,
              "Task 1 (T1), resource 1 (R1): \"1|2|3|4\" has more than time, tool number and tool "
              "cost.");
    EXPECT_EQ(Set(ShownFigure::Time, 3, 0, {{"1"}}).Refused.First()[0].Reason,
              "Task 4, resource 1 (R1): the model has no such task or resource.");
}

TEST(MatrixCellEdits, EmptyCellsBeyondTheSheetDoNoHarm) {
    EXPECT_TRUE(Set(ShownFigure::Time, 2, 1, {{"5", ""}, {"", ""}}).Refused.IsEmpty());
}

TEST(MatrixCellEdits, ANumberThatNoRecordBearsHasNoCells) {
    InputTables tables = SmallModel();
    tables.Tasks[1][TaskColumn::TaskId] = std::int64_t{7};
    const CellEdit edit = SetMatrixCells(tables, ShownFigure::Time, 1, 0, {{"5"}});
    EXPECT_EQ(edit.Refused.Count(), 1U);
}

TEST(MatrixCellEdits, OfTwoRowsOfAPairTheFirstIsChangedAndBothAreRemoved) {
    InputTables tables = SmallModel();
    tables.Matrix.push_back(test::PairRow(1, 1, 99, 9, 9));
    const CellEdit edit = SetMatrixCells(tables, ShownFigure::Time, 0, 0, {{"5"}});
    EXPECT_EQ(edit.Tables.Matrix.front()[MatrixColumn::TaskTime], Value(5.0));
    EXPECT_EQ(edit.Tables.Matrix.back()[MatrixColumn::TaskTime], Value(99.0));
    EXPECT_EQ(ClearMatrixCells(tables, {0, 0, 1, 1}).Tables.Matrix.size(), 3U);
}

TEST(MatrixCellEdits, SayWhatABlockLacks) {
    const MissingPairs missing =
        MissingForMatrix(SmallModel(), 2, 1, {{"1"}, {"1", "2", "3", ""}, {" "}});
    EXPECT_EQ(missing.Tasks, 1U);
    EXPECT_EQ(missing.Resources, 2U);
}

/// 40 tasks on 12 resources: read, checked and stored well below what a hand on a key notices.
TEST(MatrixCellEdits, FourHundredAndEightyCellsAreCheckedAndStoredAtOnce) {
    const test::TestModel model;
    Database database = model.Open();
    WriteInputTables(database, test::EmptyMatrixModel(40, 12));
    std::string text;
    for (int cell = 0; cell < 480; ++cell) {
        text += "12.5 | 3 | 400";
        text += cell % 12 == 11 ? "\n" : "\t";
    }
    const auto begin = std::chrono::steady_clock::now();
    const CellEdit edit =
        SetMatrixCells(ReadInputTables(database), ShownFigure::AllThree, 0, 0, ReadTabbed(text));
    WriteInputTables(database, edit.Tables);
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    EXPECT_EQ(edit.Cells, 480U);
    EXPECT_EQ(model.RowsOf("SELECT COUNT(*) FROM Matrix WHERE TaskTime = 12.5;", 1).front(), "480");
    RecordProperty("milliseconds", std::to_string(seconds.count() * 1000));
    EXPECT_LT(seconds.count(), 2) << "far beyond 0.2 s even for an unoptimised build";
}

}  // namespace
}  // namespace quarnel02
