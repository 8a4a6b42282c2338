// Save and Save As of the File menu.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "commands/FileCommands.h"
#include "commands/Parameters.h"
#include "files/SaveModel.h"
#include "support/CommandDesk.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::CommandDesk;

using Lines = std::vector<std::string>;

constexpr const char* kSaveFailed =
    "message[critical]: Could not save this file.  Possible cause: working.seq is open in Access, "
    "or is missing / invalid";
constexpr const char* kPumpModel =
    "UPDATE Gen SET Days = 240, Product = 'Pump'; INSERT INTO Demand VALUES (5000, 90);";

/// The one message that came says that saving failed, and in a second paragraph why.
void ExpectSaveFailed(const Lines& events, const Lines& before = {}) {
    ASSERT_EQ(events.size(), before.size() + 1);
    EXPECT_EQ(Lines(events.begin(), events.end() - 1), before);
    EXPECT_TRUE(events.back().starts_with(kSaveFailed + std::string("\n\n"))) << events.back();
    EXPECT_GT(events.back().size(), std::string(kSaveFailed).size() + 10);
}

/// A changed model with the product "Pump".
struct Saving : ::testing::Test {
    Saving() { Desk.Commands.Current().Changed = true; }

    [[nodiscard]] std::string Proposed() const {
        return "dialog[save|" + Desk.ApplicationDirectory() + "|Pump]";
    }

    CommandDesk Desk{kPumpModel};
};

using Save = Saving;
using SaveAs = Saving;

TEST_F(Save, CopiesTheWorkingCopyWithoutReloading) {
    Desk.UseFile("Förder band.mdb");
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events, Lines{});
    EXPECT_EQ(CommandDesk::InputsOf(Desk.UserFile("Förder band.mdb")), Desk.WorkingInputs());
    EXPECT_EQ(Desk.RecentText(), PathText(Desk.UserFile("Förder band.mdb")) + "\n");
    EXPECT_FALSE(Desk.Commands.Current().Changed);
}

TEST_F(Save, HoldsWhatWasEnteredLast) {
    Desk.UseFile("line.mdb");
    Desk.Form.SetText(TextBox::txtDays, "231.5");
    SaveGeneral(Desk.Form, Desk.Commands.Current());
    Desk.Commands.Save();
    CheckModelFile(Desk.UserFile("line.mdb"), "line.mdb");
    const Database saved = Database::Open(Desk.UserFile("line.mdb"));
    EXPECT_EQ(saved.OpenRecordSet("SELECT * FROM Gen;").Text("Days"), "231.5");
}

TEST_F(Save, LeavesTheModelReadyForMore) {
    Desk.UseFile("line.mdb");
    Desk.Commands.Save();
    Desk.Form.SetText(TextBox::txtDays, "200");
    SaveGeneral(Desk.Form, Desk.Commands.Current());
    EXPECT_EQ(Desk.WorkingDays(), "200");
    EXPECT_TRUE(Desk.Commands.Current().Changed);
}

TEST_F(Save, KeepsThePermissionsOfTheFile) {
    const std::string path = Desk.MakeUserModel("line.mdb");
    const auto rights = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
    fs::permissions(path, rights);
    Desk.UseFile("line.mdb");
    Desk.Commands.Save();
    EXPECT_EQ(fs::status(path).permissions(), rights);
    EXPECT_EQ(CommandDesk::InputsOf(path), Desk.WorkingInputs());
}

TEST_F(Save, FailsWithoutAWorkingCopyAndLeavesTheOldFileWhole) {
    const std::string path = Desk.MakeUserModel("line.mdb");
    const std::string content = ReadFile(path);
    Desk.UseFile("line.mdb");
    fs::remove(Desk.Application.File());
    Desk.Commands.Save();
    ExpectSaveFailed(Desk.Form.Events);
    EXPECT_TRUE(Desk.Commands.Current().Changed);
    EXPECT_EQ(ReadFile(path), content);
    EXPECT_EQ(Desk.RecentText(), "");
}

