#include "files/SaveModel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "files/ModelFile.h"
#include "files/ReadModel.h"
#include "model/Database.h"
#include "support/ModelScript.h"
#include "support/RawStore.h"
#include "support/RunTimeErrors.h"
#include "support/Surroundings.h"

namespace fs = std::filesystem;

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::NamesIn;
using test::RawStore;
using Texts = std::vector<std::string>;

class SaveModelTest : public testing::Test {
  protected:
    void SetUp() override { MakeWorkingCopy(); }

    void MakeWorkingCopy(const std::string& more = "") const {
        MakeModelFile(Copy, ReadFile(QUARNEL02_SCHEMA_FILE) + test::WorkedExample().Sql() +
                                "INSERT INTO Tasks VALUES (1, 'Drill'), (2, 'Press');" + more);
    }
    [[nodiscard]] Texts TasksOf(const fs::path& file) const {
        return RawStore(file).Rows("SELECT TaskId, Description FROM Tasks");
    }
    /// The file "old" stays, with nothing beside it.
    std::string ExpectRefused(ErrorKind kind) const {
        WriteFile(File, "old");
        const auto names = NamesIn(Folder.Path());
        const std::string message = ExpectRunTimeError(kind, [&] { SaveModel(Copy, File); });
        EXPECT_EQ(ReadFile(File), "old");
        EXPECT_EQ(NamesIn(Folder.Path()), names);
        return message;
    }

    TemporaryDirectory Folder;
    fs::path Copy = Folder.Path() / "working.seq";
    fs::path File = Folder.Path() / "line.mdb";
};

TEST_F(SaveModelTest, WritesTheModelAndNothingElse) {
    SaveModel(Copy, File);
    EXPECT_EQ(TasksOf(File), TasksOf(Copy));
    EXPECT_NO_THROW(CheckModelFile(File, "line.mdb"));
    EXPECT_EQ(NamesIn(Folder.Path()), (Texts{"line.mdb", "working.seq"}));
    EXPECT_NO_THROW(ReadModel(File, Folder.Path() / "again.seq", "line.mdb"));
    EXPECT_EQ(TasksOf(Folder.Path() / "again.seq"), TasksOf(Copy));
}

TEST_F(SaveModelTest, MarksTheFileAsAModelOfThisFormat) {
    MakeWorkingCopy("PRAGMA application_id = 0; PRAGMA user_version = 0;");
    SaveModel(Copy, File);
    EXPECT_EQ(RawStore(File).Rows("PRAGMA application_id"), Texts{"1366175794"});
    EXPECT_EQ(RawStore(File).Rows("PRAGMA user_version"), Texts{"1"});
}

TEST_F(SaveModelTest, SavesWhatIsCommittedWhileARecordSetIsOpen) {
    const Database database = Database::Open(Copy);
    RecordSet tasks = database.OpenRecordSet("SELECT * FROM Tasks;");
    tasks.Edit();
    tasks.Set("Description", std::string("changed"));
    tasks.Update();
    Transaction unfinished(database);
    tasks.Edit();
    tasks.Set("Description", std::string("not committed"));
    tasks.Update();
    SaveModel(Copy, File);
    EXPECT_EQ(TasksOf(File).front(), "1|changed");
    unfinished.Commit();
    SaveModel(Copy, File);
    EXPECT_EQ(TasksOf(File).front(), "1|not committed");
}

TEST_F(SaveModelTest, WaitsForALockAndThenSaysSo) {
    RawStore other(Copy);
    other.Run("BEGIN EXCLUSIVE");
    ExpectRefused(ErrorKind::DatabaseLocked);
    other.Run("ROLLBACK");
    EXPECT_NO_THROW(SaveModel(Copy, File));
}

TEST_F(SaveModelTest, PlaysBackTheJournalOfAKilledProgramFirst) {
    const Texts before = TasksOf(Copy);
    RawStore other(Copy);
    other.Run(
        "PRAGMA cache_size = 1; PRAGMA cache_spill = 1; BEGIN IMMEDIATE; DELETE FROM Tasks;"
        "CREATE TABLE Big (a); WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM "
        "n WHERE i < 3000) INSERT INTO Big SELECT hex(zeroblob(500)) FROM n;");
    const std::string journal = ReadFile(Copy.string() + "-journal");
    const std::string half_written = ReadFile(Copy);
    other.Run("ROLLBACK");
    WriteFile(Copy, half_written);
    WriteFile(Copy.string() + "-journal", journal);
    SaveModel(Copy, File);
    EXPECT_EQ(TasksOf(File), before);
    EXPECT_TRUE(RawStore(File).Rows("SELECT * FROM sqlite_master WHERE name = 'Big'").empty());
}

