#include "model/ReadModel.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "model/Database.h"
#include "model/ModelFile.h"
#include "model/RawStore.h"
#include "model/Schema.h"
#include "support/ModelScript.h"
#include "support/RunTimeErrors.h"
#include "support/Surroundings.h"

namespace fs = std::filesystem;

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::NamesIn;
using test::RawStore;
using Texts = std::vector<std::string>;

/// All rows of all tables, fields in the order of the schema, in the order of the rows.
Texts AllRows(const fs::path& file) {
    RawStore store(file);
    Texts all;
    for (const TableSchema& table : ModelSchema()) {
        std::string columns;
        for (const ColumnSchema& column : table.Columns) {
            columns += (columns.empty() ? "\"" : ", \"") + std::string(column.Name) + "\"";
        }
        for (const std::string& row : store.Rows("SELECT " + columns + " FROM " +
                                                 std::string(table.Name) + " ORDER BY rowid")) {
            all.push_back(std::string(table.Name) + ": " + row);
        }
    }
    return all;
}

/// What a database defines, statement by statement.
Texts Definitions(const fs::path& file) {
    return RawStore(file).Rows("SELECT sql FROM sqlite_master WHERE sql NOT NULL ORDER BY name");
}

const char* const kFurtherRows =
    "INSERT INTO Tasks VALUES (1, 'Drill'), (2, 'Press'), (3, NULL);"
    "INSERT INTO Demand VALUES (33.3, 40), (1000, 60);"
    "INSERT INTO Arcs VALUES (0, 1, 2, 100, 50, 3.14159, 6.28318);"
    "INSERT INTO Pathways VALUES (1, 0, 1, 4, 64336.5, 61.1, 1, 12600, 60556);"
    "INSERT INTO BestPaths VALUES (2, 1, 1, 64336.5);";

class ReadModelTest : public testing::Test {
  protected:
    void SetUp() override { WriteFile(Copy, "the working copy before"); }

    void Make(const std::string& more = "") const {
        MakeModelFile(File, ReadFile(QUARNEL02_SCHEMA_FILE) + test::WorkedExample().Sql() +
                                kFurtherRows + more);
    }
    void Read() const { ReadModel(File, Copy, "line.mdb"); }

    /// One line that names the file; file and working copy as they were, and nothing beside them.
    std::string ExpectRefused(ErrorKind kind = ErrorKind::NotAModel) const {
        const std::string before = fs::is_regular_file(File) ? ReadFile(File) : "";
        const auto names = NamesIn(Folder.Path());
        const std::string message = ExpectRunTimeError(kind, [&] { Read(); });
        EXPECT_NE(message.find("line.mdb"), std::string::npos) << message;
        EXPECT_EQ(fs::is_regular_file(File) ? ReadFile(File) : "", before);
        EXPECT_EQ(ReadFile(Copy), "the working copy before");
        EXPECT_EQ(NamesIn(Folder.Path()), names);
        return message;
    }
    void ExpectRefusedFor(const std::string& words) const {
        const std::string message = ExpectRefused();
        EXPECT_NE(message.find(words), std::string::npos) << message;
    }
    /// The working copy has our own tables and the rows of `rows`; the file is as it was.
    void ExpectRead(const Texts& rows) const {
        const std::string before = ReadFile(File);
        const auto names = NamesIn(Folder.Path());
        ASSERT_NO_THROW(Read());
        EXPECT_EQ(AllRows(Copy), rows);
        EXPECT_EQ(Definitions(Copy), Definitions(QUARNEL02_TEMPLATE_FILE));
        EXPECT_EQ(ReadFile(File), before);
        EXPECT_EQ(NamesIn(Folder.Path()), names);
        EXPECT_NO_THROW(CheckModelFile(Copy, "working copy"));
    }

    TemporaryDirectory Folder;
    fs::path File = Folder.Path() / fs::path(u8"Öl, 50% #1?.mdb");
    fs::path Copy = Folder.Path() / "working.seq";
};

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

TEST_F(ReadModelTest, NamesAValueThatAFieldCannotHold) {
    struct Wrong {
        const char* Value;
        const char* Words;
    };
    for (const Wrong& wrong :
         {Wrong{"'abc'", "TaskId: \"abc\" is not a number"}, Wrong{"40000", "TaskId: 40000 is out"},
          Wrong{"x'0102'", "TaskId is no text or number"}, Wrong{"9e999", "TaskId is infinite"},
          Wrong{"hex(zeroblob(500000))", "TaskId is a text, not a number"}}) {
        Make(
            "DROP TABLE Tasks; CREATE TABLE Tasks (TaskId, Description);"
            "INSERT INTO Tasks VALUES (1, 'x'), (" +
            std::string(wrong.Value) + ", 'y');");
        ExpectRefusedFor(std::string("line.mdb has a wrong value in row 2 of table Tasks: ") +
                         wrong.Words);
    }
}

