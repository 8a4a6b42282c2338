// The commands of the File menu with Access databases.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "commands/FileCommands.h"
#include "commands/Parameters.h"
#include "files/SaveModel.h"
#include "jet/TinyModel.h"
#include "shell/StoredScenarios.h"
#include "support/AccessTables.h"
#include "support/CommandDesk.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::CommandDesk;

using Lines = std::vector<std::string>;

constexpr const char* kPumpModel =
    "UPDATE Gen SET Days = 240, Product = 'Pump'; INSERT INTO Demand VALUES (5000, 90);";
constexpr const char* kSaveFailed =
    "message[critical]: Could not save this file.  Possible cause: working.seq is open in Access, "
    "or is missing / invalid\n\n";

struct AccessFiles : ::testing::Test {
    /// An Access database of the user's with a model of 240 days.
    std::string Make(const std::string& name) {
        SaveModel(Desk.Application.File(), Desk.UserFile(name), ModelFormat::Access);
        return PathText(Desk.UserFile(name));
    }
    void Open(const std::string& name) {
        Desk.Dialog.Answers = {{Desk.UserDirectory(), name, {}}};
        Desk.Commands.Open();
        Desk.Form.Events.clear();
    }
    /// Makes the file one of a certain generation, with objects of a user's.
    void MakeTiny(const std::string& name, unsigned version, bool withQuery) {
        Make(name);
        jet::TinyFile file = jet::TinyFileOf(version, test::TablesIn(Desk.UserFile(name)));
        if (withQuery) {
            file.AddObject("Costs", 5);
        }
        WriteFile(Desk.UserFile(name), file.Content());
    }
    void ChangeDays(const char* days) {
        Desk.Form.SetText(TextBox::txtDays, days);
        SaveGeneral(Desk.Form, Desk.Commands.Current());
    }
    [[nodiscard]] std::string DaysIn(const std::string& name) const {
        jet::Reader reader(Desk.UserFile(name), name);
        return jet::TextOf(jet::ReadWhole(reader, "Gen").Rows);
    }
    [[nodiscard]] ModelFormat FormatOf(const std::string& name) const {
        return FormatOfFile(Desk.UserFile(name)).value();
    }

    CommandDesk Desk{kPumpModel};
};

TEST_F(AccessFiles, AreOpenedAndSavedAsWhatTheyWere) {
    Make("line.mdb");
    Open("line.mdb");
    EXPECT_EQ(Desk.Commands.Current().Format, ModelFormat::Access);
    EXPECT_EQ(Desk.Form.Text(TextBox::txtProduct), "Pump");
    EXPECT_EQ(Desk.Form.DemandLine(0), "5,000:  90%");
    ChangeDays("231.5");
    EXPECT_EQ(DaysIn("line.mdb"), "0|0|240|0.25|20|5|0|\"Pump\"\n");
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events, Lines{});
    EXPECT_EQ(FormatOf("line.mdb"), ModelFormat::Access);
    EXPECT_EQ(DaysIn("line.mdb"), "0|0|231.5|0.25|20|5|0|\"Pump\"\n");
    EXPECT_FALSE(Desk.Commands.Current().Changed);
    EXPECT_FALSE(Desk.Commands.HasUnsavedWork());
}

TEST_F(AccessFiles, AreKnownWhenTheyAreOpenedFromTheRecentOnes) {
    Make("line.mdb");
    Desk.MakeUserModel("own.mdb");
    Desk.SetRecent({PathText(Desk.UserFile("line.mdb")), PathText(Desk.UserFile("own.mdb"))});
    Desk.Commands.OpenRecent("1. ..\\line.mdb");
    EXPECT_EQ(Desk.Commands.Current().File, "line.mdb");
    EXPECT_EQ(Desk.Commands.Current().Format, ModelFormat::Access);
    Desk.Commands.OpenRecent("2. ..\\own.mdb");
    EXPECT_EQ(Desk.Commands.Current().File, "own.mdb");
    EXPECT_EQ(Desk.Commands.Current().Format, ModelFormat::Sqlite);
}

