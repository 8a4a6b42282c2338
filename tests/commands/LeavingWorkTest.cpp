// What happens to work that no file holds when a command leaves it.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/Sessions.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::kPump;

using Lines = std::vector<std::string>;

constexpr const char* kAsked = "ask[information]: Do you want to save your changes first? -> ";

using HasUnsavedWork = test::Sessions;
using Exit = test::Sessions;
using FailedSave = test::Sessions;
using Leaving = test::Sessions;

TEST_F(HasUnsavedWork, FollowsTheWorkingCopyAndNotTheFlag) {
    EXPECT_FALSE(Commands().HasUnsavedWork());
    EnterTask("Insert shaft");
    EXPECT_FALSE(Commands().Current().Changed);
    EXPECT_TRUE(Commands().HasUnsavedWork());
    Program->Dialog.Answers = {{PathText(User.Path()), "line.mdb"}};
    Commands().Save();
    EXPECT_FALSE(Commands().HasUnsavedWork());
    EnterDays("231");
    EXPECT_TRUE(Commands().HasUnsavedWork());
    EnterDays("250");
    EXPECT_TRUE(Commands().Current().Changed);
    EXPECT_FALSE(Commands().HasUnsavedWork());
}

TEST_F(HasUnsavedWork, IsStillTrueAfterACancelledSaveAs) {
    EnterDays("231");
    Program->Dialog.Answers = {{"", ""}};
    Commands().Save();
    EXPECT_FALSE(Commands().Current().Changed);
    EXPECT_TRUE(Commands().HasUnsavedWork());
}

TEST_F(HasUnsavedWork, IsFalseForAModelJustOpened) {
    UserModel("pump.mdb", kPump);
    Open("pump.mdb");
    EXPECT_FALSE(Commands().HasUnsavedWork());
}

/// A failed New forgets the file, but what is on screen is still the model it had.
TEST_F(HasUnsavedWork, IsTrueForAModelThatAFailedNewLeftWithoutItsFile) {
    UserModel("pump.mdb", kPump);
    Open("pump.mdb");
    fs::remove(Application.File("blank.seq"));
    Commands().New();
    EXPECT_TRUE(Form().Events.back().starts_with("message[critical]: Error creating working file"));
    EXPECT_EQ(Commands().Current().File, "");
    EXPECT_EQ(Task(), "Insert shaft");
    EXPECT_TRUE(Commands().HasUnsavedWork());
}

TEST_F(HasUnsavedWork, SaysYesWhenItCannotTell) {
    fs::remove(Application.File());
    EXPECT_TRUE(Commands().HasUnsavedWork());
}

TEST_F(Exit, KeepsNothingThatAFileHolds) {
    UserModel("pump.mdb", kPump);
    Open("pump.mdb");
    EXPECT_TRUE(Commands().Exit());
    EXPECT_EQ(Kept().size(), 0U);
}

TEST_F(Exit, SilentlyKeepsWhatTheEditorsWrote) {
    UserModel("pump.mdb", kPump);
    Open("pump.mdb");
    Form().Events.clear();
    EnterTask("Grease");
    EXPECT_TRUE(Commands().Exit());
    EXPECT_EQ(Form().Events, Lines{});
    ASSERT_EQ(Kept().size(), 1U);
    EXPECT_TRUE(PathText(Kept()[0].filename()).starts_with("Pump 20"));
}

TEST_F(Exit, KeepsWhatThePlannerDidNotSave) {
    EnterDays("231");
    Form().YesNoAnswers = {false};
    EXPECT_TRUE(Commands().Exit());
    EXPECT_EQ(Form().Events.back(), kAsked + std::string("no"));
    EXPECT_EQ(Kept().size(), 1U);
}

TEST_F(Exit, StaysWhenSavingFails) {
    EnterDays("231");
    Commands().Current().Dir = PathText(User.Path() / "gone");
    Commands().Current().File = "line.mdb";
    Form().YesNoAnswers = {true};
    EXPECT_FALSE(Commands().Exit());
    EXPECT_TRUE(Commands().Current().Changed);
}

