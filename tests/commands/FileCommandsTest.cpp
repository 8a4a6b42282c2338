#include "commands/FileCommands.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/CommandDesk.h"
#include "support/DemandLines.h"
#include "support/RawStore.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::CommandDesk;
using test::DemandLines;
using test::ExpectRunTimeError;

using Lines = std::vector<std::string>;

constexpr const char* kAsked = "ask[information]: Do you want to save your changes first? -> ";
constexpr const char* kNewFailed =
    "message[critical]: Error creating working file.  Causes: 1) blank.seq file missing from app "
    "root directory, 2) working.seq is currently open in Access";

constexpr const char* kTwoVolumes =
    "UPDATE Gen SET Days = 240; INSERT INTO Demand VALUES (20000, 40), (10000, 60);";

const Lines kLoadedWithoutDemand = {"busy", "idle", "sum:  rgb(0,0,0)"};
const Lines kLoadedWithDemand = {"busy", "idle", "sum:  rgb(0,0,0)", "sum: 100% rgb(0,0,128)"};

Lines Then(Lines first, const Lines& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

TEST(StartUp, LoadsTheTemplateAndLeavesTheTitle) {
    CommandDesk desk(kTwoVolumes);
    desk.UseFile("line.mdb");
    desk.Commands.Current().Changed = true;
    desk.Commands.StartUp();
    EXPECT_EQ(desk.Form.Events, kLoadedWithoutDemand);
    EXPECT_EQ(desk.Form.Text(TextBox::txtDays), "250");
    EXPECT_EQ(desk.Form.DemandCount(), 0);
    EXPECT_EQ(desk.Commands.Current().Dir + desk.Commands.Current().File, "");
    EXPECT_FALSE(desk.Commands.Current().Changed);
}

TEST(StartUp, NeedsTheTemplate) {
    CommandDesk desk;
    fs::remove(desk.Application.File("blank.seq"));
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileNotFound, [&] { desk.Commands.StartUp(); });
    EXPECT_NE(message.find("blank.seq"), std::string::npos) << message;
}

TEST(StartUp, DoesNotPlayBackTheJournalOfAKilledProgram) {
    const CommandDesk killed("UPDATE Gen SET Days = 77;");
    const Database database = killed.Application.Open();
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
    CommandDesk desk;
    const fs::path journal = desk.Application.File("working.seq-journal");
    fs::copy_file(killed.Application.File("working.seq-journal"), journal);
    ASSERT_GT(fs::file_size(journal), 512U);

    desk.Commands.StartUp();
    EXPECT_EQ(desk.Form.Text(TextBox::txtDays), "250");
}

TEST(StartUp, MakesAReadOnlyWorkingCopyWritable) {
    CommandDesk desk;
    fs::permissions(desk.Application.File(), fs::perms::owner_read);
    desk.Commands.StartUp();
    EXPECT_NE(fs::status(desk.Application.File()).permissions() & fs::perms::owner_write,
              fs::perms::none);
}

TEST(AskToSave, AsksOnlyAboutChanges) {
    CommandDesk desk;
    desk.Commands.AskToSave();
    EXPECT_EQ(desk.Form.Events, Lines{});
}

TEST(AskToSave, SavesAfterYes) {
    CommandDesk desk(kTwoVolumes);
    desk.UseFile("line.mdb");
    desk.Commands.Current().Changed = true;
    desk.Form.YesNoAnswers = {true};
    desk.Commands.AskToSave();
    EXPECT_EQ(desk.Form.Events, Lines{kAsked + std::string("yes")});
    EXPECT_EQ(CommandDesk::InputsOf(desk.UserFile("line.mdb")), desk.WorkingInputs());
    EXPECT_FALSE(desk.Commands.Current().Changed);
}

TEST(AskToSave, GoesOnAfterNo) {
    CommandDesk desk;
    desk.UseFile("line.mdb");
    desk.Commands.Current().Changed = true;
    desk.Form.YesNoAnswers = {false};
    desk.Commands.AskToSave();
    EXPECT_EQ(desk.Form.Events, Lines{kAsked + std::string("no")});
    EXPECT_FALSE(fs::exists(desk.UserFile("line.mdb")));
    EXPECT_TRUE(desk.Commands.Current().Changed);
}

