// Models that somebody made to do harm, or that went through bad hands: each gives its rows or one
// message, soon and in little memory.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

#include "files/ReadModelTest.h"
#include "files/SaveModel.h"
#include "files/SqlText.h"
#include "support/Measured.h"

namespace quarnel02 {
namespace {

using test::AllRows;
using test::ExpectModest;
using test::Measured;
using test::MeasuredRun;
using test::RawStore;
using test::Texts;

const char* const kCount =
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ";

class HostileModel : public test::ReadModelTest {
  protected:
    Measured Run() const {
        return MeasuredRun([&] { Read(); });
    }
    /// Refused for that reason, soon and in little memory; nothing beside file and working copy.
    void ExpectRefusedSoon(const std::string& words) const {
        WriteFile(Copy, "the working copy before");
        const auto names = test::NamesIn(Folder.Path());
        const Measured run = Run();
        ExpectModest(run);
        EXPECT_TRUE(run.Message.find("line.mdb") != std::string::npos) << run.Message;
        EXPECT_TRUE(run.Message.find(words) != std::string::npos) << run.Message;
        EXPECT_TRUE(ReadFile(Copy) == "the working copy before");
        EXPECT_EQ(test::NamesIn(Folder.Path()), names);
    }
    void ExpectReadSoon() const {
        const Measured run = Run();
        ExpectModest(run);
        EXPECT_EQ(run.Message, "");
        EXPECT_NO_THROW(CheckModelFile(Copy, "working copy"));
    }
};

TEST_F(HostileModel, AViewWithoutEndInPlaceOfAnyTable) {
    for (const TableSchema& table : ModelSchema()) {
        const std::string name(table.Name);
        SCOPED_TRACE(name);
        std::string columns;
        for (const ColumnSchema& column : table.Columns) {
            columns += (columns.empty() ? "i AS " : ", i AS ") + std::string(column.Name);
        }
        Make("DROP TABLE " + name + "; CREATE VIEW " + name +
             " AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT " +
             columns + " FROM n;");
        ExpectRefusedSoon("a view stands in its place");
    }
}

TEST_F(HostileModel, TriggersOfEveryKindStayBehind) {
    Make();
    const Texts rows = AllRows(File);
    RawStore(File).Run(
        "CREATE TABLE Fill (a);"
        "CREATE TRIGGER a AFTER INSERT ON Pathways BEGIN INSERT INTO Fill WITH RECURSIVE n(i) AS "
        "(SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT hex(zeroblob(1000000)) FROM n; END;"
        "CREATE TRIGGER b AFTER UPDATE ON Gen BEGIN UPDATE Resources SET FixedCost = FixedCost * "
        "10; END;"
        "CREATE TRIGGER c BEFORE INSERT ON BestPaths BEGIN DELETE FROM Demand; END;");
    ExpectRead(rows);
    RawStore copy(Copy);
    copy.Run(
        "UPDATE Gen SET Days = Days; INSERT INTO Pathways VALUES (9, 0, 1, 1, 1, 1, 1, 1, 1); "
        "INSERT INTO BestPaths VALUES (0, 0, 0, 0)");
    EXPECT_EQ(copy.Rows("SELECT FixedCost FROM Resources"), Texts{"10000.0"});
    EXPECT_EQ(copy.Rows("SELECT COUNT(*) FROM Demand"), Texts{"2"});
}

/// Rows that do not have the field yet show its default, a long text that stands in the file once.
TEST_F(HostileModel, ASmallFileOfGigabytes) {
    Make("DROP TABLE Tasks; CREATE TABLE Tasks (TaskId);" + std::string(kCount) +
         "20000) INSERT INTO Tasks SELECT 1 FROM n; ALTER TABLE Tasks ADD COLUMN Description "
         "DEFAULT '" +
         std::string(50000, 'x') + "';");
    EXPECT_LT(std::filesystem::file_size(File), 500000U);
    ExpectRefusedSoon("holds more than 64 MB");
}

TEST_F(HostileModel, AnIndexThatComputesMuch) {
    Make(kCount + std::string("20000) INSERT INTO Tasks SELECT 1, NULL FROM n;") +
         "CREATE INDEX Wide ON Tasks (hex(zeroblob(TaskId)));");
    RawStore(File).Run(
        "PRAGMA writable_schema = ON; UPDATE sqlite_master SET sql = 'CREATE INDEX Wide ON Tasks "
        "(hex(zeroblob(TaskId * 8000000)))' WHERE name = 'Wide'");
    const Measured run = Run();
    ExpectModest(run);
    EXPECT_NE(run.Message, "");
}

/// SQLite keeps every definition in memory, and more than once.
TEST_F(HostileModel, MoreDefinitionsThanMemoryIsMeantToHold) {
    std::string columns;
    for (int i = 0; i < 150; ++i) {
        columns +=
            (i == 0 ? "c" : ", c") + std::to_string(i) + std::string(600, 'x') + " DEFAULT 'y'";
    }
    Make();
    {
        RawStore store(File);
        store.Run(
            "PRAGMA synchronous = OFF; BEGIN; CREATE TABLE t0 (" + columns +
            "); PRAGMA writable_schema = ON;" + kCount +
            "1500) INSERT INTO sqlite_master SELECT 'table', 'v' || i, 'v' || i, rootpage, "
            "replace(sql, 'TABLE t0', 'TABLE v' || i) FROM n, sqlite_master WHERE name = 't0';"
            "COMMIT");
    }
    ExpectRefusedSoon("");
}

TEST_F(HostileModel, AMillionRowsInATable) {
    const auto rows_of = [](const std::string& table, const std::string& values) {
        return kCount + ("1000000) INSERT INTO " + table + " SELECT " + values + " FROM n;");
    };
    Make(rows_of("Tasks", "i % 30000, NULL"));
    ExpectReadSoon();
    Make(rows_of("Matrix", "i / 255 % 30000, i % 255, 1, 1, 1"));
    ExpectReadSoon();
    Make(rows_of("Pathways", "i % 30000, 1, 1, 1, 1, 1, 1, 1, 1"));
    ExpectRefusedSoon("more than 64 MB");
}

TEST_F(HostileModel, AMillionRowsInEveryTable) {
    std::string all;
    for (const TableSchema& table : ModelSchema()) {
        std::string values = "1";
        for (std::size_t i = 1; i < table.Columns.size(); ++i) {
            values += ", 1";
        }
        all += table.Name == "Gen" ? ""
                                   : std::string(kCount) + "1000000) INSERT INTO " +
                                         std::string(table.Name) + " SELECT " + values + " FROM n;";
    }
    Make(all);
    const Measured run = Run();
    ExpectModest(run);
    EXPECT_NE(run.Message, "");
    EXPECT_TRUE(ReadFile(Copy) == "the working copy before");
}

/// Bytes that no text should have come through as they are: they are data, and a window, a report
/// or another file decides what it makes of them.
TEST_F(HostileModel, TextsOfAnyBytes) {
    Make(
        "UPDATE Tasks SET Description = CAST(x'00' AS TEXT) WHERE TaskId = 1;"
        "UPDATE Tasks SET Description = CAST(x'41001B5B324A07C328FF42' AS TEXT) WHERE TaskId = 2;"
        "UPDATE Gen SET Product = CAST(x'25732F2E2E2F6E250A' AS TEXT);");
    const Texts rows = RawStore(File).Rows("SELECT hex(Description) FROM Tasks ORDER BY rowid");
    Read();
    EXPECT_EQ(RawStore(Copy).Rows("SELECT hex(Description) FROM Tasks ORDER BY rowid"), rows);
    EXPECT_EQ(RawStore(Copy).Rows("SELECT hex(Product) FROM Gen"), Texts{"25732F2E2E2F6E250A"});
}

/// SQLite has no NaN: a field that is set to one is empty.
TEST_F(HostileModel, NumbersThatAreNone) {
    for (const auto& [value, words] :
         {std::pair("9e999", "is infinite"), std::pair("-9e999", "is infinite"),
          std::pair("'NaN'", "\"NaN\" is not a number"), std::pair("'inf'", "is not a number"),
          std::pair("x'7FF8000000000000'", "is no text or number")}) {
        for (const auto& [table, field] :
             {std::pair("Resources", "FixedCost"), std::pair("Matrix", "TaskTime"),
              std::pair("Demand", "Volume"), std::pair("Gen", "ACF")}) {
            SCOPED_TRACE(std::string(field) + value);
            const std::string name = table;
            Make("CREATE TABLE Loose AS SELECT * FROM " + name + "; DROP TABLE " + name +
                 "; ALTER TABLE Loose RENAME TO " + name + "; UPDATE " + name + " SET " + field +
                 " = " + value + ";");
            ExpectRefusedFor(words);
        }
    }
}

/// A table of hidden, shifted and constrained columns that holds the same rows.
TEST_F(HostileModel, ColumnsOfOtherKindsGiveTheSameRows) {
    Make();
    const Texts rows = AllRows(File);
    for (const char* definition :
         {"(Note, TASKID INTEGER NOT NULL CHECK (TaskId < 2), Twice AS (TaskId * 2), Description "
          "TEXT COLLATE NOCASE)",
          "(Description TEXT DEFAULT (hex(randomblob(9))), TaskId INTEGER PRIMARY KEY DESC, Hidden "
          "TEXT AS ('x') STORED)",
          "(TaskId INT, Description ANY, UNIQUE (TaskId, Description)) STRICT"}) {
        SCOPED_TRACE(definition);
        RawStore(File).Run(
            "PRAGMA ignore_check_constraints = ON; ALTER TABLE Tasks RENAME TO Old;"
            "CREATE TABLE Tasks " +
            std::string(definition) +
            "; INSERT INTO Tasks (TaskId, Description) SELECT TaskId, Description FROM Old;"
            "DROP TABLE Old;");
        ExpectRead(rows);
    }
}

TEST_F(HostileModel, DamageAnywhereGivesTheSameModelOrAMessage) {
    Make("CREATE INDEX ByText ON Tasks (Description);");
    const std::string whole = ReadFile(File);
    int read = 0;
    int refused = 0;
    for (std::size_t at = 0; at < whole.size(); at += 97) {
        std::string damaged = whole;
        damaged[at] = static_cast<char>(damaged[at] ^ static_cast<char>(1U << (at % 8)));
        WriteFile(File, damaged);
        try {
            Read();
            ++read;
            EXPECT_NO_THROW(CheckModelFile(Copy, "working copy")) << at;
        } catch (const RunTimeError& error) {
            ++refused;
            const std::string message = error.what();
            EXPECT_NE(message.find("line.mdb"), std::string::npos) << message;
            EXPECT_EQ(message.find('\n'), std::string::npos) << message;
        }
    }
    EXPECT_GT(read, 10);
    EXPECT_GT(refused, 10);
}

TEST_F(HostileModel, AnAccessFileBeyondAllMeasureIsNotReadAtAll) {
    const auto access = Folder.Path() / "line.mdb";
    Make();
    SaveModel(File, access, ModelFormat::Access);
    const auto run = [&] { return MeasuredRun([&] { ReadModel(access, Copy, "line.mdb"); }); };
    std::filesystem::resize_file(access, std::uintmax_t{128} << 20);
    ExpectModest(run());
    std::filesystem::resize_file(access, (std::uintmax_t{128} << 20) + 1);
    const Measured refused = run();
    ExpectModest(refused);
    EXPECT_EQ(refused.Message, "line.mdb is larger than 128 MB, which no model is.");
}

/// A text in SQL that has SQLite sort more than fits.
TEST_F(HostileModel, ATextThatSortsGigabytes) {
    const auto text = Folder.Path() / "line.sql";
    WriteFile(text, std::string("INSERT INTO Tasks ") + kCount +
                        "100000) SELECT i, hex(zeroblob(500000)) AS t FROM n ORDER BY t || i;");
    const Measured run = MeasuredRun([&] { ReadSqlText(text, Copy, "line.sql"); });
    ExpectModest(run);
    EXPECT_NE(run.Message.find("line.sql cannot be run: line 1: "), std::string::npos)
        << run.Message;
    EXPECT_TRUE(ReadFile(Copy) == "the working copy before");
}

}  // namespace
}  // namespace quarnel02
