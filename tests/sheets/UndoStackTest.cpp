#include "sheets/UndoStack.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "sheets/MatrixSheet.h"
#include "sheets/SheetModels.h"
#include "support/RunTimeErrors.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::SmallModel;

InputTables WithTime(double time) {
    InputTables tables = SmallModel();
    tables.Matrix[0][MatrixColumn::TaskTime] = time;
    return tables;
}

RC_GTEST_PROP(PackedTables, AnyRowsComeBackBitForBit,
              (const std::vector<std::int64_t>& wholes, const std::vector<double>& reals,
               const std::vector<std::string>& texts)) {
    TableRows rows(3);
    rows[0].assign(wholes.begin(), wholes.end());
    rows[1].assign(reals.begin(), reals.end());
    rows[1].insert(rows[1].end(), {Value(), 12.0, -7e8, 1e300, -0.0, 0.1});
    rows[2].assign(texts.begin(), texts.end());
    const TableRows back = Unpacked(Packed(rows));
    RC_ASSERT(back == rows);
    RC_ASSERT(std::signbit(std::get<double>(back[1][reals.size() + 4])));
}

TEST(PackedTables, KeepTheWholeRange) {
    const TableRows rows = {{std::numeric_limits<std::int64_t>::min(),
                             std::numeric_limits<std::int64_t>::max(), std::int64_t{-1}}};
    EXPECT_EQ(Unpacked(Packed(rows)), rows);
    EXPECT_EQ(PackedTables(SmallModel()).Tables(), SmallModel());
    EXPECT_EQ(PackedTables(InputTables()).Tables(), InputTables());
}

/// A stack on a working copy that holds the small model.
class UndoStackTest : public ::testing::Test {
  protected:
    UndoStackTest() { WriteInputTables(Store, SmallModel()); }

    void Step(const std::string& name, const InputTables& after) {
        test::StoreStep(Stack, Store, name, after);
    }
    [[nodiscard]] InputTables Now() const { return ReadInputTables(Store); }

    test::TestModel Model;
    Database Store = Model.Open();
    UndoStack Stack;
};

TEST_F(UndoStackTest, NamesItsSteps) {
    EXPECT_EQ(Stack.UndoText(), "Undo");
    EXPECT_EQ(Stack.RedoText(), "Redo");
    EXPECT_FALSE(Stack.CanUndo());
    Step(StepName("Paste", 480, "cell"), WithTime(1));
    EXPECT_TRUE(Stack.CanUndo());
    EXPECT_EQ(Stack.UndoText(), "Undo Paste 480 cells");
    Stack.Undo(Store);
    EXPECT_FALSE(Stack.CanUndo());
    EXPECT_EQ(Stack.RedoText(), "Redo Paste 480 cells");
}

TEST_F(UndoStackTest, WalksBackAndForth) {
    Step("a", WithTime(1));
    Step("b", WithTime(2));
    Stack.Undo(Store);
    EXPECT_EQ(Now(), WithTime(1));
    Stack.Undo(Store);
    EXPECT_EQ(Now(), SmallModel());
    Stack.Undo(Store);
    EXPECT_EQ(Now(), SmallModel());
    Stack.Redo(Store);
    Stack.Redo(Store);
    EXPECT_EQ(Now(), WithTime(2));
    EXPECT_FALSE(Stack.CanRedo());
    Stack.Redo(Store);
    EXPECT_EQ(Now(), WithTime(2));
}

TEST_F(UndoStackTest, ANewStepDropsWhatWasUndone) {
    Step("a", WithTime(1));
    Step("b", WithTime(2));
    Stack.Undo(Store);
    Step("c", WithTime(3));
    EXPECT_FALSE(Stack.CanRedo());
    EXPECT_EQ(Stack.Steps(), 2U);
    Stack.Undo(Store);
    EXPECT_EQ(Now(), WithTime(1));
}

TEST_F(UndoStackTest, WhatChangesNothingIsNoStep) {
    Step("a", SmallModel());
    EXPECT_EQ(Stack.Steps(), 0U);
    Step("c", WithTime(1));
    Stack.Undo(Store);
    Step("d", SmallModel());
    EXPECT_TRUE(Stack.CanRedo());
}

