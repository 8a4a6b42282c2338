// The conversion program as a process of its own.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "files/ReadModel.h"
#include "files/SaveModel.h"
#include "jet/TinyModel.h"
#include "sheets/ModelSheets.h"
#include "sheets/WorkbookFile.h"
#include "support/AccessTables.h"
#include "support/SolveRun.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::NamesIn;
using test::ProgramResult;
using test::SolveRun;

using Lines = std::vector<std::string>;

/// Texts that need care in every kind of file, a tool without a figure and a demand row twice.
constexpr const char* kRows =
    "UPDATE Gen SET Tasks = 3, Resources = 2, Days = 240, ACF = 0.1, Product = 'Öl, \"50%\"';"
    "INSERT INTO Tasks VALUES (1, 'It''s a \"task\"'), (2, '組立 Ωβγ'), (3, '12,500');"
    "INSERT INTO Resources VALUES (1, 'Bench', 'a;b,c', 0, 3500.25, 1.5, 96, 1, 6, 1),"
    "  (2, 'Press', '', 3, 1e6, 0.1, 33.3, 1.4, 0, 0.5);"
    "INSERT INTO Matrix VALUES (2, 1, 30.1, 1, 500), (1, 1, 1e-3, 0, 0), (1, 3, 20, 2, 0.1);"
    "INSERT INTO Demand VALUES (33.3, 40), (12345678, 30), (33.3, 30);";
constexpr const char* kResults =
    "INSERT INTO Arcs VALUES (0, 1, 2, 100, 50, 3.14159, 6.28318);"
    "INSERT INTO Pathways VALUES (1, 0, 1, 4, 64336.5, 61.1, 1, 12600, 60556);"
    "INSERT INTO BestPaths VALUES (2, 1, 1, 64336.5);";

struct ConvertProgram : ::testing::Test {
    ConvertProgram() : Model(Run.Make("line.mdb", std::string(kRows) + kResults)) {}

    [[nodiscard]] std::string File(const std::string& name) const {
        return PathText(Run.File(name));
    }
    [[nodiscard]] ProgramResult Convert(const std::string& from, const std::string& to,
                                        const Lines& more = {}) const {
        Lines words = {from, to};
        words.insert(words.end(), more.begin(), more.end());
        return Run.Program("quarnel02-convert", words);
    }
    void ExpectConverted(const std::string& from, const std::string& to,
                         const Lines& more = {}) const {
        const ProgramResult result = Convert(from, to, more);
        EXPECT_EQ(result.Status, 0) << result.Err;
        EXPECT_EQ(result.Out, "");
        EXPECT_EQ(result.Err, "");
        EXPECT_TRUE(Run.LeftNothing());
    }
    /// One line that begins so; nothing is written.
    void ExpectRefused(const std::string& from, const std::string& to, const std::string& words,
                       const Lines& more = {}) const {
        const bool was_there = fs::is_regular_file(to);
        const std::string before = was_there ? ReadFile(to) : "";
        const ProgramResult result = Convert(from, to, more);
        EXPECT_EQ(result.Status, 1);
        EXPECT_EQ(result.Out, "");
        EXPECT_TRUE(result.Err.starts_with("quarnel02-convert: " + words)) << result.Err;
        EXPECT_EQ(std::count(result.Err.begin(), result.Err.end(), '\n'), 1) << result.Err;
        EXPECT_EQ(fs::is_regular_file(to) ? ReadFile(to) : "", before);
        EXPECT_EQ(fs::is_regular_file(to), was_there);
        EXPECT_TRUE(Run.LeftNothing());
    }
    [[nodiscard]] InputTables InputsOf(const std::string& model) const {
        ReadModel(model, Run.File("inputs.seq"), model);
        return ReadInputTables(Database::Open(Run.File("inputs.seq")));
    }
    [[nodiscard]] std::int64_t PathwaysIn(const std::string& model) const {
        ReadModel(model, Run.File("inputs.seq"), model);
        return Database::Open(Run.File("inputs.seq"))
            .OpenRecordSet("SELECT * FROM Pathways;")
            .RecordCount();
    }