TEST(New, LoadsTheTemplate) {
    CommandDesk desk(kTwoVolumes);
    desk.UseFile("line.mdb");
    desk.Commands.New();
    EXPECT_EQ(desk.Form.Events, Then({"title: Quarnel02"}, kLoadedWithoutDemand));
    EXPECT_EQ(desk.Form.Text(TextBox::txtDays), "250");
    EXPECT_EQ(desk.Form.DemandCount(), 0);
    EXPECT_EQ(desk.WorkingDays(), "250");
    EXPECT_EQ(desk.Commands.Current().Dir + desk.Commands.Current().File, "");
}

TEST(New, GoesOnWithoutSavingAfterNo) {
    CommandDesk desk(kTwoVolumes);
    desk.UseFile("line.mdb");
    desk.Commands.Current().Changed = true;
    desk.Form.YesNoAnswers = {false};
    desk.Commands.New();
    EXPECT_FALSE(desk.Commands.Current().Changed);
    EXPECT_FALSE(fs::exists(desk.UserFile("line.mdb")));
    EXPECT_EQ(desk.WorkingDays(), "250");
}

TEST(New, SavesFirstAfterYes) {
    CommandDesk desk(kTwoVolumes);
    const auto before = desk.WorkingInputs();
    desk.UseFile("line.mdb");
    desk.Commands.Current().Changed = true;
    desk.Form.YesNoAnswers = {true};
    desk.Commands.New();
    EXPECT_EQ(CommandDesk::InputsOf(desk.UserFile("line.mdb")), before);
    EXPECT_EQ(desk.WorkingDays(), "250");
}

TEST(New, SaysThatTheTemplateIsMissing) {
    CommandDesk desk(kTwoVolumes);
    fs::remove(desk.Application.File("blank.seq"));
    desk.UseFile("line.mdb");
    desk.Commands.Current().Changed = true;
    desk.Form.YesNoAnswers = {false};
    desk.Commands.New();
    EXPECT_EQ(desk.Form.Events,
              (Lines{kAsked + std::string("no"), "title: Quarnel02", kNewFailed}));
    EXPECT_TRUE(desk.Commands.Current().Changed);
    EXPECT_EQ(desk.Commands.Current().Dir + desk.Commands.Current().File, "");
    EXPECT_EQ(desk.WorkingDays(), "240");
}

TEST(New, ReplacesADamagedTemplateByTheProgramsOwn) {
    CommandDesk desk(kTwoVolumes);
    WriteFile(desk.Application.File("blank.seq"), "no model");
    desk.Commands.New();
    EXPECT_EQ(desk.Form.Events, Then({"title: Quarnel02"}, kLoadedWithoutDemand));
    EXPECT_EQ(desk.WorkingDays(), "250");
    CheckModelFile(desk.Application.File("blank.seq"), "blank.seq");
}

TEST(New, SaysThatTheTemplateCannotBeReplaced) {
    CommandDesk desk(kTwoVolumes);
    fs::remove(desk.Application.File("blank.seq"));
    fs::create_directories(desk.Application.File("blank.seq") / "in the way");
    desk.Commands.New();
    EXPECT_EQ(desk.Form.Events, (Lines{"title: Quarnel02", kNewFailed}));
    EXPECT_EQ(desk.WorkingDays(), "240");
    EXPECT_TRUE(desk.Commands.HasUnsavedWork());
}

TEST(Open, LoadsTheChosenFile) {
    CommandDesk desk;
    const std::string path = desk.MakeUserModel("Förder band.mdb", kTwoVolumes);
    const std::string content = ReadFile(path);
    desk.Dialog.Answers = {{desk.UserDirectory(), "Förder band.mdb"}};
    desk.Commands.Open();
    EXPECT_EQ(desk.Form.Events, Then(Then({"dialog[open||]"}, kLoadedWithDemand),
                                     {"title: Förder band.mdb - Quarnel02"}));
    EXPECT_EQ(desk.Commands.Current().Dir, desk.UserDirectory());
    EXPECT_EQ(desk.Commands.Current().File, "Förder band.mdb");
    EXPECT_EQ(desk.Form.Text(TextBox::txtDays), "240");
    EXPECT_EQ(DemandLines(desk.Form), (Lines{"10,000:  60%", "20,000:  40%"}));
    EXPECT_EQ(desk.RecentText(), path + "\n");
    EXPECT_EQ(desk.WorkingDays(), "240");
    EXPECT_EQ(ReadFile(path), content);
}