TEST_F(ReadModelTest, RefusesTextsBeyondAllMeasure) {
    Make("UPDATE Gen SET Product = hex(zeroblob(65536));");
    EXPECT_NO_THROW(Read());
    WriteFile(Copy, "the working copy before");
    Make("UPDATE Gen SET Product = hex(zeroblob(65537));");
    ExpectRefusedFor("Product is longer than 128 KB");
    Make("UPDATE Gen SET Product = hex(zeroblob(9000000));");
    ExpectRefusedFor("more in one row");
}

TEST_F(ReadModelTest, RefusesMoreContentThanMemoryIsMeantToHold) {
    Make(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 700)"
        "INSERT INTO Tasks SELECT i, hex(zeroblob(50000)) FROM n;");
    ExpectRefusedFor("holds more than 64 MB");
}

TEST_F(ReadModelTest, RefusesMoreRowsThanAModelCanHave) {
    Make(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1048577)"
        "INSERT INTO Tasks SELECT 1, NULL FROM n;");
    ExpectRefusedFor("has more than 1,048,576 rows in table Tasks");
}

TEST_F(ReadModelTest, RefusesAFileBeyondAllMeasure) {
    Make();
    fs::resize_file(File, (std::uintmax_t{256} << 20) + 1);
    const std::string message = ExpectRunTimeError(ErrorKind::NotAModel, [&] { Read(); });
    EXPECT_NE(message.find("line.mdb is larger than 256 MB"), std::string::npos) << message;
}

TEST_F(ReadModelTest, GivesUpOnAFileThatTakesLongToCheck) {
    Make(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 30000)"
        "INSERT INTO Tasks SELECT 1, NULL FROM n;"
        "DELETE FROM Tasks WHERE TaskId > 1; CREATE INDEX Slow ON Tasks (TaskId * 4000002);");
    RawStore(File).Run(
        "PRAGMA writable_schema = ON; UPDATE sqlite_master SET sql = "
        "'CREATE INDEX Slow ON Tasks (length(hex(zeroblob(2000000 + TaskId))))' "
        "WHERE name = 'Slow'");
    const auto start = std::chrono::steady_clock::now();
    ExpectRefusedFor("takes too long to read");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

TEST_F(ReadModelTest, NeedsOneRowOfParameters) {
    Make("DELETE FROM Gen;");
    ExpectRefusedFor("has 0 rows of production parameters");
    Make("INSERT INTO Gen DEFAULT VALUES;");
    ExpectRefusedFor("has 2 rows of production parameters");
}

TEST_F(ReadModelTest, NamesEachMissingTableAndColumn) {
    for (const TableSchema& table : ModelSchema()) {
        const std::string name(table.Name);
        Make("DROP TABLE " + name + ";");
        ExpectRefusedFor("line.mdb has no table " + name + ". ");
        for (const ColumnSchema& column : table.Columns) {
            const std::string column_name(column.Name);
            Make("ALTER TABLE " + name + " RENAME COLUMN \"" + column_name + "\" TO Other;");
            ExpectRefusedFor("has no column " + column_name + " in table " + name + ".");
        }
    }
}

TEST_F(ReadModelTest, RefusesWhatIsNoDatabase) {
    ExpectRefused(ErrorKind::FileNotFound);
    WriteFile(File, "");
    ExpectRefusedFor("is empty");
    WriteFile(File, "Tasks, Resources\n");
    ExpectRefusedFor("is not a model database");
    WriteFile(File, std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4096, '\0'));
    ExpectRefusedFor("is a Jet (Access) database");
    fs::remove(File);
    ASSERT_EQ(::mkfifo(File.c_str(), 0600), 0);
    ExpectRefusedFor("is not an ordinary file");
    fs::remove(File);
    fs::create_directory(File);
    ExpectRefusedFor("is a directory");
}

TEST_F(ReadModelTest, RefusesAFileThatIsCutShort) {
    Make();
    const std::string whole = ReadFile(File);
    for (std::size_t kept = 100; kept < whole.size(); kept += 1999) {
        WriteFile(File, whole.substr(0, kept));
        ExpectRefused();
    }
    WriteFile(File, whole.substr(0, whole.size() - 1));
    ExpectRefused();
}

TEST_F(ReadModelTest, RefusesOneThatKeepsALog) {
    Make();
    RawStore(File).Run("PRAGMA journal_mode = WAL");
    ExpectRefusedFor("journal mode WAL");
    RawStore other(File);
    other.Run("UPDATE Gen SET Days = 1");
    ASSERT_TRUE(fs::exists(File.string() + "-wal"));
    ExpectRefusedFor("journal mode WAL");
}