    SolveRun Run;
    std::string Model;
};

TEST_F(ConvertProgram, GivesTheSameModelBackFromEveryKind) {
    const InputTables inputs = InputsOf(Model);
    ASSERT_EQ(inputs.Matrix.size(), 3U);
    for (const char* name : {"x.xlsx", "sheets", "x.sql", "x.mdb"}) {
        SCOPED_TRACE(name);
        ExpectConverted(Model, File(name));
        ExpectConverted(File(name), File("back.mdb"));
        EXPECT_EQ(InputsOf(File("back.mdb")), inputs);
    }
    EXPECT_EQ(NamesIn(Run.File("sheets")),
              (Lines{"Demand.csv", "General.csv", "Matrix.csv", "Resources.csv", "Tasks.csv"}));
}

TEST_F(ConvertProgram, TakesAnyOfTheCsvFilesForTheirDirectory) {
    ExpectConverted(Model, File("sheets"));
    ExpectConverted(File("sheets/Matrix.csv"), File("back.mdb"));
    EXPECT_EQ(InputsOf(File("back.mdb")), InputsOf(Model));
}

TEST_F(ConvertProgram, KeepsResultsBetweenModelFiles) {
    ExpectConverted(Model, File("access.mdb"), {"--format", "access"});
    EXPECT_EQ(FormatOfFile(File("access.mdb")), ModelFormat::Access);
    ExpectConverted(File("access.mdb"), File("own.mdb"));
    EXPECT_EQ(FormatOfFile(File("own.mdb")), ModelFormat::Sqlite);
    EXPECT_EQ(PathwaysIn(File("own.mdb")), 1);
    EXPECT_EQ(InputsOf(File("own.mdb")), InputsOf(Model));
    ExpectConverted(Model, File("x.xlsx"));
    ExpectConverted(File("x.xlsx"), File("back.mdb"));
    EXPECT_EQ(PathwaysIn(File("back.mdb")), 0);
}

TEST_F(ConvertProgram, WritesAModelFileAsWhatItWas) {
    ExpectConverted(Model, File("access.mdb"), {"--format", "access"});
    ExpectConverted(Model, File("x.sql"));
    ExpectConverted(File("x.sql"), File("access.mdb"));
    EXPECT_EQ(FormatOfFile(File("access.mdb")), ModelFormat::Access);
    EXPECT_EQ(PathwaysIn(File("access.mdb")), 0) << "it was not written";
    ExpectConverted(Model, File("access.mdb"), {"--format", "sqlite"});
    EXPECT_EQ(FormatOfFile(File("access.mdb")), ModelFormat::Sqlite);
}

