// What the next start, and the Recover command, do with work that was left.

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "basic/RunTimeError.h"
#include "commands/IncomingModel.h"
#include "support/Sessions.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::kPump;
using test::ScriptedForm;

using Lines = std::vector<std::string>;

constexpr const char* kAsked = "ask[information]: Do you want to save your changes first? -> ";
constexpr const char* kOffer =
    "ask[question]: Quarnel02 did not end properly last time. Load the work that was kept? -> ";

using Restart = test::Sessions;
using Recover = test::Sessions;

/// A form whose boxes cannot be filled, once.
class StubbornForm : public ScriptedForm {
  public:
    using ScriptedForm::ScriptedForm;
    bool Refuse = false;

    void SetText(TextBox box, const std::string& text) override {
        if (std::exchange(Refuse, false)) {
            throw RunTimeError(ErrorKind::DatabaseFailure, "The disk is full.");
        }
        ScriptedForm::SetText(box, text);
    }
};

TEST_F(Recover, AnIncomingModelThatCannotBeShownGivesItsPlaceBack) {
    EnterTask("Mine");
    Kill();
    StubbornForm form(Application.Directory());
    form.Refuse = true;
    {
        IncomingModel incoming(form);
        CopyPrivate(Application.File("blank.seq"), incoming.Path());
        EXPECT_THROW(incoming.TakePlace(), RunTimeError);
    }
    EXPECT_FALSE(form.Refuse);
    EXPECT_EQ(form.Text(TextBox::txtDays), "250");
    EXPECT_EQ(Task(), "Mine");
    EXPECT_FALSE(fs::exists(Application.File("working.old")));
    EXPECT_FALSE(fs::exists(Application.File("Incoming")));
}

TEST_F(Restart, OffersTheWorkOfAKilledProgram) {
    EnterTask("Insert shaft");
    Start({true});
    EXPECT_EQ(Form().ProposedAnswers, std::vector{Answer::Yes});
    EXPECT_EQ(Task(), "Insert shaft");
    EXPECT_EQ(Commands().Current().Dir + Commands().Current().File, "");
    EXPECT_EQ(Form().Events.back(), "title: Quarnel02");
    EXPECT_TRUE(Commands().HasUnsavedWork());
    EXPECT_FALSE(Commands().Current().Changed);
    EXPECT_EQ(Kept().size(), 1U);
}

TEST_F(Restart, OffersOnceAndLeavesRefusedWorkInTheList) {
    EnterTask("Insert shaft");
    Start({false});
    EXPECT_EQ(Form().Events.back(), kOffer + std::string("no"));
    EXPECT_EQ(Task(), "");
    EXPECT_EQ(Kept().size(), 1U);
    Start();
    EXPECT_EQ(Kept().size(), 1U);
}

TEST_F(Restart, SaysNothingWhenTheKilledProgramLeftNoWork) {
    UserModel("pump.mdb", kPump);
    Open("pump.mdb");
    Start();
    EXPECT_EQ(Kept().size(), 0U);
    EXPECT_TRUE(Form().ProposedAnswers.empty());
}

/// Killed with the question on screen: the scripted form has no answer, and throws.
TEST_F(Restart, OffersAgainWhatWasNeverAnswered) {
    EnterTask("Insert shaft");
    EXPECT_THROW(Start(), std::logic_error);
    Start({true});
    EXPECT_EQ(Task(), "Insert shaft");
    EXPECT_EQ(Kept().size(), 1U);
}

TEST_F(Restart, KeepsTheWorkOfAProgramThatWroteNoState) {
    EnterTask("Insert shaft");
    Kill();
    fs::remove(Application.File("session.state"));
    Start();
    ASSERT_EQ(Kept().size(), 1U);
    EXPECT_EQ(TaskIn(Kept()[0]), "Insert shaft");
}

TEST_F(Restart, TakesADamagedStateForAnEndThatWasNotOrderly) {
    EnterTask("Insert shaft");
    EXPECT_TRUE(Commands().Exit());
    WriteFile(Application.File("session.state"), "sav");
    Start({true});
    EXPECT_EQ(Task(), "Insert shaft");
}

TEST_F(Restart, KeepsRecoveredWorkOnScreenWhenAFileWasGiven) {
    UserModel("pump.mdb", kPump);
    EnterTask("Mine");
    Start({true});
    Commands().OpenGiven(User.Path() / "pump.mdb");
    EXPECT_EQ(Task(), "Mine");
    EXPECT_EQ(Commands().Current().File, "");
    EXPECT_EQ(Form().Events.back(),
              "message[information]: " + PathText(User.Path() / "pump.mdb") +
                  " has not been opened, because the recovered work is in no file yet. Save it, "
                  "then open the file with File, Open.");
}

TEST_F(Restart, OpensTheGivenFileWhenTheWorkIsNotWanted) {
    UserModel("pump.mdb", kPump);
    EnterTask("Mine");
    Start({false});
    Commands().OpenGiven(User.Path() / "pump.mdb");
    EXPECT_EQ(Task(), "Insert shaft");
    EXPECT_EQ(Commands().Current().File, "pump.mdb");
    EXPECT_EQ(Kept().size(), 1U);
}