TEST_F(Save, FailsIntoADirectoryThatHasGone) {
    Desk.Commands.Current().Dir = PathText(Desk.UserFile("gone"));
    Desk.Commands.Current().File = "line.mdb";
    Desk.Commands.Save();
    ExpectSaveFailed(Desk.Form.Events);
    EXPECT_TRUE(Desk.Commands.Current().Changed);
    EXPECT_EQ(Desk.RecentText(), "");
}

TEST_F(Save, FailsForANameThatIsTooLong) {
    Desk.UseFile(std::string(300, 'x') + ".mdb");
    Desk.Commands.Save();
    ExpectSaveFailed(Desk.Form.Events);
    EXPECT_TRUE(Desk.Commands.Current().Changed);
}

TEST_F(Save, OfAnUntitledModelIsSaveAs) {
    Desk.Dialog.Answers = {{Desk.UserDirectory(), "line.mdb"}};
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events.at(0), Proposed());
    EXPECT_TRUE(fs::exists(Desk.UserFile("line.mdb")));
    EXPECT_FALSE(Desk.Commands.Current().Changed);
}

TEST_F(Save, OfAnUntitledModelClearsTheChangesThoughCancelled) {
    Desk.Dialog.Answers = {{"", ""}};
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events, Lines{Proposed()});
    EXPECT_FALSE(Desk.Commands.Current().Changed);
    EXPECT_EQ(Desk.Commands.Current().Dir, Desk.ApplicationDirectory());
    EXPECT_EQ(Desk.Commands.Current().File, "Pump");
    EXPECT_FALSE(fs::exists(Desk.Application.File("Pump")));
}

TEST_F(Save, WritesWithoutAskingAfterACancelledProposal) {
    Desk.Dialog.Answers = {{"", ""}};
    Desk.Commands.Save();
    Desk.Form.Events.clear();
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events, Lines{});
    EXPECT_FALSE(fs::exists(Desk.Application.File("Pump")));
    EXPECT_EQ(CommandDesk::InputsOf(Desk.Application.File("Pump.mdb")), Desk.WorkingInputs());
    EXPECT_EQ(Desk.RecentText(), PathText(Desk.Application.File("Pump.mdb")) + "\n");
}

TEST_F(Save, AsksBeforeAProposalReplacesAFile) {
    WriteFile(Desk.Application.File("Pump.mdb"), "another pump");
    Desk.Dialog.Answers = {{"", ""}};
    Desk.Commands.Save();
    Desk.Commands.Current().Changed = true;
    Desk.Form.Events.clear();
    Desk.Form.YesNoAnswers = {false, true};
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events, Lines{"ask[information]: File already exists.  Overwrite? -> no"});
    EXPECT_EQ(Desk.Form.ProposedAnswers, std::vector{Answer::No});
    EXPECT_TRUE(Desk.Commands.Current().Changed);
    EXPECT_EQ(ReadFile(Desk.Application.File("Pump.mdb")), "another pump");
    Desk.Commands.Save();
    EXPECT_EQ(CommandDesk::InputsOf(Desk.Application.File("Pump.mdb")), Desk.WorkingInputs());
}

/// Saving over a database that somebody uses for more than a model.
struct SavingOverMore : Saving {
    SavingOverMore() : Path(Desk.MakeUserModel("line.mdb", "CREATE TABLE Suppliers (Name TEXT);")) {
        Desk.UseFile("line.mdb");
    }
    [[nodiscard]] std::string Asked() const {
        return "ask[question]: " + Path +
               " holds more than a model: table Suppliers. Saving removes it. Replace the file? "
               "-> ";
    }
    std::string Path;
};

TEST_F(SavingOverMore, ReplacesNothingAfterNo) {
    const std::string content = ReadFile(Path);
    Desk.Form.YesNoAnswers = {false};
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events, Lines{Asked() + "no"});
    EXPECT_EQ(Desk.Form.ProposedAnswers, std::vector{Answer::No});
    EXPECT_EQ(ReadFile(Path), content);
    EXPECT_TRUE(Desk.Commands.Current().Changed);
}