TEST_F(ConvertProgram, SaysThatAccessDatabasesHoldNoScenarios) {
    const std::string model =
        Run.Make("more.mdb",
                 std::string(kRows) + "INSERT INTO Scenarios VALUES ('A', 'ACF +1%'), ('B', '');");
    const ProgramResult result = Convert(model, File("access.mdb"), {"--format", "access"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Err, "quarnel02-convert: " + File("access.mdb") +
                              " is written without the 2 scenarios of the model, which an Access "
                              "database cannot hold.\n");
    ExpectConverted(model, File("own.mdb"));
    EXPECT_EQ(InputsOf(File("own.mdb")).Scenarios.size(), 2U);
}

TEST_F(ConvertProgram, ReadsTheExamples) {
    WriteFile(Run.File("own.sql"), kRows);
    ExpectConverted(File("own.sql"), File("back.mdb"));
    EXPECT_EQ(InputsOf(File("back.mdb")), InputsOf(Model));
}

TEST_F(ConvertProgram, WritesSqlThatCanBeRead) {
    ExpectConverted(Model, File("x.sql"));
    const std::string text = ReadFile(Run.File("x.sql"));
    EXPECT_TRUE(text.starts_with("-- ")) << text;
    EXPECT_NE(text.find("UPDATE Gen SET Resources = 2, Tasks = 3, Days = 240, ACF = 0.1, "),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("INSERT INTO Tasks VALUES\n    (1, 'It''s a \"task\"'),\n"),
              std::string::npos)
        << text;
    EXPECT_EQ(text.find("Pathways"), std::string::npos);
}

TEST_F(ConvertProgram, WritesNothingForOptionsThatCannotBe) {
    ExpectRefused(Model, File("x.ods"),
                  File("x.ods") + " cannot be written: .ods files are only read. Name an .xlsx");
    ExpectRefused(Model, File("x.csv"), File("x.csv") + " cannot be written alone");
    ExpectRefused(Model, File("x.doc"), File("x.doc") + " has an extension of no kind");
    ExpectRefused(Model, File("x.accdb"), File("x.accdb") + " has an extension of no kind");
    ExpectRefused(Model, File("x.sql"), File("x.sql") + " is no model file, so --format",
                  {"--format", "access"});
    EXPECT_NE(Convert(Model, File("x.mdb"), {"--format", "excel"}).Status, 0);
    EXPECT_NE(Run.Program("quarnel02-convert", {Model}).Status, 0);
    EXPECT_FALSE(fs::exists(Run.File("x.mdb")));
}

TEST_F(ConvertProgram, NeverChangesWhatItReads) {
    ExpectRefused(Model, Model, Model + " is what is read, which is never changed.");
    fs::create_hard_link(Model, Run.File("same.mdb"));
    ExpectRefused(Model, File("same.mdb"), File("same.mdb") + " is what is read");
    ExpectConverted(Model, File("sheets"));
    const std::string before = ReadFile(Run.File("sheets/Tasks.csv"));
    ExpectRefused(File("sheets/Tasks.csv"), File("sheets"), File("sheets") + " is what is read");
    EXPECT_EQ(ReadFile(Run.File("sheets/Tasks.csv")), before);
}

TEST_F(ConvertProgram, NamesWhatItCannotRead) {
    ExpectRefused(File("none.mdb"), File("x.mdb"), File("none.mdb") + " does not exist.");
    ExpectRefused(File("none.xlsx"), File("x.mdb"), File("none.xlsx") + " does not exist.");
    WriteFile(Run.File("bad.mdb"), "text");
    ExpectRefused(File("bad.mdb"), File("x.mdb"), File("bad.mdb") + " is not a model database.");
    WriteFile(Run.File("bad.xlsx"), "text");
    ExpectRefused(File("bad.xlsx"), File("x.mdb"), File("bad.xlsx") + " cannot be read");
}

TEST_F(ConvertProgram, NamesTheLineOfSqlThatCannotBeRun) {
    struct Wrong {
        const char* Text;
        const char* Words;
    };
    for (const Wrong& wrong :
         {Wrong{"-- a\nINSERT INTO Tasks VALUES (1, 'a');\nINSRT x;", "line 3: near \"INSRT\""},
          Wrong{"DELETE FROM Tasks;\n\nDROP TABLE Gen;", "line 3: only INSERT, UPDATE and DELETE"},
          Wrong{"ATTACH '/tmp/x' AS x;", "line 1: only INSERT, UPDATE and DELETE"},
          Wrong{"PRAGMA writable_schema = ON;", "line 1: only INSERT, UPDATE and DELETE"},
          Wrong{"UPDATE sqlite_master SET sql = '';", "line 1: "},
          Wrong{"\nINSERT INTO Tasks VALUES ('x', 'a');", "line 2: cannot store TEXT value"},
          Wrong{"INSERT INTO Tasks WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
                "SELECT 1, NULL FROM n;",
                "line 1: the statements "}}) {
        WriteFile(Run.File("bad.sql"), wrong.Text);
        ExpectRefused(File("bad.sql"), File("x.mdb"),
                      File("bad.sql") + " cannot be run: " + wrong.Words);
    }
    WriteFile(Run.File("bad.sql"), "-- nothing\n");
    ExpectRefused(File("bad.sql"), File("x.mdb"), File("bad.sql") + " holds no SQL statement.");
    WriteFile(Run.File("bad.sql"), "UPDATE Gen SET Tasks = 70000;");
    ExpectRefused(File("bad.sql"), File("x.mdb"),
                  File("bad.sql") + " has a wrong value in row 1 of table Gen: Tasks: 70000");
    WriteFile(Run.File("bad.sql"), "DELETE FROM Gen;");
    ExpectRefused(File("bad.sql"), File("x.mdb"), File("bad.sql") + " has 0 rows");
}

TEST_F(ConvertProgram, SaysWhichCellsOfAModelNoImportTakes) {
    Run.Make("odd.mdb", std::string(kRows) +
                            "UPDATE Resources SET UpTime = NULL WHERE ResourceId = 1;"
                            "UPDATE Resources SET FixedCost = -1 WHERE ResourceId = 2;");
    const std::string cells =
        "Sheet Resources, row 2, column F: uptime is empty; it must be above 0 and at most 100. "
        "Sheet Resources, row 3, column D: fixed cost is -1";
    const ProgramResult result = Convert(File("odd.mdb"), File("x.xlsx"));
    EXPECT_EQ(result.Status, 0);
    EXPECT_TRUE(result.Err.starts_with("quarnel02-convert: " + File("x.xlsx") +
                                       " is written, but would be refused if it were read back. " +
                                       cells))
        << result.Err;
    ExpectRefused(File("x.xlsx"), File("back.mdb"),
                  File("x.xlsx") + " was not converted. " + cells);
    ExpectConverted(File("odd.mdb"), File("access.mdb"), {"--format", "access"});
    ExpectConverted(File("access.mdb"), File("x.sql"));
    ExpectConverted(File("x.sql"), File("back.mdb"));
    EXPECT_EQ(InputsOf(File("back.mdb")), InputsOf(File("odd.mdb")));
}

TEST_F(ConvertProgram, ReplacesNothingThatHoldsMoreThanAModel) {
    Run.Make("more.mdb", "CREATE TABLE Suppliers (Name TEXT);");
    ExpectRefused(Model, File("more.mdb"),
                  File("more.mdb") +
                      " holds more than a model: table Suppliers. Saving removes "
                      "it. Name another file.");
    ExpectConverted(Model, File("access.mdb"), {"--format", "access"});
    jet::TinyFile file = jet::TinyFileOf(1, test::TablesIn(Run.File("access.mdb")));
    file.AddObject("Costs", 5);
    WriteFile(Run.File("more.mdb"), file.Content());
    ExpectRefused(Model, File("more.mdb"),
                  File("more.mdb") +
                      " holds more than a model: query Costs. Such a file is never "
                      "replaced. Name another file.");
    WriteFile(Run.File("access.ldb"), "PLANNING");
    ExpectRefused(Model, File("access.mdb"), File("access.mdb") + " is open in Access");
}

TEST_F(ConvertProgram, SaysItsVersionAndItsKinds) {
    EXPECT_TRUE(
        Run.Program("quarnel02-convert", {"--version"}).Out.starts_with("quarnel02-convert "));
    const ProgramResult help = Run.Program("quarnel02-convert", {"--help"});
    EXPECT_EQ(help.Status, 0);
    for (const char* word : {".mdb", ".xlsx", ".ods", ".sql", ".csv", "--format", "Exit status"}) {
        EXPECT_NE(help.Out.find(word), std::string::npos) << word;
    }
}

}  // namespace
}  // namespace quarnel02