/// The journal holds what the pages were before a transaction that never ended.
TEST_F(Restart, PlaysBackTheJournalOfAKilledProgramBeforeItKeeps) {
    const test::TestModel killed(kPump);
    const Database database = killed.Open();
    const Transaction transaction(database);
    RecordSet gen = database.OpenRecordSet("SELECT * FROM Gen;");
    gen.Edit();
    gen.Set("Days", 78.0);
    gen.Update();
    RecordSet tasks = database.OpenRecordSet("SELECT * FROM Tasks;");
    for (int row = 0; row < 1000; ++row) {  // 5 MB, more than the store keeps in memory
        tasks.AddNew();
        tasks.Set("Description", std::string(5000, 'x'));
        tasks.Update();
    }
    Kill();
    for (const char* name : {"working.seq", "working.seq-journal"}) {
        fs::copy_file(killed.File(name), Application.File(name),
                      fs::copy_options::overwrite_existing);
    }
    Start({true});
    EXPECT_EQ(Form().Text(TextBox::txtDays), "240");
    EXPECT_EQ(Application.RowsOf("SELECT * FROM Tasks;", 2), Lines{"1|Insert shaft"});
    EXPECT_EQ(Kept().size(), 1U);
}

TEST_F(Restart, SetsADamagedWorkingCopyAside) {
    Kill();
    WriteFile(Application.File(), "torn to pieces");
    Start();
    EXPECT_EQ(Form().Text(TextBox::txtDays), "250");
    const std::string message = Form().Events.front();
    EXPECT_TRUE(message.starts_with("message[information]: The work of last time cannot be read"))
        << message;
    const auto moved = message.find(PathText(Application.File("Recovered")));
    ASSERT_NE(moved, std::string::npos) << message;
    EXPECT_EQ(ReadFile(message.substr(moved, message.size() - moved - 1)), "torn to pieces");
    EXPECT_EQ(Kept().size(), 0U);
}

TEST_F(Restart, DoesNotMindAnEmptyWorkingCopyOrNone) {
    Kill();
    WriteFile(Application.File(), "");
    Start();
    EXPECT_FALSE(fs::exists(Application.File("Recovered")));
    Kill();
    fs::remove(Application.File());
    Start();
    EXPECT_FALSE(fs::exists(Application.File("Recovered")));
    EXPECT_EQ(Form().Text(TextBox::txtDays), "250");
}

TEST_F(Restart, FindsAWorkingCopyThatWasBeingReplaced) {
    EnterTask("Insert shaft");
    Kill();
    fs::rename(Application.File(), Application.File("working.old"));
    fs::create_directory(Application.File("Incoming"));
    WriteFile(Application.File("Incoming") / "working.seq", "half a model");
    Start({true});
    EXPECT_EQ(Task(), "Insert shaft");
    EXPECT_FALSE(fs::exists(Application.File("working.old")));
    EXPECT_FALSE(fs::exists(Application.File("Incoming")));
}

TEST_F(Restart, ReplacesADamagedTemplate) {
    Kill();
    WriteFile(Application.File("blank.seq"), "");
    fs::remove(Application.File("session.state"));
    Start();
    EXPECT_EQ(Kept().size(), 0U) << "the working copy is still the template";
    EXPECT_EQ(Form().Text(TextBox::txtDays), "250");
    CheckModelFile(Application.File("blank.seq"), "blank.seq");
}

TEST_F(Recover, LoadsAnUntitledModelAndKeepsThePresentOne) {
    UserModel("pump.mdb", kPump);
    EnterTask("First");
    Open("pump.mdb");
    EnterTask("Second");
    Commands().Current().Changed = true;
    Form().YesNoAnswers = {false};
    Form().Events.clear();
    Commands().Recover(Commands().KeptModels().at(0));
    EXPECT_EQ(Form().Events.front(), kAsked + std::string("no"));
    EXPECT_EQ(Form().Events.back(), "title: Quarnel02");
    EXPECT_EQ(Task(), "First");
    EXPECT_EQ(Commands().Current().Dir + Commands().Current().File, "");
    EXPECT_FALSE(Commands().Current().Changed);
    EXPECT_TRUE(Commands().HasUnsavedWork());
    ASSERT_EQ(Kept().size(), 2U);
    EXPECT_EQ(Application.RowsOf("SELECT * FROM Tasks;", 2), Lines{"1|First"});
}

/// Keeping the present work removes the oldest of twenty, which is the one that is wanted.
TEST_F(Recover, LoadsTheOldestOfTwenty) {
    for (int work = 1; work <= 20; ++work) {
        EnterTask("Task " + std::to_string(work));
        Commands().New();
    }
    ASSERT_EQ(Kept().size(), 20U);
    EnterTask("Mine");
    Commands().Recover(Commands().KeptModels().back());
    EXPECT_EQ(Task(), "Task 1");
    EXPECT_EQ(TaskIn(Kept().front()), "Mine");
    EXPECT_EQ(Kept().size(), 20U);
}

TEST_F(Recover, ByTheOpenDialogIsUntitledToo) {
    EnterTask("First");
    Commands().New();
    const fs::path kept = Kept().at(0);
    Program->Dialog.Answers = {{PathText(kept.parent_path()), PathText(kept.filename())}};
    Commands().Open();
    EXPECT_EQ(Task(), "First");
    EXPECT_EQ(Commands().Current().File, "");
    EXPECT_TRUE(Commands().HasUnsavedWork());
}

TEST_F(Recover, OfAFileThatHasGoneChangesNothing) {
    EnterTask("Mine");
    Form().Events.clear();
    Commands().Recover({User.Path() / "gone.mdb", ""});
    ASSERT_EQ(Form().Events.size(), 1U);
    EXPECT_TRUE(Form().Events[0].starts_with("message[critical]: ")) << Form().Events[0];
    EXPECT_EQ(Task(), "Mine");
}

}  // namespace
}  // namespace quarnel02