TEST(Open, AsksFirstAndDropsTheChangesAfterNo) {
    CommandDesk desk;
    desk.MakeUserModel("line.mdb");
    desk.Commands.Current().Changed = true;
    desk.Form.YesNoAnswers = {false};
    desk.Dialog.Answers = {{desk.UserDirectory(), "line.mdb"}};
    desk.Commands.Open();
    ASSERT_GE(desk.Form.Events.size(), 2U);
    EXPECT_EQ(desk.Form.Events[0], kAsked + std::string("no"));
    EXPECT_EQ(desk.Form.Events[1], "dialog[open||]");
    EXPECT_FALSE(desk.Commands.Current().Changed);
}

TEST(Open, DoesNothingAfterCancel) {
    CommandDesk desk(kTwoVolumes);
    desk.UseFile("line.mdb");
    desk.Commands.Current().Changed = true;
    desk.Form.YesNoAnswers = {false};
    desk.Dialog.Answers = {{"", ""}};
    desk.Commands.Open();
    EXPECT_EQ(desk.Form.Events, (Lines{kAsked + std::string("no"), "dialog[open||]"}));
    EXPECT_TRUE(desk.Commands.Current().Changed);
    EXPECT_EQ(desk.Commands.Current().File, "line.mdb");
    EXPECT_EQ(desk.WorkingDays(), "240");
    EXPECT_EQ(desk.RecentText(), "");
}

TEST(Open, EmptiesTheDemandListForAModelWithoutDemand) {
    CommandDesk desk(kTwoVolumes);
    desk.MakeUserModel("line.mdb");
    desk.Dialog.Answers = {{desk.UserDirectory(), "line.mdb"}};
    desk.Commands.Open();
    EXPECT_EQ(desk.Form.DemandCount(), 0);
    EXPECT_EQ(desk.Form.Events.at(desk.Form.Events.size() - 2), "sum:  rgb(0,0,0)");
}

TEST(Open, MakesAWritableWorkingCopyOfAReadOnlyFile) {
    CommandDesk desk;
    const std::string path = desk.MakeUserModel("line.mdb");
    fs::permissions(path, fs::perms::owner_read);
    fs::remove(desk.Application.File());
    desk.Dialog.Answers = {{desk.UserDirectory(), "line.mdb"}};
    desk.Commands.Open();
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read);
    EXPECT_NE(fs::status(desk.Application.File()).permissions() & fs::perms::owner_write,
              fs::perms::none);
}

/// Nothing of the desk may have changed but for the one message.
void ExpectRefusal(CommandDesk& desk, const std::string& path, const Lines& before) {
    ASSERT_EQ(desk.Form.Events.size(), before.size() + 1);
    const std::string message = desk.Form.Events.back();
    EXPECT_EQ(Lines(desk.Form.Events.begin(), desk.Form.Events.end() - 1), before);
    EXPECT_TRUE(message.starts_with("message[critical]: " + path)) << message;
    EXPECT_EQ(message.find('\n'), std::string::npos) << message;
    EXPECT_EQ(desk.Commands.Current().Dir, desk.UserDirectory());
    EXPECT_EQ(desk.Commands.Current().File, "mine.mdb");
    EXPECT_TRUE(desk.Commands.Current().Changed);
    EXPECT_EQ(desk.WorkingDays(), "240");
    EXPECT_EQ(DemandLines(desk.Form).size(), 2U);
}

struct OpenRefuses : ::testing::Test {
    OpenRefuses() {
        Desk.UseFile("mine.mdb");
        Desk.Commands.Current().Changed = true;
        Desk.Form.YesNoAnswers = {false};
        Desk.Dialog.Answers = {{Desk.UserDirectory(), "other.mdb"}};
        Desk.SetRecent({Other});
    }
    CommandDesk Desk{kTwoVolumes};
    std::string Other = PathText(Desk.UserFile("other.mdb"));
};

TEST_F(OpenRefuses, AFileThatIsNoDatabase) {
    WriteFile(Other, "Dear Anna, ...");
    Desk.Commands.Open();
    ExpectRefusal(Desk, Other, {kAsked + std::string("no"), "dialog[open||]"});
    EXPECT_EQ(Desk.RecentText(), Other + "\n");
}

TEST_F(OpenRefuses, ADatabaseThatIsNoModel) {
    MakeModelFile(Other, "CREATE TABLE Gen (Resources INTEGER);");
    Desk.Commands.Open();
    ExpectRefusal(Desk, Other, {kAsked + std::string("no"), "dialog[open||]"});
}

