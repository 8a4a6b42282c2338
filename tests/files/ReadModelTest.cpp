#include "files/ReadModelTest.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace quarnel02 {
namespace {

using test::AllRows;
using test::Definitions;
using test::RawStore;
using test::ReadModelTest;
using Texts = std::vector<std::string>;

TEST_F(ReadModelTest, TakesTheRowsOfTheEightTables) {
    Make();
    const Texts rows = AllRows(File);
    ASSERT_GT(rows.size(), 8U);
    ExpectRead(rows);
    EXPECT_EQ(test::PermissionsOf(Copy), 0600U);
}

TEST_F(ReadModelTest, ReadsTheTemplate) {
    ReadModel(QUARNEL02_TEMPLATE_FILE, Copy, "blank.seq");
    EXPECT_EQ(AllRows(Copy), AllRows(QUARNEL02_TEMPLATE_FILE));
    EXPECT_EQ(Definitions(Copy), Definitions(QUARNEL02_TEMPLATE_FILE));
}

TEST_F(ReadModelTest, ReadsAFileOfTheFirstVersions) {
    Make("PRAGMA application_id = 0; PRAGMA user_version = 0;");
    ExpectRead(AllRows(File));
    EXPECT_EQ(RawStore(Copy).Rows("PRAGMA application_id"), Texts{"1366175794"});
    EXPECT_EQ(RawStore(Copy).Rows("PRAGMA user_version"), Texts{"1"});
}

TEST_F(ReadModelTest, RefusesAFileOfANewerVersionByName) {
    Make("PRAGMA user_version = 2; DROP TABLE Gen;");
    EXPECT_TRUE(ExpectRefused().starts_with(
        "line.mdb was saved by a newer version of this program (format 2; this one reads up to 1)."
        " "));
}

TEST_F(ReadModelTest, TakesNoVersionOfAnotherProgramForItsOwn) {
    Make("PRAGMA application_id = 7; PRAGMA user_version = 2;");
    ExpectRead(AllRows(File));
}

TEST_F(ReadModelTest, ReadsAFileThatMayOnlyBeRead) {
    Make();
    const fs::path closed = Folder.Path() / "closed";
    const fs::path mine = Folder.Path() / "mine";
    fs::create_directories(closed);
    fs::create_directories(mine);
    fs::copy_file(File, closed / "line.mdb");
    test::SetPermissions(Folder.Path(), 0755);
    test::SetPermissions(mine, 0777);
    test::SetPermissions(closed / "line.mdb", 0444);
    test::SetPermissions(closed, 0555);
    {
        const test::OrdinaryUser user;
        EXPECT_NO_THROW(ReadModel(closed / "line.mdb", mine / "working.seq", "line.mdb"));
    }
    EXPECT_EQ(AllRows(mine / "working.seq"), AllRows(File));
}

TEST_F(ReadModelTest, LeavesViewsAndTriggersBehind) {
    Make();
    const Texts rows = AllRows(File);
    RawStore(File).Run(
        "CREATE TRIGGER Dearer AFTER INSERT ON Pathways BEGIN UPDATE Pathways SET Cost = 1; END;"
        "CREATE TRIGGER Slower AFTER UPDATE ON Matrix BEGIN UPDATE Matrix SET TaskTime = 99; END;"
        "CREATE TRIGGER Gone AFTER DELETE ON Gen BEGIN DELETE FROM Tasks; END;"
        "CREATE VIEW Costs AS SELECT Cost FROM Pathways;"
        "CREATE TABLE Notes (Note); CREATE UNIQUE INDEX One ON Tasks (TaskId);");
    ExpectRead(rows);
}

TEST_F(ReadModelTest, RefusesAViewInPlaceOfATable) {
    for (const TableSchema& table : ModelSchema()) {
        const std::string name(table.Name);
        Make("ALTER TABLE " + name + " RENAME TO Real" + name + "; CREATE VIEW " + name +
             " AS SELECT * FROM Real" + name + ";");
        ExpectRefusedFor("has no table " + name + ": a view stands in its place.");
    }
}

TEST_F(ReadModelTest, RefusesAViewWithTriggersInPlaceOfBestPaths) {
    Make(
        "ALTER TABLE BestPaths RENAME TO Best;"
        "CREATE VIEW bestpaths AS SELECT * FROM Best;"
        "CREATE TRIGGER Away INSTEAD OF INSERT ON bestpaths BEGIN DELETE FROM Best; END;");
    ExpectRefusedFor("a view stands in its place");
}

TEST_F(ReadModelTest, GivesUpNothingOnAViewWithoutEnd) {
    Make(
        "DROP TABLE Demand;"
        "CREATE VIEW Demand AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
        "SELECT i AS Volume, i AS Prob FROM n;");
    ExpectRefusedFor("a view stands in its place");
}

TEST_F(ReadModelTest, RefusesAVirtualTable) {
    Make("DROP TABLE Demand; CREATE VIRTUAL TABLE Demand USING fts5(Volume, Prob);");
    ExpectRefusedFor("has no table Demand: a virtual table stands in its place.");
}

TEST_F(ReadModelTest, RefusesAComputedColumn) {
    for (const std::string kind : {"VIRTUAL", "STORED"}) {
        Make("DROP TABLE Demand; CREATE TABLE Demand (Prob, Volume AS (Prob * 1000) " + kind +
             "); INSERT INTO Demand VALUES (50);");
        ExpectRefusedFor("computes column Volume of table Demand");
    }
}

TEST_F(ReadModelTest, LeavesFurtherColumnsBehind) {
    Make();
    const Texts rows = AllRows(File);
    RawStore(File).Run(
        "ALTER TABLE Tasks ADD COLUMN Note TEXT DEFAULT 'mine';"
        "ALTER TABLE Tasks ADD COLUMN Twice INTEGER AS (TaskId * 2);");
    ExpectRead(rows);
}

TEST_F(ReadModelTest, ReadsColumnsByTheirNames) {
    Make();
    const Texts rows = AllRows(File);
    RawStore(File).Run(
        "CREATE TABLE Turned (TOOLCOST, ToolNum, Rest, TaskTime, taskid, ResourceId, rowid);"
        "INSERT INTO Turned SELECT ToolCost, ToolNum, 'x', TaskTime, TaskId, ResourceId, -TaskId "
        "FROM Matrix; DROP TABLE Matrix; ALTER TABLE Turned RENAME TO Matrix;");
    ExpectRead(rows);
}

TEST_F(ReadModelTest, ReadsATableWithoutRowNumbers) {
    Make();
    const Texts rows = AllRows(File);
    RawStore(File).Run(
        "CREATE TABLE Other (Description, TaskId INTEGER PRIMARY KEY) WITHOUT ROWID;"
        "INSERT INTO Other SELECT Description, TaskId FROM Tasks;"
        "DROP TABLE Tasks; ALTER TABLE Other RENAME TO Tasks;");
    ExpectRead(rows);
}

TEST_F(ReadModelTest, ReadsRowsInTheOrderOfTheirEntryWhateverTheIndices) {
    Make(
        "DELETE FROM Matrix; INSERT INTO Matrix VALUES (2, 1, 5, 0, 0), (1, 2, 6, 0, 0), "
        "(1, 1, 7, 0, 0); DELETE FROM Demand; INSERT INTO Demand VALUES (9, 1), (3, 1), (5, 1);"
        "ALTER TABLE Matrix ADD COLUMN Note TEXT; ALTER TABLE Demand ADD COLUMN Note TEXT;"
        "CREATE INDEX ByVolume ON Demand (Volume, Prob);");
    ASSERT_EQ(RawStore(File).Rows("SELECT Volume, Prob FROM Demand").front(), "3.0|1.0")
        << "the index is not used, and the order proves nothing";
    ExpectRead(AllRows(File));
}

TEST_F(ReadModelTest, LeavesConstraintsBehind) {
    Make();
    const Texts rows = AllRows(File);
    RawStore(File).Run(
        "PRAGMA ignore_check_constraints = ON;"
        "CREATE TABLE Other (TaskId UNIQUE NOT NULL CHECK (TaskId > 5), Description DEFAULT 'q');"
        "INSERT INTO Other SELECT * FROM Tasks;"
        "DROP TABLE Tasks; ALTER TABLE Other RENAME TO Tasks;");
    ExpectRead(rows);
}

TEST_F(ReadModelTest, ConvertsValuesToTheTypesOfTheFields) {
    Make(
        "DROP TABLE Demand; CREATE TABLE Demand (Volume, Prob);"
        "INSERT INTO Demand VALUES ('12,500', 33.2999992370605), (NULL, '7');"
        "DROP TABLE Tasks; CREATE TABLE Tasks (TaskId, Description);"
        "INSERT INTO Tasks VALUES ('1', 12.5), (2.0, NULL);");
    Read();
    RawStore copy(Copy);
    EXPECT_EQ(copy.Rows("SELECT Volume, typeof(Volume), Prob, typeof(Prob) FROM Demand"),
              (Texts{"12500.0|real|33.3|real", "|null|7.0|real"}));
    EXPECT_EQ(copy.Rows("SELECT TaskId, typeof(TaskId), Description, typeof(Description) FROM "
                        "Tasks"),
              (Texts{"1|integer|12.5|text", "2|integer||null"}));
}

Texts ScenariosIn(const fs::path& file) {
    return RawStore(file).Rows("SELECT Name, Differences FROM Scenarios ORDER BY rowid");
}

TEST_F(ReadModelTest, TakesScenariosInTheirOrder) {
    Make(
        "INSERT INTO Scenarios VALUES ('Wages', 'LaborCost +10%'), ('', NULL), ('A', 'Days = 1');");
    ExpectRead(AllRows(File));
    EXPECT_EQ(ScenariosIn(Copy), (Texts{"Wages|LaborCost +10%", "|", "A|Days = 1"}));
}

TEST_F(ReadModelTest, ReadsAFileWithoutScenarios) {
    Make("DROP TABLE Scenarios;");
    ExpectRead(AllRows(File));
    EXPECT_TRUE(ScenariosIn(Copy).empty());
}

TEST_F(ReadModelTest, PassesOverScenariosOfAnotherProgram) {
    for (const char* other :
         {"CREATE TABLE Scenarios (Name TEXT, Year INTEGER); INSERT INTO Scenarios VALUES ('a', 1)",
          "CREATE VIEW Scenarios AS SELECT 'a' AS Name, 'b' AS Differences",
          "CREATE TABLE Scenarios (Name TEXT, Differences TEXT AS (Name))"}) {
        SCOPED_TRACE(other);
        Make("DROP TABLE Scenarios;" + std::string(other) + ";");
        ExpectRead(AllRows(File));
        EXPECT_TRUE(ScenariosIn(Copy).empty());
    }
}

TEST_F(ReadModelTest, RefusesAScenarioThatIsNoText) {
    Make(
        "DROP TABLE Scenarios; CREATE TABLE Scenarios (Name, Differences);"
        "INSERT INTO Scenarios VALUES ('a', x'00FF');");
    ExpectRefusedFor("wrong value in row 1 of table Scenarios: Differences");
}

}  // namespace
}  // namespace quarnel02
