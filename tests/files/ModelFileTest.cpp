#include "files/ModelFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "model/Schema.h"
#include "support/RawStore.h"
#include "support/RunTimeErrors.h"
#include "support/Surroundings.h"
#include "support/TestModel.h"

namespace fs = std::filesystem;

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::NamesIn;
using test::RawStore;
using Texts = std::vector<std::string>;

/// Tables with the columns of the schema, except for one whose columns are given.
std::string TablesWith(std::string_view changed, const std::string& columns) {
    std::string sql;
    for (const TableSchema& table : ModelSchema()) {
        if (table.Name == changed && columns.empty()) {
            continue;
        }
        std::string list = columns;
        if (table.Name != changed) {
            list.clear();
            for (const ColumnSchema& column : table.Columns) {
                list += (list.empty() ? "\"" : ", \"") + std::string(column.Name) + "\"";
            }
        }
        sql += "CREATE TABLE " + std::string(table.Name) + " (" + list + ");\n";
    }
    return sql;
}

class CheckModelFileTest : public testing::Test {
  protected:
    /// Expects one line that names the file, and the file unchanged with nothing beside it.
    std::string ExpectRefused(ErrorKind kind) const {
        const bool is_file = fs::is_regular_file(File);
        const std::string before = is_file ? ReadFile(File) : "";
        const auto names = NamesIn(Folder.Path());
        const std::string name = PathText(File);
        const std::string message = ExpectRunTimeError(kind, [&] { CheckModelFile(File, name); });
        EXPECT_NE(message.find(name), std::string::npos) << message;
        EXPECT_EQ(is_file ? ReadFile(File) : "", before);
        EXPECT_EQ(NamesIn(Folder.Path()), names);
        return message;
    }
    void ExpectRefusedFor(const std::string& reason) const {
        const std::string message = ExpectRefused(ErrorKind::NotAModel);
        EXPECT_NE(message.find(reason), std::string::npos) << message;
    }
    void MakeWhole(const std::string& more = "") const {
        MakeModelFile(File, ReadFile(QUARNEL02_SCHEMA_FILE) + more);
    }

    TemporaryDirectory Folder;
    fs::path File = Folder.Path() / fs::path(u8"Modell für Öl, neu.mdb");
};

TEST_F(CheckModelFileTest, AcceptsAWholeModel) {
    MakeWhole("INSERT INTO Demand VALUES (1, 100); INSERT INTO Tasks VALUES (1, 'x');");
    const std::string before = ReadFile(File);
    EXPECT_NO_THROW(CheckModelFile(File, "x"));
    EXPECT_EQ(ReadFile(File), before);
    EXPECT_EQ(NamesIn(Folder.Path()).size(), 1U);
}

TEST_F(CheckModelFileTest, AcceptsTheTemplate) {
    EXPECT_NO_THROW(CheckModelFile(QUARNEL02_TEMPLATE_FILE, "blank.seq"));
}

TEST_F(CheckModelFileTest, AcceptsFurtherColumnsAndTables) {
    MakeWhole("ALTER TABLE Gen ADD COLUMN More TEXT; CREATE TABLE Notes (Note);");
    EXPECT_NO_THROW(CheckModelFile(File, "x"));
}

TEST_F(CheckModelFileTest, AcceptsAFileWithoutWriteRights) {
    MakeWhole();
    test::SetPermissions(Folder.Path(), 0555);
    test::SetPermissions(File, 0444);
    {
        const test::OrdinaryUser user;
        EXPECT_NO_THROW(CheckModelFile(File, "x"));
    }
    test::SetPermissions(Folder.Path(), 0755);
}

TEST_F(CheckModelFileTest, SpeaksOfTheFileByTheNameItIsGiven) {
    WriteFile(File, "text");
    const std::string message =
        ExpectRunTimeError(ErrorKind::NotAModel, [&] { CheckModelFile(File, "line.mdb"); });
    EXPECT_EQ(message.find("line.mdb"), 0U) << message;
    EXPECT_EQ(message.find(PathText(Folder.Path())), std::string::npos) << message;
}

TEST_F(CheckModelFileTest, RefusesAMissingFile) {
    ExpectRefused(ErrorKind::FileNotFound);
    EXPECT_FALSE(fs::exists(File));
}