TEST_F(Exit, StaysWhenWorkCannotBeKeptUnlessThePlannerGivesItUp) {
    EnterTask("Insert shaft");
    WriteFile(Application.File("Recovered"), "in the way");
    Form().YesNoAnswers = {false, true};
    EXPECT_FALSE(Commands().Exit());
    const std::string question = Form().Events.back();
    EXPECT_TRUE(question.starts_with("ask[critical]: Work that is in no file cannot be kept: "))
        << question;
    EXPECT_NE(question.find(PathText(Application.File("Recovered"))), std::string::npos);
    EXPECT_EQ(Form().ProposedAnswers, std::vector{Answer::No});
    EXPECT_EQ(Task(), "Insert shaft");
    EXPECT_TRUE(Commands().Exit());
}

TEST_F(Exit, IsNotFollowedByAQuestionNorByASecondCopy) {
    EnterTask("Insert shaft");
    EXPECT_TRUE(Commands().Exit());
    Start();
    EXPECT_EQ(Kept().size(), 1U);
    EXPECT_EQ(Task(), "");
}

TEST_F(FailedSave, EndsTheCommandThatAskedForIt) {
    UserModel("pump.mdb", kPump);
    const std::vector<void (*)(FileCommands&)> commands = {
        [](FileCommands& all) { all.New(); }, [](FileCommands& all) { all.Open(); },
        [](FileCommands& all) { all.OpenRecent("1. ..\\pump.mdb"); },
        [](FileCommands& all) {
            all.Recover({"/nowhere", ""});
        }};
    WriteFile(Application.File("Marrowgate.cfg"), PathText(User.Path() / "pump.mdb") + "\n");
    EnterDays("231");
    Commands().Current().Dir = PathText(User.Path() / "gone");
    Commands().Current().File = "line.mdb";
    Form().Events.clear();
    for (const auto& command : commands) {
        Form().YesNoAnswers = {true};
        command(Commands());
        ASSERT_EQ(Form().Events.size(), 2U) << Form().Events.back();
        EXPECT_EQ(Form().Events[0], kAsked + std::string("yes"));
        EXPECT_TRUE(Form().Events[1].starts_with("message[critical]: Could not save this file."));
        EXPECT_TRUE(Commands().Current().Changed);
        EXPECT_EQ(Commands().Current().File, "line.mdb");
        EXPECT_EQ(Application.RowsOf("SELECT Days FROM Gen;", 1).at(0), "231");
        Form().Events.clear();
    }
}

TEST_F(Leaving, NewAndOpenKeepWhatTheyReplace) {
    UserModel("pump.mdb", kPump);
    EnterTask("First");
    Commands().New();
    ASSERT_EQ(Kept().size(), 1U);
    EXPECT_EQ(TaskIn(Kept()[0]), "First");
    EnterTask("Second");
    Open("pump.mdb");
    EXPECT_EQ(Task(), "Insert shaft");
    ASSERT_EQ(Kept().size(), 2U);
    EXPECT_EQ(TaskIn(Kept()[0]), "Second");
    Commands().New();
    EXPECT_EQ(Kept().size(), 2U) << "the opened model was not changed";
}

TEST_F(Leaving, NeitherCancelNorARefusedFileKeepsAnything) {
    WriteFile(User.Path() / "letter.mdb", "Dear Anna, ...");
    EnterTask("Insert shaft");
    Program->Dialog.Answers = {{"", ""}};
    Commands().Open();
    Open("letter.mdb");
    EXPECT_EQ(Kept().size(), 0U);
    EXPECT_EQ(Task(), "Insert shaft");
    EXPECT_TRUE(Commands().HasUnsavedWork());
}

TEST_F(Leaving, OpenStaysWhenThePlannerDoesNotGiveWorkUp) {
    UserModel("pump.mdb", kPump);
    EnterTask("Mine");
    WriteFile(Application.File("Recovered"), "in the way");
    Form().YesNoAnswers = {false, true};
    Open("pump.mdb");
    EXPECT_EQ(Task(), "Mine");
    EXPECT_EQ(Commands().Current().File, "");
    Open("pump.mdb");
    EXPECT_EQ(Task(), "Insert shaft");
}

}  // namespace
}  // namespace quarnel02