TEST_F(SaveModelTest, NeverSavesADamagedWorkingCopy) {
    const std::string whole = ReadFile(Copy);
    for (std::size_t page = 1; page < whole.size() / 4096; ++page) {
        std::string damaged = whole;
        for (std::size_t at = page * 4096; at < page * 4096 + 40; ++at) {
            damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
        }
        WriteFile(Copy, damaged);
        ExpectRefused(ErrorKind::NotAModel);
    }
    WriteFile(Copy, whole.substr(0, whole.size() / 2));
    ExpectRefused(ErrorKind::NotAModel);
    WriteFile(Copy, "");
    ExpectRefused(ErrorKind::NotAModel);
    WriteFile(Copy, "no database");
    ExpectRefused(ErrorKind::NotAModel);
}

TEST_F(SaveModelTest, NeverSavesAWorkingCopyThatIsNoModel) {
    MakeWorkingCopy("DROP TABLE BestPaths;");
    EXPECT_NE(ExpectRefused(ErrorKind::NotAModel).find("has no table BestPaths"),
              std::string::npos);
    MakeWorkingCopy("DELETE FROM Gen;");
    ExpectRefused(ErrorKind::NotAModel);
    fs::remove(Copy);
    EXPECT_NE(ExpectRefused(ErrorKind::FileNotFound).find("working.seq"), std::string::npos);
}

TEST_F(SaveModelTest, SavesACopyOfAnotherPageSize) {
    fs::remove(Copy);
    RawStore(Copy).Run("PRAGMA page_size = 1024; VACUUM;" + ReadFile(QUARNEL02_SCHEMA_FILE));
    ASSERT_EQ(RawStore(Copy).Rows("PRAGMA page_size"), Texts{"1024"});
    SaveModel(Copy, File);
    EXPECT_NO_THROW(CheckModelFile(File, "line.mdb"));
}

TEST_F(SaveModelTest, RefusesAWriteProtectedFile) {
    WriteFile(File, "old");
    test::SetPermissions(File, 0444);
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileAccess, [&] { SaveModel(Copy, File); });
    EXPECT_NE(message.find("line.mdb is write-protected"), std::string::npos) << message;
    EXPECT_EQ(ReadFile(File), "old");
}

TEST_F(SaveModelTest, LeavesTheFileWhenTheDiskIsFull) {
    const test::FileSizeLimit limit(4096);
    ExpectRefused(ErrorKind::FileAccess);
}

TEST_F(SaveModelTest, KeepsAModelForItsOwnerOnly) {
    KeepModel(Copy, File);
    EXPECT_EQ(test::PermissionsOf(File), 0600U);
    EXPECT_EQ(TasksOf(File), TasksOf(Copy));
}

TEST_F(SaveModelTest, NamesWhatAModelDoesNotHave) {
    EXPECT_EQ(ForeignObjects(File), Texts());
    EXPECT_EQ(ForeignObjects(Copy), Texts());
    RawStore(Copy).Run(
        "CREATE TABLE Suppliers (Id INTEGER PRIMARY KEY AUTOINCREMENT); CREATE VIEW Costs AS "
        "SELECT 1; CREATE INDEX Mine ON Tasks (TaskId); CREATE TRIGGER Stamp AFTER INSERT ON Tasks "
        "BEGIN SELECT 1; END; DROP TABLE Demand; CREATE VIEW Demand AS SELECT 1;");
    EXPECT_EQ(ForeignObjects(Copy),
              (Texts{"table Suppliers", "trigger Stamp", "view Costs", "view Demand"}));
}

TEST_F(SaveModelTest, FindsNothingToNameInAFileThatIsNoDatabase) {
    WriteFile(File, "notes");
    EXPECT_EQ(ForeignObjects(File), Texts());
    EXPECT_EQ(ForeignObjects(Folder.Path()), Texts());
    RawStore(Copy).Run("CREATE TABLE Suppliers (Id)");
    RawStore other(Copy);
    other.Run("BEGIN EXCLUSIVE");
    ExpectRunTimeError(ErrorKind::DatabaseLocked, [&] { (void)ForeignObjects(Copy); });
}

TEST_F(SaveModelTest, WritesScenarios) {
    RawStore(Copy).Run("INSERT INTO Scenarios VALUES ('Wages', 'LaborCost +10%')");
    SaveModel(Copy, File);
    EXPECT_EQ(RawStore(File).Rows("SELECT Name, Differences FROM Scenarios"),
              Texts{"Wages|LaborCost +10%"});
}

TEST_F(SaveModelTest, NamesATableThatIsCalledLikeScenarios) {
    RawStore(Copy).Run("DROP TABLE Scenarios; CREATE TABLE Scenarios (Name TEXT, Year INTEGER)");
    EXPECT_EQ(ForeignObjects(Copy), Texts{"table Scenarios"});
}

TEST_F(SaveModelTest, SavesACopyWithoutScenarios) {
    RawStore(Copy).Run("DROP TABLE Scenarios");
    SaveModel(Copy, File);
    EXPECT_EQ(TasksOf(File), TasksOf(Copy));
}

}  // namespace
}  // namespace quarnel02