TEST_F(OpenRefuses, AFileThatHasGone) {
    Desk.Commands.OpenRecent("1. ..\\other.mdb");
    ExpectRefusal(Desk, Other, {kAsked + std::string("no")});
    EXPECT_EQ(Desk.RecentText(), Other + "\n");
}

TEST_F(OpenRefuses, AModelThatCannotBeLoaded) {
    Desk.MakeUserModel("other.mdb", "UPDATE Gen SET Tasks = 256;");
    const std::string before = ReadFile(Desk.Application.File());
    Desk.Form.LastDesign = DesignMade{};
    Desk.Commands.Open();
    ExpectRefusal(Desk, Other, {kAsked + std::string("no"), "dialog[open||]"});
    EXPECT_NE(Desk.Form.Events.back().find("256 tasks"), std::string::npos);
    EXPECT_EQ(Desk.Form.Text(TextBox::txtDays), "240");
    EXPECT_TRUE(Desk.Form.LastDesign.has_value());
    EXPECT_EQ(ReadFile(Desk.Application.File()), before);
    EXPECT_FALSE(fs::exists(Desk.Application.File("Incoming")));
}

TEST_F(OpenRefuses, WhenTheWorkingCopyCannotBeReplaced) {
    Desk.MakeUserModel("other.mdb");
    fs::create_directories(Desk.Application.File("working.old") / "in the way");
    Desk.Commands.Open();
    const std::string place = PathText(Desk.Application.File());
    ExpectRefusal(Desk, "The working copy " + place,
                  {kAsked + std::string("no"), "dialog[open||]"});
    EXPECT_EQ(Desk.Form.Text(TextBox::txtDays), "240");
}

TEST_F(OpenRefuses, AndTheNextSaveLeavesTheRefusedFileAlone) {
    WriteFile(Other, "Dear Anna, ...");
    Desk.Commands.Open();
    Desk.Commands.Save();
    EXPECT_EQ(ReadFile(Other), "Dear Anna, ...");
    EXPECT_TRUE(fs::exists(Desk.UserFile("mine.mdb")));
}

TEST(Open, GivesAWorkingCopyThatOnlyItsOwnerReads) {
    CommandDesk desk;
    const std::string path = desk.MakeUserModel("line.mdb");
    fs::permissions(path, fs::perms::owner_all | fs::perms::group_all | fs::perms::others_all);
    desk.Dialog.Answers = {{desk.UserDirectory(), "line.mdb"}};
    desk.Commands.Open();
    const auto owner_only = fs::perms::owner_read | fs::perms::owner_write;
    EXPECT_EQ(fs::status(desk.Application.File()).permissions(), owner_only);
    desk.Commands.New();
    EXPECT_EQ(fs::status(desk.Application.File()).permissions(), owner_only);
}

/// What may stand in place of the list of recent files; a pipe would make a writer wait for ever.
class BrokenRecentList : public ::testing::TestWithParam<const char*> {};

TEST_P(BrokenRecentList, NeverStopsACommand) {
    CommandDesk desk;
    const std::string path = desk.MakeUserModel("line.mdb", kTwoVolumes);
    if (GetParam() == std::string("a directory")) {
        fs::create_directory(desk.Configuration());
    } else {
        ASSERT_EQ(::mkfifo(desk.Configuration().c_str(), 0600), 0);
    }
    desk.Dialog.Answers = {{desk.UserDirectory(), "line.mdb"}};
    desk.Commands.Open();
    EXPECT_EQ(desk.WorkingDays(), "240");
    EXPECT_EQ(desk.Commands.Current().File, "line.mdb");
    const std::string message = desk.Form.Events.back();
    EXPECT_TRUE(message.starts_with("message[information]: The list of recent files")) << message;
    EXPECT_NE(message.find(PathText(desk.Configuration())), std::string::npos) << message;

    desk.Commands.Current().Changed = true;
    desk.Commands.Save();
    EXPECT_FALSE(desk.Commands.Current().Changed);
    EXPECT_EQ(desk.Form.Events.back(), message);
    EXPECT_EQ(CommandDesk::InputsOf(path), desk.WorkingInputs());
}

INSTANTIATE_TEST_SUITE_P(Open, BrokenRecentList, ::testing::Values("a directory", "a pipe"));

