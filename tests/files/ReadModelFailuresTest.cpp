#include "files/ReadModelTest.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

namespace fs = std::filesystem;

namespace quarnel02 {
namespace {

using test::AllRows;
using test::ExpectRunTimeError;
using test::RawStore;
using Texts = std::vector<std::string>;

class ReadModelFailures : public test::ReadModelTest {};

TEST_F(ReadModelFailures, NamesAValueThatAFieldCannotHold) {
    struct Wrong {
        const char* Value;
        const char* Words;
    };
    for (const Wrong& wrong :
         {Wrong{"'abc'", "TaskId: \"abc\" is not a number"}, Wrong{"40000", "TaskId: 40000 is out"},
          Wrong{"2.5", "TaskId: 2.5 is no whole number. Correct it there."},
          Wrong{"'2.5'", "TaskId: 2.5 is no whole number. Correct it there."},
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

TEST_F(ReadModelFailures, RefusesTextsBeyondAllMeasure) {
    Make("UPDATE Gen SET Product = hex(zeroblob(65536));");
    EXPECT_NO_THROW(Read());
    WriteFile(Copy, "the working copy before");
    Make("UPDATE Gen SET Product = hex(zeroblob(65537));");
    ExpectRefusedFor("Product is longer than 128 KB");
    Make("UPDATE Gen SET Product = hex(zeroblob(9000000));");
    ExpectRefusedFor("more in one row");
}

TEST_F(ReadModelFailures, RefusesMoreContentThanMemoryIsMeantToHold) {
    Make(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 700)"
        "INSERT INTO Tasks SELECT i, hex(zeroblob(50000)) FROM n;");
    ExpectRefusedFor("holds more than 64 MB");
}

TEST_F(ReadModelFailures, RefusesMoreRowsThanAModelCanHave) {
    Make(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1048577)"
        "INSERT INTO Tasks SELECT 1, NULL FROM n;");
    ExpectRefusedFor("has more than 1,048,576 rows in table Tasks");
}

TEST_F(ReadModelFailures, RefusesAFileBeyondAllMeasure) {
    Make();
    fs::resize_file(File, (std::uintmax_t{256} << 20) + 1);
    const std::string message = ExpectRunTimeError(ErrorKind::NotAModel, [&] { Read(); });
    EXPECT_NE(message.find("line.mdb is larger than 256 MB"), std::string::npos) << message;
}

TEST_F(ReadModelFailures, GivesUpOnAFileThatTakesLongToCheck) {
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

TEST_F(ReadModelFailures, NeedsOneRowOfParameters) {
    Make("DELETE FROM Gen;");
    ExpectRefusedFor("has 0 rows of production parameters");
    Make("INSERT INTO Gen DEFAULT VALUES;");
    ExpectRefusedFor("has 2 rows of production parameters");
}

TEST_F(ReadModelFailures, NamesEachMissingTableAndColumn) {
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

TEST_F(ReadModelFailures, RefusesWhatIsNoDatabase) {
    ExpectRefused(ErrorKind::FileNotFound);
    WriteFile(File, "");
    ExpectRefusedFor("is empty");
    WriteFile(File, "Tasks, Resources\n");
    ExpectRefusedFor("is not a model database");
    WriteFile(File, std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4096, '\0'));
    ExpectRefusedFor("line.mdb is encrypted");
    fs::remove(File);
    ASSERT_EQ(::mkfifo(File.c_str(), 0600), 0);
    ExpectRefusedFor("is not an ordinary file");
    fs::remove(File);
    fs::create_directory(File);
    ExpectRefusedFor("is a directory");
}

TEST_F(ReadModelFailures, RefusesAFileThatIsCutShort) {
    Make();
    const std::string whole = ReadFile(File);
    for (std::size_t kept = 100; kept < whole.size(); kept += 1999) {
        WriteFile(File, whole.substr(0, kept));
        ExpectRefused();
    }
    WriteFile(File, whole.substr(0, whole.size() - 1));
    ExpectRefused();
}

TEST_F(ReadModelFailures, RefusesOneThatKeepsALog) {
    Make();
    RawStore(File).Run("PRAGMA journal_mode = WAL");
    ExpectRefusedFor("journal mode WAL");
    RawStore other(File);
    other.Run("UPDATE Gen SET Days = 1");
    ASSERT_TRUE(fs::exists(File.string() + "-wal"));
    ExpectRefusedFor("journal mode WAL");
}

TEST_F(ReadModelFailures, ReportsAFileThatAnotherProgramIsWriting) {
    Make();
    RawStore other(File);
    other.Run("BEGIN EXCLUSIVE; UPDATE Gen SET Days = 1");
    ExpectRefused(ErrorKind::DatabaseLocked);
}

TEST_F(ReadModelFailures, ReadsAroundAChangeThatIsNotFinished) {
    Make();
    const Texts rows = AllRows(File);
    RawStore other(File);
    other.Run("BEGIN IMMEDIATE; UPDATE Gen SET Days = 1");
    Read();
    EXPECT_EQ(AllRows(Copy), rows);
}

TEST_F(ReadModelFailures, RefusesAFileWithTheJournalOfAKilledProgram) {
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

TEST_F(ReadModelFailures, NeverMixesTwoStatesOfAFileThatIsBeingWritten) {
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

TEST_F(ReadModelFailures, NeverReadsADifferentModelFromADamagedFile) {
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

TEST_F(ReadModelFailures, LeavesTheWorkingCopyWhenTheDiskIsFull) {
    Make();
    const test::FileSizeLimit limit(4096);
    ExpectRunTimeError(ErrorKind::FileAccess, [&] { Read(); });
    EXPECT_EQ(ReadFile(Copy), "the working copy before");
}

TEST_F(ReadModelFailures, TakesTheJournalOfTheOldWorkingCopyAway) {
    Make();
    WriteFile(Copy.string() + "-journal", "old");
    Read();
    EXPECT_FALSE(fs::exists(Copy.string() + "-journal"));
    EXPECT_EQ(AllRows(Copy), AllRows(File));
}

}  // namespace
}  // namespace quarnel02
