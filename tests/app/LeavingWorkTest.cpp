// What happens to work that no file holds when a command or the end of the program leaves it.

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "app/IncomingModel.h"
#include "app/Parameters.h"
#include "basic/RunTimeError.h"
#include "support/CommandDesk.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::ScriptedForm;

using Lines = std::vector<std::string>;

constexpr const char* kAsked = "ask[information]: Do you want to save your changes first? -> ";
constexpr const char* kOffer =
    "ask[question]: Quarnel02 did not end properly last time. Load the work that was kept? -> ";
constexpr const char* kPump =
    "UPDATE Gen SET Days = 240, Tasks = 1, Product = 'Pump';"
    "INSERT INTO Tasks VALUES (1, 'Insert shaft');";

/// The program on one application directory, started and ended as often as a test likes.
struct Leaving : ::testing::Test {
    Leaving() { Start(); }

    /// What an event of the program would be after the form has run.
    struct Run {
        explicit Run(const fs::path& directory) : Form(directory) {}
        ScriptedForm Form;
        test::ScriptedDialog Dialog{Form};
        FileCommands Commands{Form, Dialog};
    };
    void Start(std::deque<bool> answers = {}) {
        Kill();
        Program = std::make_unique<Run>(Application.Directory());
        Program->Form.YesNoAnswers = std::move(answers);
        Program->Commands.StartUp();
    }
    /// Ends the program as a power cut would.
    void Kill() { Program.reset(); }

    /// The editors do not raise Changed.
    void EnterTask(const std::string& text) {
        const Database database = Database::Open(Application.File());
        RecordSet tasks = database.OpenRecordSet("SELECT * FROM Tasks;");
        tasks.AddNew();
        tasks.Set("TaskId", 1);
        tasks.Set("Description", text);
        tasks.Update();
    }
    void EnterDays(const std::string& days) {
        Program->Form.SetText(TextBox::txtDays, days);
        SaveGeneral(Program->Form);
    }
    void UserModel(const std::string& name, const std::string& script) const {
        MakeModelFile(User.Path() / name, ReadFile(QUARNEL02_SCHEMA_FILE) + script);
    }
    void Open(const std::string& name) {
        Program->Dialog.Answers = {{PathText(User.Path()), name}};
        Program->Commands.Open();
    }
    [[nodiscard]] std::vector<fs::path> Kept() const {
        std::vector<fs::path> files;
        for (const KeptModel& kept : Program->Commands.KeptModels()) {
            files.push_back(kept.Path);
        }
        return files;
    }
    [[nodiscard]] static std::string TaskIn(const fs::path& model) {
        RecordSet tasks = Database::Open(model).OpenRecordSet("SELECT * FROM Tasks;");
        return tasks.Eof() ? "" : tasks.Text("Description");
    }
    [[nodiscard]] std::string Task() const { return TaskIn(Application.File()); }
    [[nodiscard]] ScriptedForm& Form() const { return Program->Form; }
    [[nodiscard]] FileCommands& Commands() const { return Program->Commands; }

    test::TestModel Application;
    TemporaryDirectory User;
    std::unique_ptr<Run> Program;
};

using HasUnsavedWork = Leaving;
using Exit = Leaving;
using Restart = Leaving;
using Recover = Leaving;
using FailedSave = Leaving;

TEST_F(HasUnsavedWork, FollowsTheWorkingCopyAndNotTheFlag) {
    EXPECT_FALSE(Commands().HasUnsavedWork());
    EnterTask("Insert shaft");
    EXPECT_FALSE(Form().Changed);
    EXPECT_TRUE(Commands().HasUnsavedWork());
    Program->Dialog.Answers = {{PathText(User.Path()), "line.mdb"}};
    Commands().Save();
    EXPECT_FALSE(Commands().HasUnsavedWork());
    EnterDays("231");
    EXPECT_TRUE(Commands().HasUnsavedWork());
    EnterDays("250");
    EXPECT_TRUE(Form().Changed);
    EXPECT_FALSE(Commands().HasUnsavedWork());
}

TEST_F(HasUnsavedWork, IsStillTrueAfterACancelledSaveAs) {
    EnterDays("231");
    Program->Dialog.Answers = {{"", ""}};
    Commands().Save();
    EXPECT_FALSE(Form().Changed);
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
    EXPECT_EQ(Form().CurrentFile, "");
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
    Form().CurrentDir = PathText(User.Path() / "gone");
    Form().CurrentFile = "line.mdb";
    Form().YesNoAnswers = {true};
    EXPECT_FALSE(Commands().Exit());
    EXPECT_TRUE(Form().Changed);
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
    Form().CurrentDir = PathText(User.Path() / "gone");
    Form().CurrentFile = "line.mdb";
    Form().Events.clear();
    for (const auto& command : commands) {
        Form().YesNoAnswers = {true};
        command(Commands());
        ASSERT_EQ(Form().Events.size(), 2U) << Form().Events.back();
        EXPECT_EQ(Form().Events[0], kAsked + std::string("yes"));
        EXPECT_TRUE(Form().Events[1].starts_with("message[critical]: Could not save this file."));
        EXPECT_TRUE(Form().Changed);
        EXPECT_EQ(Form().CurrentFile, "line.mdb");
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
    EXPECT_EQ(Form().CurrentFile, "");
    Open("pump.mdb");
    EXPECT_EQ(Task(), "Insert shaft");
}

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

TEST_F(Leaving, AnIncomingModelThatCannotBeShownGivesItsPlaceBack) {
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
    form.CloseModel();
    EXPECT_EQ(Task(), "Mine");
    EXPECT_FALSE(fs::exists(Application.File("working.old")));
    EXPECT_FALSE(fs::exists(Application.File("Incoming")));
}

TEST_F(Restart, OffersTheWorkOfAKilledProgram) {
    EnterTask("Insert shaft");
    Start({true});
    EXPECT_EQ(Form().ProposedAnswers, std::vector{Answer::Yes});
    EXPECT_EQ(Task(), "Insert shaft");
    EXPECT_EQ(Form().CurrentDir + Form().CurrentFile, "");
    EXPECT_EQ(Form().Events.back(), "title: Quarnel02");
    EXPECT_TRUE(Commands().HasUnsavedWork());
    EXPECT_FALSE(Form().Changed);
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
    Form().Changed = true;
    Form().YesNoAnswers = {false};
    Form().Events.clear();
    Commands().Recover(Commands().KeptModels().at(0));
    EXPECT_EQ(Form().Events.front(), kAsked + std::string("no"));
    EXPECT_EQ(Form().Events.back(), "title: Quarnel02");
    EXPECT_EQ(Task(), "First");
    EXPECT_EQ(Form().CurrentDir + Form().CurrentFile, "");
    EXPECT_FALSE(Form().Changed);
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
    EXPECT_EQ(Form().CurrentFile, "");
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
