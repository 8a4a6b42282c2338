#include "commands/SheetFiles.h"

#include <gmock/gmock.h>

#include <string>

#include "sheets/ModelSheets.h"
#include "sheets/WorkbookFile.h"
#include "support/CommandDesk.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr const char* kModel =
    "UPDATE Gen SET Tasks = 2, Resources = 1, Product = 'Pump';"
    "INSERT INTO Tasks VALUES (1, 'Alpha'), (2, 'Beta');"
    "INSERT INTO Resources VALUES (1, 'Ben', 'Bench', 0, 0, 0, 100, 1, 1, 1);"
    "INSERT INTO Matrix VALUES (1, 1, 11.5, 3, 500), (1, 2, 7, 0, 0);"
    "INSERT INTO Demand VALUES (5000, 100);";

/// A working copy with a model, and a directory for workbooks.
class SheetFilesTest : public ::testing::Test {
  protected:
    SheetFilesTest() { Desk.Commands.History().Restart(); }

    [[nodiscard]] InputTables Now() const { return ReadInputTables(Desk.Application.Open()); }
    [[nodiscard]] std::filesystem::path File(const char* name) const { return Desk.UserFile(name); }
    void Import(const std::filesystem::path& file) {
        ImportWorkbook(Desk.Form, Desk.Commands.Current(), Desk.Commands.History(), file);
    }
    /// Writes the model as it is but for one task's text.
    void WriteOther(const char* name, const char* task = "Gamma") {
        InputTables tables = Now();
        tables.Tasks[1][TaskColumn::Description] = std::string(task);
        WriteXlsx(File(name), SheetsOf(tables));
    }

    test::CommandDesk Desk{kModel};
};

TEST_F(SheetFilesTest, WhatIsExportedImportsToTheSameModel) {
    const InputTables before = Now();
    ExportXlsx(Desk.Form, File("pump.xlsx"));
    EXPECT_TRUE(ExportCsv(Desk.Form, File("sheets")));
    Desk.Commands.New();
    ASSERT_NE(Now(), before);
    const InputTables empty = Now();
    for (const char* file : {"pump.xlsx", "sheets"}) {
        Desk.Form.YesNoAnswers = {true};
        Import(File(file));
        EXPECT_EQ(Now(), before) << file;
        Desk.Commands.History().Undo();
        EXPECT_EQ(Now(), empty) << file;
    }
}

TEST_F(SheetFilesTest, AnImportShowsWhatItWouldChangeAndDoesNothingUntilTheUserAgrees) {
    WriteOther("pump.xlsx");
    const InputTables before = Now();
    Desk.Form.YesNoAnswers = {false};
    Import(File("pump.xlsx"));
    ASSERT_EQ(Desk.Form.Events.size(), 1U);
    EXPECT_THAT(Desk.Form.Events[0],
                AllOf(HasSubstr("Import pump.xlsx?"), HasSubstr("2 tasks."),
                      HasSubstr("Task 2, Description: \"Beta\" becomes \"Gamma\".")));
    EXPECT_EQ(Now(), before);
    EXPECT_FALSE(Desk.Commands.Current().Changed);
    EXPECT_FALSE(Desk.Commands.History().CanUndo());
}

TEST_F(SheetFilesTest, AnImportIsOneStepAndShown) {
    WriteOther("pump.xlsx");
    Desk.Form.YesNoAnswers = {true};
    Desk.Form.SetText(TextBox::txtProduct, "?");
    Import(File("pump.xlsx"));
    EXPECT_EQ(std::get<std::string>(Now().Tasks[1][TaskColumn::Description]), "Gamma");
    EXPECT_EQ(Desk.Commands.History().UndoText(), "Undo Import pump.xlsx");
    EXPECT_TRUE(Desk.Commands.Current().Changed);
    EXPECT_EQ(Desk.Form.Text(TextBox::txtProduct), "Pump");
}

TEST_F(SheetFilesTest, CellsThatDoNotFitAreNamedAndNothingIsImported) {
    InputTables tables = Now();
    tables.Resources[0][ResourceColumn::UpTime] = 0.0;
    tables.Tasks[0][TaskColumn::Description] = std::string("Other");
    WriteXlsx(File("pump.xlsx"), SheetsOf(tables));
    const InputTables before = Now();
    Import(File("pump.xlsx"));
    EXPECT_THAT(Desk.Form.Events,
                ElementsAre(AllOf(StartsWith("message[critical]: pump.xlsx was not imported."),
                                  HasSubstr("Sheet Resources, row 2"), HasSubstr("uptime"))));
    EXPECT_EQ(Now(), before);
}

TEST_F(SheetFilesTest, TheSameModelIsNotImported) {
    ExportXlsx(Desk.Form, File("pump.xlsx"));
    Import(File("pump.xlsx"));
    EXPECT_THAT(Desk.Form.Events, ElementsAre(HasSubstr("nothing to import")));
    EXPECT_FALSE(Desk.Commands.Current().Changed);
}

TEST_F(SheetFilesTest, ADamagedWorkbookLeavesTheModel) {
    WriteFile(File("pump.xlsx"), "PK no workbook");
    const InputTables before = Now();
    test::ExpectRunTimeError(ErrorKind::NotAModel, [&] { Import(File("pump.xlsx")); });
    EXPECT_EQ(Now(), before);
}

TEST_F(SheetFilesTest, CsvFilesAreReplacedOnlyAfterAsking) {
    EXPECT_TRUE(ExportCsv(Desk.Form, File("sheets")));
    EXPECT_THAT(Desk.Form.Events, IsEmpty());
    WriteFile(File("sheets") / "Tasks.csv", "mine");
    Desk.Form.YesNoAnswers = {false, true};
    EXPECT_FALSE(ExportCsv(Desk.Form, File("sheets")));
    EXPECT_THAT(Desk.Form.Events, ElementsAre(HasSubstr("Tasks.csv")));
    EXPECT_EQ(ReadFile(File("sheets") / "Tasks.csv"), "mine");
    EXPECT_TRUE(ExportCsv(Desk.Form, File("sheets")));
    EXPECT_NE(ReadFile(File("sheets") / "Tasks.csv"), "mine");
}

}  // namespace
}  // namespace quarnel02