TEST_F(SavingOverMore, EndsTheCommandThatAskedToSaveAfterNo) {
    Desk.Form.YesNoAnswers = {true, false};
    Desk.Commands.New();
    ASSERT_EQ(Desk.Form.Events.size(), 2U);
    EXPECT_EQ(Desk.Form.Events[1], Asked() + "no");
    EXPECT_EQ(Desk.WorkingDays(), "240");
    EXPECT_EQ(Desk.Commands.Current().File, "line.mdb");
}

TEST_F(SavingOverMore, ReplacesTheFileAfterYes) {
    Desk.Form.YesNoAnswers = {true};
    Desk.Commands.Save();
    EXPECT_FALSE(Desk.Commands.Current().Changed);
    EXPECT_TRUE(ForeignObjects(Path).empty());
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events.size(), 1U) << "asked although nothing would be lost";
}

TEST_F(Save, WritesAFileWithoutExtensionBackUnderItsName) {
    Desk.MakeUserModel("pump");
    Desk.UseFile("pump");
    Desk.Commands.Save();
    EXPECT_EQ(CommandDesk::InputsOf(Desk.UserFile("pump")), Desk.WorkingInputs());
    EXPECT_FALSE(fs::exists(Desk.UserFile("pump.mdb")));
}

TEST_F(Save, OfAnUntitledModelClearsTheChangesThoughFailed) {
    Desk.Dialog.Answers = {{PathText(Desk.UserFile("gone")), "line.mdb"}};
    Desk.Commands.Save();
    ExpectSaveFailed(Desk.Form.Events, {Proposed()});
    EXPECT_FALSE(Desk.Commands.Current().Changed);
}

TEST_F(Save, AsksAgainWhileThereIsNoName) {
    Desk.Form.SetText(TextBox::txtProduct, "");
    Desk.Dialog.Answers = {{"", ""}, {"", ""}};
    Desk.Commands.Save();
    Desk.Commands.Save();
    const std::string unnamed = "dialog[save|" + Desk.ApplicationDirectory() + "|]";
    EXPECT_EQ(Desk.Form.Events, (Lines{unnamed, unnamed}));
}

TEST_F(SaveAs, SavesReloadsAndLeavesTheTitle) {
    const auto before = Desk.WorkingInputs();
    Desk.Dialog.Answers = {{Desk.UserDirectory(), "line.mdb"}};
    Desk.Commands.SaveAs();
    EXPECT_EQ(Desk.Form.Events, (Lines{Proposed(), "busy", "idle", "sum:  rgb(0,0,0)",
                                       "sum: 90% (10% missing) rgb(255,0,0)"}));
    EXPECT_EQ(CommandDesk::InputsOf(Desk.UserFile("line.mdb")), before);
    EXPECT_EQ(Desk.Commands.Current().Dir, Desk.UserDirectory());
    EXPECT_EQ(Desk.Commands.Current().File, "line.mdb");
    EXPECT_EQ(Desk.RecentText(), PathText(Desk.UserFile("line.mdb")) + "\n");
    EXPECT_FALSE(Desk.Commands.Current().Changed);
}

TEST_F(SaveAs, ProposesTheFileThereIs) {
    Desk.UseFile("line.mdb");
    Desk.Dialog.Answers = {{"", ""}};
    Desk.Commands.SaveAs();
    EXPECT_EQ(Desk.Form.Events, Lines{"dialog[save|" + Desk.UserDirectory() + "|line.mdb]"});
    EXPECT_TRUE(Desk.Commands.Current().Changed);
    EXPECT_EQ(Desk.Commands.Current().File, "line.mdb");
}