TEST(OpenRecent, LoadsTheFileOfTheCaption) {
    CommandDesk desk;
    const std::string a = desk.MakeUserModel("a.mdb");
    const std::string b = desk.MakeUserModel("b.mdb", kTwoVolumes);
    desk.SetRecent({a, b});
    desk.Commands.Current().Changed = true;
    desk.Form.YesNoAnswers = {false};
    desk.Commands.OpenRecent("2. ..\\b.mdb");
    EXPECT_EQ(desk.Form.Events, Then(Then({kAsked + std::string("no")}, kLoadedWithDemand),
                                     {"title: b.mdb - Quarnel02"}));
    EXPECT_EQ(desk.Commands.Current().Dir, desk.UserDirectory());
    EXPECT_EQ(desk.Commands.Current().File, "b.mdb");
    EXPECT_EQ(desk.RecentText(), b + "\n" + a + "\n");
    EXPECT_FALSE(desk.Commands.Current().Changed);
}

TEST(OpenRecent, OpensTheMoreRecentOfEqualNames) {
    CommandDesk desk;
    const std::string recent = desk.MakeUserModel("two/line.mdb", kTwoVolumes);
    const std::string older = desk.MakeUserModel("one/line.mdb");
    desk.SetRecent({recent, older});
    desk.Commands.OpenRecent("2. ..\\line.mdb");
    EXPECT_EQ(desk.Commands.Current().Dir, PathText(desk.UserFile("two")));
    EXPECT_EQ(desk.WorkingDays(), "240");
}

TEST(OpenRecent, DoesNothingWhenTheListHasNoSuchFile) {
    CommandDesk desk;
    desk.SetRecent({desk.MakeUserModel("a.mdb")});
    desk.Commands.OpenRecent("1. ..\\b.mdb");
    EXPECT_EQ(desk.Form.Events, Lines{});
    EXPECT_EQ(desk.Commands.Current().File, "");
}

TEST(OpenGiven, LoadsTheFileThatTheProgramWasStartedWith) {
    CommandDesk desk;
    const std::string path = desk.MakeUserModel("b.mdb", kTwoVolumes);
    desk.Commands.StartUp();
    desk.Form.Events.clear();
    desk.Commands.OpenGiven(path);
    EXPECT_EQ(desk.Form.Events, Then(kLoadedWithDemand, {"title: b.mdb - Quarnel02"}));
    EXPECT_EQ(desk.Commands.Current().Dir, desk.UserDirectory());
    EXPECT_EQ(desk.Commands.Current().File, "b.mdb");
    EXPECT_EQ(desk.RecentText(), path + "\n");
}

TEST(OpenGiven, SaysThatAFileIsNotThereAndLeavesTheUntitledModel) {
    CommandDesk desk;
    desk.Commands.StartUp();
    desk.Form.Events.clear();
    desk.Commands.OpenGiven(desk.UserFile("no.mdb"));
    ASSERT_EQ(desk.Form.Events.size(), 1U);
    EXPECT_NE(desk.Form.Events[0].find("message[critical]"), std::string::npos);
    EXPECT_NE(desk.Form.Events[0].find("no.mdb"), std::string::npos);
    EXPECT_EQ(desk.Commands.Current().File, "");
    EXPECT_EQ(desk.RecentText(), "");
}

TEST(OpenRecent, OpensACutPath) {
    CommandDesk desk;
    desk.MakeUserModel("pump", kTwoVolumes);
    desk.SetRecent({PathText(desk.UserFile("pump, small.mdb"))});
    desk.Commands.OpenRecent("1. ..\\pump");
    EXPECT_EQ(desk.Commands.Current().File, "pump");
    EXPECT_EQ(desk.RecentText(), PathText(desk.UserFile("pump")) + "\n");
    EXPECT_EQ(desk.WorkingDays(), "240");
}

TEST(New, GivesAModelOfAnOlderTemplateItsScenarios) {
    CommandDesk desk(kTwoVolumes);
    { test::RawStore(desk.Application.File("blank.seq")).Run("DROP TABLE Scenarios"); }
    desk.Commands.New();
    EXPECT_EQ(test::RawStore(desk.Application.File("working.seq"))
                  .Rows("SELECT name FROM pragma_table_info('Scenarios')"),
              (Lines{"Name", "Differences"}));
    EXPECT_TRUE(test::RawStore(desk.Application.File("blank.seq"))
                    .Rows("SELECT name FROM pragma_table_info('Scenarios')")
                    .empty());
}

}  // namespace
}  // namespace quarnel02