TEST_F(UndoStackTest, IsEmptyOnceCleared) {
    Step("a", WithTime(1));
    Stack.Undo(Store);
    Stack.Clear();
    EXPECT_FALSE(Stack.CanUndo());
    EXPECT_FALSE(Stack.CanRedo());
    EXPECT_EQ(Stack.Bytes(), 0U);
}

TEST_F(UndoStackTest, ARedoBringsUnnamedChangesBackToo) {
    Step("a", WithTime(1));
    WriteInputTables(Store, WithTime(9));
    Stack.Undo(Store);
    EXPECT_EQ(Now(), SmallModel());
    Stack.Redo(Store);
    EXPECT_EQ(Now(), WithTime(9));
    Stack.Undo(Store);
    EXPECT_EQ(Now(), SmallModel());
}

TEST_F(UndoStackTest, AFailedUndoLeavesTheStepToUndo) {
    Step("a", WithTime(1));
    Store.Close();
    test::ExpectRunTimeError(ErrorKind::ObjectClosed, [&] { Stack.Undo(Store); });
    EXPECT_EQ(Stack.UndoText(), "Undo a");
    Store = Model.Open();
    Stack.Undo(Store);
    EXPECT_EQ(Now(), SmallModel());
}

/// Every step pastes other figures, with decimals, into all 1,250 pairs.
TEST(UndoStackMemory, AThousandStepsOfALargeModelFit) {
    UndoStack stack;
    InputTables before = test::EmptyMatrixModel(50, 25);
    for (int step = 0; step < 1000; ++step) {
        InputTables after = before;
        after.Matrix.clear();
        for (int pair = 0; pair < 1250; ++pair) {
            after.Matrix.push_back(
                test::PairRow(pair % 50 + 1, pair / 50 + 1, step + 0.1, pair, pair + 0.25));
        }
        stack.Push("Paste 1,250 cells", before, after);
        before = std::move(after);
    }
    EXPECT_EQ(stack.Steps(), 1000U);
    EXPECT_LT(stack.Bytes(), UndoStack::kMostBytes);
    ::testing::Test::RecordProperty("bytes", std::to_string(stack.Bytes()));
}

TEST(UndoStackMemory, TheOldestStepsAreForgottenFirst) {
    const test::TestModel model;
    const Database store = model.Open();
    UndoStack stack(2000);
    std::vector<InputTables> states = {SmallModel()};
    for (int step = 1; step < 100; ++step) {
        states.push_back(WithTime(step + 0.5));
        stack.Push(std::to_string(step), states[states.size() - 2], states.back());
    }
    EXPECT_LT(stack.Steps(), 50U);
    EXPECT_GT(stack.Steps(), 5U);
    EXPECT_LE(stack.Bytes(), 2000U);
    WriteInputTables(store, states.back());
    std::size_t undone = 0;
    for (; stack.CanUndo(); ++undone) {
        stack.Undo(store);
    }
    EXPECT_EQ(ReadInputTables(store), states[states.size() - 1 - undone]);
}

TEST_F(UndoStackTest, AnExtendedStepLeadsToTheNewTables) {
    Stack.Extend(WithTime(1));
    EXPECT_EQ(Stack.Steps(), 0U);
    Step("Edit", WithTime(1));
    WriteInputTables(Store, WithTime(2));
    Stack.Extend(WithTime(2));
    EXPECT_EQ(Stack.Steps(), 1U);
    Stack.Undo(Store);
    EXPECT_EQ(Now(), SmallModel());
    Stack.Extend(WithTime(3));
    Stack.Redo(Store);
    EXPECT_EQ(Now(), WithTime(2));
}

TEST_F(UndoStackTest, TakesScenariosBack) {
    InputTables more = SmallModel();
    more.Scenarios = {test::ScenarioRow("Wages", "LaborCost +10%")};
    Step("Add scenario", more);
    EXPECT_EQ(Now(), more);
    Stack.Undo(Store);
    EXPECT_TRUE(Now().Scenarios.empty());
    Stack.Redo(Store);
    EXPECT_EQ(Now(), more);
}

}  // namespace
}  // namespace quarnel02