TEST_F(ReadModelTest, ReportsAFileThatAnotherProgramIsWriting) {
    Make();
    RawStore other(File);
    other.Run("BEGIN EXCLUSIVE; UPDATE Gen SET Days = 1");
    ExpectRefused(ErrorKind::DatabaseLocked);
}

TEST_F(ReadModelTest, ReadsAroundAChangeThatIsNotFinished) {
    Make();
    const Texts rows = AllRows(File);
    RawStore other(File);
    other.Run("BEGIN IMMEDIATE; UPDATE Gen SET Days = 1");
    Read();
    EXPECT_EQ(AllRows(Copy), rows);
}

TEST_F(ReadModelTest, RefusesAFileWithTheJournalOfAKilledProgram) {
    Make();
    const std::string before = ReadFile(File);
    RawStore other(File);
    other.Run(
        "PRAGMA cache_size = 1; PRAGMA cache_spill = 1; BEGIN IMMEDIATE;"
        "CREATE TABLE Big (a); WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM "
        "n WHERE i < 3000) INSERT INTO Big SELECT hex(zeroblob(500)) FROM n;");
    const std::string journal = ReadFile(File.string() + "-journal");
    const std::string half_written = ReadFile(File);
    ASSERT_NE(half_written, before);
    other.Run("ROLLBACK");
    WriteFile(File, half_written);
    WriteFile(File.string() + "-journal", journal);
    ExpectRefusedFor("was not closed by the program that changed it last");
    EXPECT_EQ(ReadFile(File.string() + "-journal"), journal);
}

TEST_F(ReadModelTest, NeverMixesTwoStatesOfAFileThatIsBeingWritten) {
    Make(
        "DELETE FROM Tasks; WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE "
        "i < 200) INSERT INTO Tasks SELECT i, '0' FROM n; UPDATE Demand SET Prob = 0; UPDATE Gen "
        "SET "
        "Product = '0';");
    RawStore other(File);
    other.Run("PRAGMA synchronous = OFF; PRAGMA busy_timeout = 10000");
    std::atomic<bool> done = false;
    std::thread writer([&] {
        for (int state = 1; state <= 150; ++state) {
            const std::string text = std::to_string(state);
            other.Run("BEGIN IMMEDIATE; UPDATE Gen SET Product = '" + text +
                      "'; UPDATE Tasks SET Description = '" + text +
                      "'; UPDATE Demand SET Prob = " + text + "; COMMIT");
        }
        done = true;
    });
    int reads = 0;
    for (; !done || reads == 0; ++reads) {
        try {
            Read();
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Kind(), ErrorKind::DatabaseLocked) << error.what();
            continue;
        }
        EXPECT_EQ(RawStore(Copy).Rows(
                      "SELECT DISTINCT Description = Product, Prob = CAST(Product AS REAL) "
                      "FROM Tasks, Gen, Demand"),
                  Texts{"1|1"});
    }
    writer.join();
    EXPECT_GT(reads, 0);
}

TEST_F(ReadModelTest, NeverReadsADifferentModelFromADamagedFile) {
    Make();
    const Texts rows = AllRows(File);
    const std::string whole = ReadFile(File);
    const std::vector<std::string> pages =
        RawStore(File).Rows("SELECT rootpage FROM sqlite_master WHERE type = 'index'");
    constexpr std::size_t page = 4096;
    int read = 0;
    int refused = 0;
    for (const std::string& root : pages) {
        const std::size_t first = (std::stoul(root) - 1) * page;
        for (std::size_t at = first; at < first + page; ++at) {
            if (whole[at] == '\0' && at % 61 != 0) {
                continue;  // free space, of which a few samples do
            }
            std::string damaged = whole;
            damaged[at] = static_cast<char>(damaged[at] ^ (1 << (at % 8)));
            WriteFile(File, damaged);
            try {
                Read();
                ++read;
                EXPECT_EQ(AllRows(Copy), rows) << at;
            } catch (const RunTimeError& error) {
                ++refused;
                EXPECT_EQ(error.Kind(), ErrorKind::NotAModel) << error.what();
            }
        }
    }
    EXPECT_GT(read, 10);
    EXPECT_GT(refused, 50);
}

TEST_F(ReadModelTest, LeavesTheWorkingCopyWhenTheDiskIsFull) {
    Make();
    const test::FileSizeLimit limit(4096);
    ExpectRunTimeError(ErrorKind::FileAccess, [&] { Read(); });
    EXPECT_EQ(ReadFile(Copy), "the working copy before");
}

TEST_F(ReadModelTest, TakesTheJournalOfTheOldWorkingCopyAway) {
    Make();
    WriteFile(Copy.string() + "-journal", "old");
    Read();
    EXPECT_FALSE(fs::exists(Copy.string() + "-journal"));
    EXPECT_EQ(AllRows(Copy), AllRows(File));
}

}  // namespace
}  // namespace quarnel02