TEST_F(AccessFiles, AFileThatCannotBeReadChangesNothing) {
    Make("line.mdb");
    Open("line.mdb");
    WriteFile(Desk.UserFile("bad.mdb"), "text");
    Desk.Dialog.Answers = {{Desk.UserDirectory(), "bad.mdb", {}}};
    Desk.Commands.Open();
    EXPECT_EQ(Desk.Commands.Current().File, "line.mdb");
    EXPECT_EQ(Desk.Commands.Current().Format, ModelFormat::Access);
}

TEST_F(AccessFiles, NewModelsAreOurOwn) {
    Make("line.mdb");
    Open("line.mdb");
    Desk.Commands.New();
    EXPECT_EQ(Desk.Commands.Current().Format, ModelFormat::Sqlite);
}

TEST_F(AccessFiles, SaveAsBeginsWithTheFormatThereIsAndTakesTheOther) {
    Make("line.mdb");
    Open("line.mdb");
    Desk.Dialog.Answers = {{"", "", ModelFormat::Sqlite},
                           {Desk.UserDirectory(), "own.mdb", ModelFormat::Sqlite}};
    const std::string asked = "dialog[save|" + Desk.UserDirectory() + "|line.mdb|access]";
    Desk.Commands.SaveAs();
    EXPECT_EQ(Desk.Form.Events, Lines{asked});
    EXPECT_EQ(Desk.Commands.Current().Format, ModelFormat::Access) << "the dialog was cancelled";
    Desk.Commands.SaveAs();
    EXPECT_EQ(Desk.Form.Events.at(1), asked);
    EXPECT_EQ(FormatOf("own.mdb"), ModelFormat::Sqlite);
    EXPECT_EQ(FormatOf("line.mdb"), ModelFormat::Access);
    EXPECT_EQ(Desk.Commands.Current().Format, ModelFormat::Sqlite);
    Desk.Commands.Save();
    EXPECT_EQ(FormatOf("own.mdb"), ModelFormat::Sqlite);
}

TEST_F(AccessFiles, AModelOfOurOwnIsSavedForAccess) {
    Desk.Dialog.Answers = {{Desk.UserDirectory(), "line.mdb", ModelFormat::Access}};
    Desk.Commands.SaveAs();
    EXPECT_EQ(FormatOf("line.mdb"), ModelFormat::Access);
    EXPECT_EQ(DaysIn("line.mdb"), "0|0|240|0.25|20|5|0|\"Pump\"\n");
    EXPECT_EQ(Desk.RecentText(), PathText(Desk.UserFile("line.mdb")) + "\n");
    ChangeDays("200");
    Desk.Commands.Save();
    EXPECT_EQ(DaysIn("line.mdb"), "0|0|200|0.25|20|5|0|\"Pump\"\n");
}

TEST_F(AccessFiles, OneThatIsOpenElsewhereIsNotOpened) {
    const std::string path = Make("line.mdb");
    WriteFile(Desk.UserFile("line.ldb"), "PLANNING");
    Desk.Dialog.Answers = {{Desk.UserDirectory(), "line.mdb", {}}};
    Desk.Commands.Open();
    EXPECT_EQ(Desk.Form.Events.back(),
              "message[critical]: " + path +
                  " is open in Access: the lock file line.ldb stands beside it. Close it there. If "
                  "nobody has it open, delete line.ldb.");
    EXPECT_EQ(Desk.Commands.Current().File, "");
}

TEST_F(AccessFiles, OneThatWasOpenedElsewhereMeanwhileIsNotReplaced) {
    const std::string path = Make("line.mdb");
    Open("line.mdb");
    const std::string content = ReadFile(path);
    ChangeDays("200");
    WriteFile(Desk.UserFile("line.ldb"), "PLANNING");
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events,
              Lines{kSaveFailed + path +
                    " is open in Access: the lock file line.ldb stands beside it. Close it there. "
                    "If nobody has it open, delete line.ldb."});
    EXPECT_EQ(ReadFile(path), content);
    EXPECT_TRUE(Desk.Commands.Current().Changed);
    fs::remove(Desk.UserFile("line.ldb"));
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events.size(), 1U);
    EXPECT_FALSE(Desk.Commands.Current().Changed);
    EXPECT_NE(ReadFile(path), content);
}