TEST_F(CheckModelFileTest, RefusesADirectory) {
    fs::create_directory(File);
    ExpectRefusedFor("is a directory");
}

TEST_F(CheckModelFileTest, RefusesAPipeWithoutWaiting) {
    ASSERT_EQ(::mkfifo(File.c_str(), 0600), 0);
    ExpectRefusedFor("is not an ordinary file");
}

TEST_F(CheckModelFileTest, RefusesALinkThatNamesItself) {
    fs::create_symlink(File.filename(), File);
    ExpectRunTimeError(ErrorKind::FileAccess, [&] { CheckModelFile(File, PathText(File)); });
}

TEST_F(CheckModelFileTest, RefusesAFileWithoutRights) {
    MakeWhole();
    test::SetPermissions(Folder.Path(), 0755);
    test::SetPermissions(File, 0);
    const test::OrdinaryUser user;
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileAccess, [&] { CheckModelFile(File, PathText(File)); });
    EXPECT_NE(message.find(PathText(File)), std::string::npos) << message;
}

TEST_F(CheckModelFileTest, RefusesAnEmptyFile) {
    WriteFile(File, "");
    ExpectRefusedFor("is empty");
}

TEST_F(CheckModelFileTest, RefusesATextFile) {
    for (const std::string& content :
         {std::string("x"), std::string("Solution\n------\n"), std::string(50000, 'q')}) {
        WriteFile(File, content);
        ExpectRefusedFor("is not a model database");
    }
}

TEST_F(CheckModelFileTest, RefusesAJetDatabaseByItsName) {
    WriteFile(File, std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4096, '\0'));
    ExpectRefusedFor("Jet");
    WriteFile(File, std::string("\0\1\0\0Standard ACE DB\0", 20) + std::string(4096, '\0'));
    ExpectRefusedFor("Jet");
}

TEST_F(CheckModelFileTest, RefusesAHeaderWithNothingBehindIt) {
    WriteFile(File, std::string("SQLite format 3\0", 16));
    ExpectRefused(ErrorKind::NotAModel);
    WriteFile(File, std::string("SQLite format 3\0", 16) + std::string(4080, '\7'));
    ExpectRefused(ErrorKind::NotAModel);
}

TEST_F(CheckModelFileTest, RefusesATruncatedDatabase) {
    MakeWhole();
    const std::string whole = ReadFile(File);
    for (const std::size_t kept :
         {whole.size() / 2, std::size_t{4096}, std::size_t{1000}, std::size_t{100}}) {
        WriteFile(File, whole.substr(0, kept));
        ExpectRefused(ErrorKind::NotAModel);
    }
}

TEST_F(CheckModelFileTest, RefusesADatabaseWithoutItsLastByte) {
    MakeWhole();
    const std::string whole = ReadFile(File);
    WriteFile(File, whole.substr(0, whole.size() - 1));
    ExpectRefused(ErrorKind::NotAModel);
}

TEST_F(CheckModelFileTest, RefusesGarbledPages) {
    std::string rows;
    for (int task = 1; task <= 2000; ++task) {
        rows += "INSERT INTO Tasks VALUES (" + std::to_string(task) + ", 'A longer description');";
    }
    MakeWhole(rows);
    const std::string whole = ReadFile(File);
    constexpr std::size_t page = 4096;
    ASSERT_GT(whole.size(), 20 * page);
    for (const std::size_t first : {std::size_t{1}, whole.size() / page / 2}) {
        std::string garbled = whole;
        std::fill_n(garbled.begin() + static_cast<std::ptrdiff_t>(first * page), 3 * page, '\xA5');
        WriteFile(File, garbled);
        ExpectRefused(ErrorKind::NotAModel);
    }
}

TEST_F(CheckModelFileTest, RefusesAForeignDatabase) {
    MakeModelFile(File, "CREATE TABLE Songs (Title TEXT); INSERT INTO Songs VALUES ('x');");
    ExpectRefusedFor("has no table Gen.");
}

TEST_F(CheckModelFileTest, RefusesADatabaseWithoutAnyTable) {
    MakeModelFile(File, "CREATE TABLE T (a); DROP TABLE T;");
    ExpectRefusedFor("has no table Gen.");
}

