#include "commands/EditHistory.h"

#include <gtest/gtest.h>

#include <string>

#include "support/CommandDesk.h"
#include "support/RawStore.h"

namespace quarnel02 {
namespace {

constexpr const char* kTwoTasks =
    "UPDATE Gen SET Tasks = 2; INSERT INTO Tasks VALUES (1, 'Alpha'), (2, 'Beta');";

/// The history of a desk's working copy, which others write to.
class EditHistoryTest : public ::testing::Test {
  protected:
    EditHistoryTest() { History.Restart(); }

    void Run(const std::string& sql) const { test::RawStore(Desk.Application.File()).Run(sql); }
    [[nodiscard]] InputTables Now() const { return ReadInputTables(Desk.Application.Open()); }

    test::CommandDesk Desk{kTwoTasks};
    EditHistory& History = Desk.Commands.History();
};

TEST_F(EditHistoryTest, WhateverHasChangedIsAStep) {
    const InputTables before = Now();
    EXPECT_FALSE(History.CanUndo());
    Run("UPDATE Gen SET Days = 111;");
    EXPECT_FALSE(History.CanUndo());
    History.Note();
    EXPECT_EQ(History.UndoText(), "Undo Change working days per year");
    const InputTables after = Now();
    History.Undo();
    EXPECT_EQ(Now(), before);
    EXPECT_EQ(History.RedoText(), "Redo Change working days per year");
    History.Redo();
    EXPECT_EQ(Now(), after);
}

TEST_F(EditHistoryTest, ALookThatFindsNothingNewMakesNoStepAndKeepsWhatCanBeRedone) {
    Run("UPDATE Gen SET Days = 111;");
    History.Note();
    History.Undo();
    History.Note();
    History.Note("Something");
    EXPECT_FALSE(History.CanUndo());
    EXPECT_TRUE(History.CanRedo());
}

TEST_F(EditHistoryTest, AGivenNameIsTaken) {
    Run("UPDATE Tasks SET Description = 'Other';");
    History.Note("Paste 2 cells");
    EXPECT_EQ(History.UndoText(), "Undo Paste 2 cells");
}

TEST_F(EditHistoryTest, CountsOfRecordsBelongToTheStepBefore) {
    const InputTables before = Now();
    Run("INSERT INTO Tasks VALUES (3, 'Gamma');");
    History.Note();
    Run("UPDATE Gen SET Tasks = 3;");
    History.Note();
    const InputTables after = Now();
    EXPECT_EQ(History.UndoText(), "Undo Add task 3");
    History.Undo();
    EXPECT_EQ(Now(), before);
    EXPECT_FALSE(History.CanUndo());
    History.Redo();
    EXPECT_EQ(Now(), after);
}

TEST_F(EditHistoryTest, WhatWasNotNotedYetIsUndoneFirst) {
    const InputTables before = Now();
    Run("UPDATE Gen SET Days = 111;");
    History.Note();
    const InputTables between = Now();
    Run("DELETE FROM Tasks WHERE TaskId = 2;");
    History.Undo();
    EXPECT_EQ(Now(), between);
    History.Undo();
    EXPECT_EQ(Now(), before);
}

class ModelsThatComeIn : public EditHistoryTest {
  protected:
    void ChangeAndNote() {
        Run("UPDATE Gen SET Days = 111;");
        History.Note();
        ASSERT_TRUE(History.CanUndo());
    }
    void ExpectNothingToUndo() {
        EXPECT_FALSE(History.CanUndo());
        History.Note();
        EXPECT_FALSE(History.CanUndo());
    }
};

TEST_F(ModelsThatComeIn, NewBeginsAnew) {
    ChangeAndNote();
    Desk.Commands.New();
    ExpectNothingToUndo();
}

TEST_F(ModelsThatComeIn, OpenBeginsAnew) {
    ChangeAndNote();
    Desk.MakeUserModel("pump.mdb", kTwoTasks);
    Desk.Dialog.Answers = {{Desk.UserDirectory(), "pump.mdb"}};
    Desk.Commands.Open();
    ExpectNothingToUndo();
}

TEST_F(ModelsThatComeIn, RecoverBeginsAnew) {
    ChangeAndNote();
    Desk.Commands.New();
    ASSERT_FALSE(Desk.Commands.KeptModels().empty());
    Run("UPDATE Gen SET Days = 222;");
    History.Note();
    ASSERT_TRUE(History.CanUndo());
    Desk.Commands.Recover(Desk.Commands.KeptModels().front());
    ExpectNothingToUndo();
}

TEST_F(ModelsThatComeIn, AnOpenThatIsCancelledKeepsTheSteps) {
    ChangeAndNote();
    Desk.Dialog.Answers = {{"", ""}};
    Desk.Commands.Open();
    EXPECT_TRUE(History.CanUndo());
}

TEST_F(ModelsThatComeIn, SavingKeepsTheSteps) {
    ChangeAndNote();
    Desk.Dialog.Answers = {{Desk.UserDirectory(), "line.mdb"}};
    Desk.Commands.SaveAs();
    EXPECT_TRUE(std::filesystem::exists(Desk.UserFile("line.mdb")));
    EXPECT_TRUE(History.CanUndo());
    History.Undo();
    EXPECT_EQ(Desk.WorkingDays(), "250");
    EXPECT_TRUE(Desk.Commands.HasUnsavedWork());
    History.Redo();
    EXPECT_FALSE(Desk.Commands.HasUnsavedWork());
}

}  // namespace
}  // namespace quarnel02