TEST_F(AccessFiles, ATextThatAccessDoesNotTakeFailsWithItsPlace) {
    const std::string path = Make("line.mdb");
    Open("line.mdb");
    const std::string content = ReadFile(path);
    Desk.Form.SetText(TextBox::txtProduct, std::string(256, 'x'));
    SaveGeneral(Desk.Form, Desk.Commands.Current());
    Desk.Commands.Save();
    ASSERT_EQ(Desk.Form.Events.size(), 1U);
    EXPECT_TRUE(Desk.Form.Events[0].starts_with(
        kSaveFailed + std::string("An Access database cannot hold the model: ")))
        << Desk.Form.Events[0];
    EXPECT_NE(Desk.Form.Events[0].find("Product"), std::string::npos) << Desk.Form.Events[0];
    EXPECT_EQ(ReadFile(path), content);
    EXPECT_TRUE(Desk.Commands.Current().Changed);
}

TEST_F(AccessFiles, WorkIsKeptAndRecoveredAsAnUntitledModel) {
    Make("line.mdb");
    Open("line.mdb");
    fs::remove_all(Desk.Application.File("Recovered"));
    ChangeDays("200");
    Desk.Form.YesNoAnswers = {false};
    Desk.Commands.New();
    const std::vector<KeptModel> kept = Desk.Commands.KeptModels();
    ASSERT_EQ(kept.size(), 1U);
    Desk.Commands.Recover(kept.front());
    EXPECT_EQ(Desk.WorkingDays(), "200");
    EXPECT_EQ(Desk.Commands.Current().File, "");
    EXPECT_EQ(Desk.Commands.Current().Format, ModelFormat::Sqlite);
}

/// An Access database that is open, and a scenario made since.
struct AccessFilesWithScenarios : AccessFiles {
    AccessFilesWithScenarios() {
        Make("line.mdb");
        Open("line.mdb");
        WriteScenarios(Desk.Form.OpenWorkingCopy(), {{"Wages", "LaborCost +10%"}});
        ChangeDays("200");
    }
    [[nodiscard]] std::string Asked() const {
        return "ask[question]: " + PathText(Desk.UserFile("line.mdb")) +
               " is to be an Access database, which cannot hold the 1 scenario of this model. Save "
               "the model as a file of this program, which holds all of it? -> ";
    }
    static constexpr const char* kWithout =
        "ask[question]: Save the Access database without the scenarios? They stay in this program "
        "until another model is opened, and are then kept under File > Recover. -> ";
};

TEST_F(AccessFilesWithScenarios, AreSavedAsOurOwnWhenThatIsAgreed) {
    Desk.Form.YesNoAnswers = {true};
    Desk.Dialog.Answers = {{Desk.UserDirectory(), "own.mdb", {}}};
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.ProposedAnswers, std::vector{Answer::Yes});
    EXPECT_EQ(Desk.Form.Events.at(0), Asked() + "yes");
    EXPECT_EQ(Desk.Form.Events.at(1), "dialog[save|" + Desk.UserDirectory() + "|line.mdb]");
    EXPECT_EQ(FormatOf("own.mdb"), ModelFormat::Sqlite);
    EXPECT_EQ(ReadScenarios(Database::Open(Desk.UserFile("own.mdb"))).size(), 1U);
    EXPECT_EQ(DaysIn("line.mdb"), "0|0|240|0.25|20|5|0|\"Pump\"\n");
    EXPECT_FALSE(Desk.Commands.HasUnsavedWork());
}