TEST_F(CheckModelFileTest, NamesEachMissingTable) {
    for (const TableSchema& table : ModelSchema()) {
        MakeModelFile(File, TablesWith(table.Name, ""));
        ExpectRefusedFor("has no table " + std::string(table.Name) + ".");
    }
}

TEST_F(CheckModelFileTest, NamesEachMissingColumn) {
    for (const TableSchema& table : ModelSchema()) {
        for (std::size_t missing = 0; missing < table.Columns.size(); ++missing) {
            std::string columns;
            for (std::size_t i = 0; i < table.Columns.size(); ++i) {
                if (i != missing) {
                    columns += (columns.empty() ? "\"" : ", \"") +
                               std::string(table.Columns[i].Name) + "\"";
                }
            }
            MakeModelFile(File, TablesWith(table.Name, columns));
            ExpectRefusedFor("has no column " + std::string(table.Columns[missing].Name) +
                             " at place " + std::to_string(missing + 1) + " of table " +
                             std::string(table.Name) + ".");
        }
    }
}

TEST_F(CheckModelFileTest, RefusesColumnsInAnotherOrder) {
    MakeModelFile(File, TablesWith("Demand", "Prob, Volume"));
    ExpectRefusedFor("has no column Volume at place 1 of table Demand.");
    MakeModelFile(File, TablesWith("Matrix", "TaskId, ResourceId, TaskTime, ToolNum, ToolCost"));
    ExpectRefusedFor("has no column ResourceId at place 1 of table Matrix.");
}

TEST_F(CheckModelFileTest, WantsOneRowOfParameters) {
    MakeWhole("DELETE FROM Gen;");
    ExpectRefusedFor("has 0 rows of production parameters");
    MakeWhole("INSERT INTO Gen DEFAULT VALUES;");
    ExpectRefusedFor("has 2 rows of production parameters");
}

TEST_F(CheckModelFileTest, ReportsADatabaseInUse) {
    MakeWhole();
    RawStore other(File);
    other.Run("BEGIN EXCLUSIVE");
    const std::string message =
        ExpectRunTimeError(ErrorKind::DatabaseLocked, [&] { CheckModelFile(File, "line.mdb"); });
    EXPECT_NE(message.find("line.mdb"), std::string::npos) << message;
}

TEST_F(CheckModelFileTest, RefusesAModelThatKeepsALog) {
    MakeWhole();
    RawStore(File).Run("PRAGMA journal_mode = WAL");
    ExpectRefusedFor("journal mode WAL");
}

TEST_F(CheckModelFileTest, MakesTheEmptyModelWithoutTheTemplate) {
    MakeEmptyModel(File);
    EXPECT_EQ(ReadFile(File), ReadFile(QUARNEL02_TEMPLATE_FILE));
    WriteFile(File.string() + "-journal", "old");
    MakeEmptyModel(File);
    EXPECT_EQ(NamesIn(Folder.Path()).size(), 1U);
}

TEST_F(CheckModelFileTest, ModelsCarryTheirFormat) {
    MakeEmptyModel(File);
    EXPECT_EQ(RawStore(File).Rows("PRAGMA application_id"), Texts{"1366175794"});
    EXPECT_EQ(RawStore(File).Rows("PRAGMA user_version"), Texts{"1"});
}

TEST_F(CheckModelFileTest, MakeModelFileReplacesAFile) {
    WriteFile(File, "text");
    MakeWhole();
    EXPECT_NO_THROW(CheckModelFile(File, "x"));
}

TEST_F(CheckModelFileTest, MakeModelFileReportsAStatementThatFails) {
    const std::string message =
        ExpectRunTimeError(ErrorKind::DatabaseFailure, [&] { MakeWhole("INSERT INTO Nothing;"); });
    EXPECT_NE(message.find(PathText(File)), std::string::npos) << message;
}

TEST_F(CheckModelFileTest, MakeModelFileReportsAMissingDirectory) {
    ExpectRunTimeError(ErrorKind::FileAccess,
                       [&] { MakeModelFile(Folder.Path() / "missing" / "x.mdb", ""); });
}

}  // namespace
}  // namespace quarnel02
