#include "sheets/WorkbookFile.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <random>

#include "basic/Files.h"
#include "sheets/AnyModel.h"
#include "sheets/ModelSheets.h"
#include "sheets/SheetModels.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

fs::path Fixture(const std::string& name) {
    return fs::path(QUARNEL02_SOURCES) / ".." / "tests" / "sheets" / "data" / name;
}

InputTables TablesIn(const fs::path& path) {
    const ModelOfSheets model = TablesOf(ReadWorkbook(path));
    EXPECT_TRUE(model.Refused.IsEmpty()) << model.Refused.Message("");
    return model.Tables;
}

/// What the other programs were given to save again.
InputTables FixtureModel() {
    InputTables tables = test::SmallModel();
    tables.Tasks[1][TaskColumn::Description] = std::string("  Fit  seal \u00E4, \"tight\"");
    tables.Tasks[2][TaskColumn::Description] = std::string();
    tables.Resources[1][ResourceColumn::Description] = Value();
    tables.Resources[1][ResourceColumn::Type] = std::int64_t{3};
    tables.Demand[1][DemandColumn::Volume] = 12345678.0;
    tables.Gen[0][GenColumn::ACF] = 0.28;
    return tables;
}

RC_GTEST_PROP(WorkbookFile, AnyModelComesBackFromAnXlsxFile, ()) {
    const TemporaryDirectory directory;
    const InputTables tables = *test::AnyModel();
    WriteXlsx(directory.Path() / "model.xlsx", SheetsOf(tables));
    const ModelOfSheets model = TablesOf(ReadWorkbook(directory.Path() / "model.xlsx"));
    RC_ASSERT(model.Refused.IsEmpty());
    RC_ASSERT(model.Tables == tables);
}

RC_GTEST_PROP(WorkbookFile, AnyModelComesBackFromCsvFiles, ()) {
    const TemporaryDirectory directory;
    const InputTables tables = *test::AnyModel();
    WriteCsvDirectory(directory.Path() / "new" / "model", SheetsOf(tables));
    const ModelOfSheets model = TablesOf(ReadWorkbook(directory.Path() / "new" / "model"));
    RC_ASSERT(model.Refused.IsEmpty());
    RC_ASSERT(model.Tables == tables);
}

TEST(WorkbookFile, FilesOfOtherProgramsAreRead) {
    EXPECT_EQ(TablesIn(Fixture("libreoffice.ods")), FixtureModel());
    EXPECT_EQ(TablesIn(Fixture("libreoffice.xlsx")), FixtureModel());
}

/// Its cells hold their texts themselves, its parts are named from the root, its formulas have no
/// results, and the uptime of the first resource is 0.57 shown as 57.0%.
TEST(WorkbookFile, FilesOfLibrariesAreRead) {
    InputTables expected = FixtureModel();
    expected.Resources[0][ResourceColumn::UpTime] = 57.0;
    EXPECT_EQ(TablesIn(Fixture("openpyxl.xlsx")), expected);
}

TEST(WorkbookFile, ACsvFileStandsForItsDirectory) {
    const TemporaryDirectory directory;
    WriteCsvDirectory(directory.Path(), SheetsOf(test::SmallModel()));
    EXPECT_EQ(TablesIn(directory.Path() / "Tasks.CSV"), test::SmallModel());
    EXPECT_EQ(ReadFile(directory.Path() / "Demand.csv"),
              "Volume (units/year),Probability (%)\n33.3,40\n1000,60\n");
}

TEST(WorkbookFile, NoScenariosOfAnEarlierModelStayAmongCsvFiles) {
    const TemporaryDirectory directory;
    InputTables tables = test::SmallModel();
    tables.Scenarios = {test::ScenarioRow("Wages", "LaborCost +10%")};
    WriteCsvDirectory(directory.Path(), SheetsOf(tables));
    WriteFile(directory.Path() / "Costs.csv", "of the user");
    EXPECT_EQ(TablesIn(directory.Path()), tables);
    WriteCsvDirectory(directory.Path(), SheetsOf(test::SmallModel()));
    EXPECT_EQ(TablesIn(directory.Path()), test::SmallModel());
    EXPECT_TRUE(fs::exists(directory.Path() / "Costs.csv"));
}

TEST(WorkbookFile, CsvFilesMayUseSemicolonsAndDecimalCommas) {
    const TemporaryDirectory directory;
    WriteCsvDirectory(directory.Path(), SheetsOf(test::SmallModel()));
    WriteFile(directory.Path() / "Demand.csv",
              "\xEF\xBB\xBFVolume (units/year);Probability (%)\r\n33,3;40\r\n1000;60\r\n");
    EXPECT_EQ(TablesIn(directory.Path()), test::SmallModel());
}