TEST_F(AccessFilesWithScenarios, AreNotSavedWhenNeitherIsAgreed) {
    Desk.Form.YesNoAnswers = {false, false};
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events, (Lines{Asked() + "no", std::string(kWithout) + "no"}));
    EXPECT_EQ(Desk.Form.ProposedAnswers, (std::vector{Answer::Yes, Answer::No}));
    EXPECT_EQ(DaysIn("line.mdb"), "0|0|240|0.25|20|5|0|\"Pump\"\n");
    EXPECT_TRUE(Desk.Commands.Current().Changed);
    EXPECT_EQ(Desk.Commands.Current().Format, ModelFormat::Access);
}

TEST_F(AccessFilesWithScenarios, KeepTheirFormatWhenNoOtherFileIsNamed) {
    Desk.Form.YesNoAnswers = {true};
    Desk.Dialog.Answers = {{"", "", {}}};
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Commands.Current().Format, ModelFormat::Access);
    EXPECT_TRUE(Desk.Commands.Current().Changed);
}

TEST_F(AccessFilesWithScenarios, AreSavedWithoutThemOnceThatIsAgreed) {
    Desk.Form.YesNoAnswers = {false, true};
    Desk.Commands.Save();
    EXPECT_EQ(DaysIn("line.mdb"), "0|0|200|0.25|20|5|0|\"Pump\"\n");
    EXPECT_FALSE(Desk.Commands.Current().Changed);
    EXPECT_TRUE(Desk.Commands.HasUnsavedWork()) << "no file holds the scenario";
    ChangeDays("201");
    Desk.Form.Events.clear();
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events, Lines{}) << "the same file is not asked about again";
    EXPECT_EQ(DaysIn("line.mdb"), "0|0|201|0.25|20|5|0|\"Pump\"\n");
    Desk.Dialog.Answers = {{Desk.UserDirectory(), "other.mdb", ModelFormat::Access}};
    Desk.Form.YesNoAnswers = {false, false};
    Desk.Commands.SaveAs();
    EXPECT_FALSE(fs::exists(Desk.UserFile("other.mdb")));
}

TEST_F(AccessFilesWithScenarios, KeepThemWhenTheModelIsLeft) {
    fs::remove_all(Desk.Application.File("Recovered"));
    Desk.Form.YesNoAnswers = {false, true};
    Desk.Commands.Save();
    Desk.Commands.New();
    const std::vector<KeptModel> kept = Desk.Commands.KeptModels();
    ASSERT_EQ(kept.size(), 1U);
    Desk.Commands.Recover(kept.front());
    EXPECT_EQ(ReadScenarios(Desk.Form.OpenWorkingCopy()).size(), 1U);
}

TEST_F(AccessFilesWithScenarios, AreAskedAboutAgainInAnotherModel) {
    Desk.Form.YesNoAnswers = {false, true};
    Desk.Commands.Save();
    Open("line.mdb");
    WriteScenarios(Desk.Form.OpenWorkingCopy(), {{"Wages", "LaborCost +10%"}});
    Desk.Form.YesNoAnswers = {false, false};
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events, (Lines{Asked() + "no", std::string(kWithout) + "no"}));
}

/// A model with a query of the user's.
struct AccessFilesWithMore : AccessFiles {
    AccessFilesWithMore() {
        MakeTiny("line.mdb", 1, true);
        Content = ReadFile(Desk.UserFile("line.mdb"));
        Open("line.mdb");
        ChangeDays("200");
    }
    [[nodiscard]] std::string Asked() const {
        return "ask[question]: " + PathText(Desk.UserFile("line.mdb")) +
               " holds more than a model: query Costs. Such a file is never replaced. Save the "
               "model as another file? -> ";
    }
    void ExpectUntouched() const { EXPECT_EQ(ReadFile(Desk.UserFile("line.mdb")), Content); }

    std::string Content;
};

TEST_F(AccessFilesWithMore, AreNeverReplaced) {
    Desk.Form.YesNoAnswers = {false};
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events, Lines{Asked() + "no"});
    EXPECT_EQ(Desk.Form.ProposedAnswers, std::vector{Answer::Yes});
    ExpectUntouched();
    EXPECT_TRUE(Desk.Commands.Current().Changed);
}