TEST_F(SaveAs, KeepsWhatItProposedAfterCancel) {
    Desk.Dialog.Answers = {{"", ""}};
    Desk.Commands.SaveAs();
    EXPECT_EQ(Desk.Commands.Current().Dir, Desk.ApplicationDirectory());
    EXPECT_EQ(Desk.Commands.Current().File, "Pump");
    EXPECT_TRUE(Desk.Commands.Current().Changed);
}

TEST_F(SaveAs, SaysThatItFailedAndKeepsTheChanges) {
    const fs::path directory = Desk.UserFile("line.mdb");
    fs::create_directory(directory);
    Desk.Dialog.Answers = {{Desk.UserDirectory(), "line.mdb"}};
    Desk.Commands.SaveAs();
    ExpectSaveFailed(Desk.Form.Events, {Proposed()});
    EXPECT_TRUE(Desk.Commands.Current().Changed);
    EXPECT_TRUE(fs::is_directory(directory));
    EXPECT_EQ(Desk.RecentText(), "");
}

TEST_F(SaveAs, IsOpenedAgainAsItWasSaved) {
    Desk.Dialog.Answers = {{Desk.UserDirectory(), "line.mdb"}, {Desk.UserDirectory(), "line.mdb"}};
    Desk.Commands.SaveAs();
    Desk.Commands.New();
    EXPECT_EQ(Desk.Form.DemandCount(), 0);
    Desk.Commands.Open();
    EXPECT_EQ(Desk.Form.Text(TextBox::txtProduct), "Pump");
    EXPECT_EQ(Desk.Form.DemandLine(0), "5,000:  90%");
    Desk.Commands.Save();
    EXPECT_EQ(CommandDesk::InputsOf(Desk.UserFile("line.mdb")), Desk.WorkingInputs());
}

/// A model that was opened from a file, and changed.
struct SaveOver : Saving {
    SaveOver() {
        Desk.Commands.Current().Changed = false;
        Desk.Commands.OpenAnother(Desk.MakeUserModel("line.mdb"));
        Change();
    }

    void Change() {
        Desk.Form.SetText(TextBox::txtDays, std::to_string(++Days));
        SaveGeneral(Desk.Form, Desk.Commands.Current());
    }
    /// As another program writes it: another model in its place.
    void ChangeByOthers() const { Desk.MakeUserModel("line.mdb", "UPDATE Gen SET Days = 99;"); }
    [[nodiscard]] bool HoldsTheWork() const {
        return CommandDesk::InputsOf(Desk.UserFile("line.mdb")) == Desk.WorkingInputs();
    }

    int Days = 200;
};

TEST_F(SaveOver, AsksBeforeItReplacesWhatAnotherProgramHasWritten) {
    ChangeByOthers();
    Desk.Form.YesNoAnswers = {false};
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events.back(),
              "ask[question]: " + PathText(Desk.UserFile("line.mdb")) +
                  " has been changed by another program since it was last opened or saved here. "
                  "Replace the file, and lose those changes? With No, it stays; Save As saves this "
                  "model as another file. -> no");
    EXPECT_EQ(Desk.Form.ProposedAnswers.back(), Answer::No);
    EXPECT_FALSE(HoldsTheWork());
    EXPECT_TRUE(Desk.Commands.Current().Changed);
    Desk.Form.YesNoAnswers = {true};
    Desk.Commands.Save();
    EXPECT_TRUE(HoldsTheWork());
}

TEST_F(SaveOver, DoesNotAskAboutWhatThisProgramHasWritten) {
    Desk.Commands.Save();
    Change();
    Desk.Commands.Save();
    EXPECT_TRUE(HoldsTheWork());
    ChangeByOthers();
    Desk.Form.YesNoAnswers = {true};
    Change();
    Desk.Commands.Save();
    Change();
    Desk.Commands.Save();
    EXPECT_TRUE(HoldsTheWork());
}

TEST_F(SaveOver, WritesAFileThatIsGoneAgain) {
    fs::remove(Desk.UserFile("line.mdb"));
    Desk.Commands.Save();
    EXPECT_TRUE(HoldsTheWork());
}

}  // namespace
}  // namespace quarnel02