TEST(WorkbookFile, AnythingElseIsRefusedByName) {
    const TemporaryDirectory directory;
    const fs::path file = directory.Path() / "old.xls";
    const auto message = [&] {
        return test::ExpectRunTimeError(ErrorKind::NotAModel,
                                        [&] { static_cast<void>(ReadWorkbook(file)); });
    };
    WriteFile(file, "\xD0\xCF\x11\xE0 no archive at all");
    EXPECT_EQ(message(), PathText(file) +
                             " cannot be read as a workbook: it is damaged, or of another kind. "
                             "Save it anew as .xlsx or .ods in your spreadsheet program.");
    WriteFile(file, "PK\x05\x06" + std::string(18, '\0'));
    EXPECT_TRUE(message().find("it is neither an .xlsx nor an .ods file.") != std::string::npos);
    fs::resize_file(file, 64'000'001);
    EXPECT_TRUE(message().find("is too large") != std::string::npos);
    test::ExpectRunTimeError(ErrorKind::FileNotFound, [&] {
        static_cast<void>(ReadWorkbook(directory.Path() / "none.xlsx"));
    });
    const std::string empty = test::ExpectRunTimeError(
        ErrorKind::NotAModel, [&] { static_cast<void>(ReadWorkbook(directory.Path())); });
    EXPECT_TRUE(empty.find("General.csv") != std::string::npos) << empty;
}

/// Cut off anywhere, or with any byte changed, a file gives sheets or one message.
void ExpectSheetsOrAMessage(const std::string& fixture) {
    const TemporaryDirectory directory;
    const fs::path file = directory.Path() / fixture;
    const std::string whole = ReadFile(Fixture(fixture));
    std::mt19937 random(1);  // the same cases each time
    int refused = 0;
    for (int trial = 0; trial < 200; ++trial) {
        std::string damaged = whole;
        if (trial % 4 == 0) {
            damaged.resize(random() % whole.size());
        }
        for (int change = 0; change < trial % 4 * 3 && !damaged.empty(); ++change) {
            damaged[random() % damaged.size()] = static_cast<char>(random());
        }
        WriteFile(file, damaged);
        try {
            static_cast<void>(ReadWorkbook(file));
        } catch (const RunTimeError& error) {
            ++refused;
            EXPECT_EQ(error.Kind(), ErrorKind::NotAModel);
            EXPECT_TRUE(std::string(error.what()).starts_with(PathText(file))) << error.what();
        }
    }
    EXPECT_GT(refused, 100);
}

TEST(WorkbookFile, ADamagedFileEndsInOneMessage) {
    ExpectSheetsOrAMessage("libreoffice.ods");
    ExpectSheetsOrAMessage("libreoffice.xlsx");
    ExpectSheetsOrAMessage("openpyxl.xlsx");
}

/// Well-formed archives whose content cannot be: each is refused in a moment.
TEST(WorkbookFile, AHostileFileEndsInOneMessage) {
    const std::pair<const char*, const char*> files[] = {
        {"million-rows.ods", "it is larger than that of any model"},
        {"endless-row.ods", "it has cells beyond the end of a sheet"},
        {"no-number.ods", "it has \"many\" where a number belongs"},
        {"wide-rows.xlsx", "it is larger than that of any model"},
        {"no-reference.xlsx", "it has a cell at \"a-1\""},
        {"no-text.xlsx", "it lacks texts of its cells"},
        {"no-sheet.xlsx", "it lacks a sheet that it lists"},
        {"no-part.xlsx", "it lacks its part xl/worksheets/none.xml"},
        {"no-xml.xlsx", "it is damaged in its part xl/workbook.xml"}};
    for (const auto& [name, reason] : files) {
        const std::string message = test::ExpectRunTimeError(ErrorKind::NotAModel, [&] {
            static_cast<void>(ReadWorkbook(Fixture("hostile") / name));
        });
        EXPECT_NE(message.find(reason), std::string::npos) << message;
    }
}

TEST(WorkbookFile, WhatAnXlsxFileCannotHoldIsNotWritten) {
    const TemporaryDirectory directory;
    const fs::path file = directory.Path() / "model.xlsx";
    WriteFile(file, "as it was");
    InputTables tables = test::SmallModel();
    tables.Tasks[1][TaskColumn::Description] = std::string(40000, 'x');
    const std::string message =
        test::ExpectRunTimeError(ErrorKind::Overflow, [&] { WriteXlsx(file, SheetsOf(tables)); });
    EXPECT_TRUE(message.starts_with("Sheet Tasks, row 3, column B cannot be written")) << message;
    EXPECT_EQ(ReadFile(file), "as it was");
    test::ExpectRunTimeError(ErrorKind::FileNotFound, [&] {
        WriteXlsx(directory.Path() / "none" / "m.xlsx", SheetsOf(test::SmallModel()));
    });
}

}  // namespace
}  // namespace quarnel02