TEST_F(AccessFilesWithMore, SaveProposesAnotherFile) {
    Desk.Form.YesNoAnswers = {true};
    Desk.Dialog.Answers = {{Desk.UserDirectory(), "other.mdb", {}}};
    Desk.Commands.Save();
    ASSERT_GE(Desk.Form.Events.size(), 2U);
    EXPECT_EQ(Desk.Form.Events[0], Asked() + "yes");
    EXPECT_EQ(Desk.Form.Events[1], "dialog[save|" + Desk.UserDirectory() + "|line.mdb|access]");
    EXPECT_EQ(DaysIn("other.mdb"), "0|0|200|0.25|20|5|0|\"Pump\"\n");
    EXPECT_EQ(Desk.Commands.Current().File, "other.mdb");
    EXPECT_FALSE(Desk.Commands.Current().Changed);
    ExpectUntouched();
}

TEST_F(AccessFilesWithMore, AreNeverReplacedByAnotherFormatEither) {
    Desk.Form.YesNoAnswers = {true, true};
    Desk.Dialog.Answers = {{Desk.UserDirectory(), "line.mdb", ModelFormat::Sqlite},
                           {Desk.UserDirectory(), "own.mdb", {}}};
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events.at(2), Asked() + "yes");
    EXPECT_EQ(FormatOf("own.mdb"), ModelFormat::Sqlite);
    ExpectUntouched();
}

TEST_F(AccessFilesWithMore, EndTheCommandThatAskedToSaveWhenNoOtherFileIsNamed) {
    Desk.Form.YesNoAnswers = {true, true};
    Desk.Dialog.Answers = {{"", "", {}}};
    Desk.Commands.New();
    ASSERT_EQ(Desk.Form.Events.size(), 3U);
    EXPECT_EQ(Desk.Form.Events[1], Asked() + "yes");
    EXPECT_EQ(Desk.WorkingDays(), "200");
    EXPECT_EQ(Desk.Commands.Current().File, "line.mdb");
    ExpectUntouched();
}

TEST_F(AccessFiles, OfAccess2007AreSavedAsOthersOfThatNameWithMdb) {
    MakeTiny("line.accdb", 2, false);
    Open("line.accdb");
    EXPECT_EQ(Desk.WorkingDays(), "240");
    ChangeDays("200");
    Desk.Form.YesNoAnswers = {true};
    Desk.Dialog.Answers = {{Desk.UserDirectory(), "line.mdb", {}}};
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events.at(0),
              "ask[question]: " + PathText(Desk.UserFile("line.accdb")) +
                  " is a database of Access 2007 or later, which is read but not written. Save the "
                  "model as another file? -> yes");
    EXPECT_EQ(Desk.Form.Events.at(1), "dialog[save|" + Desk.UserDirectory() + "|line.mdb|access]");
    EXPECT_EQ(DaysIn("line.mdb"), "0|0|200|0.25|20|5|0|\"Pump\"\n");
}

TEST_F(AccessFiles, OfAccess97AreReplacedAfterAQuestionOnly) {
    MakeTiny("line.mdb", 0, false);
    Open("line.mdb");
    ChangeDays("200");
    Desk.Form.YesNoAnswers = {false, true};
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events,
              Lines{"ask[question]: " + PathText(Desk.UserFile("line.mdb")) +
                    " is a database of Access 97. Saving makes it one of Access 2000, which Access "
                    "97 does not open. Replace the file? -> no"});
    EXPECT_EQ(Desk.Form.ProposedAnswers, std::vector{Answer::No});
    EXPECT_EQ(DaysIn("line.mdb"), "0|0|240|0.25|20|5|0|\"Pump\"\n");
    Desk.Commands.Save();
    EXPECT_EQ(DaysIn("line.mdb"), "0|0|200|0.25|20|5|0|\"Pump\"\n");
    Desk.Commands.Save();
    EXPECT_EQ(Desk.Form.Events.size(), 2U) << "asked of a file of Access 2000";
}

}  // namespace
}  // namespace quarnel02
