// Workbooks at their limits, and one step beyond.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "basic/Files.h"
#include "basic/Limits.h"
#include "sheets/ModelSheets.h"
#include "sheets/SheetModels.h"
#include "sheets/WorkbookFile.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;

class WorkbookLimits : public testing::Test {
  protected:
    TemporaryDirectory Folder;
    std::filesystem::path File = Folder.Path() / "line.xlsx";
};

TEST_F(WorkbookLimits, OfATextInAWorkbook) {
    InputTables tables = test::SmallModel();
    tables.Tasks[0][TaskColumn::Description] = std::string(limits::kCellText, 'x');
    WriteXlsx(File, SheetsOf(tables));
    EXPECT_EQ(TablesOf(ReadWorkbook(File)).Tables, tables);
    tables.Tasks[0][TaskColumn::Description] = std::string(limits::kCellText + 1, 'x');
    ExpectRunTimeError(ErrorKind::Overflow, [&] { WriteXlsx(File, SheetsOf(tables)); });
}

TEST_F(WorkbookLimits, OfCellsInCsvFiles) {
    const auto file = Folder.Path() / "Tasks.csv";
    WriteFile(file, std::string(limits::kCells, ','));
    EXPECT_NO_THROW(static_cast<void>(ReadWorkbook(file)));
    WriteFile(file, std::string(limits::kCells + 1, ','));
    ExpectRunTimeError(ErrorKind::NotAModel, [&] { static_cast<void>(ReadWorkbook(file)); });
}

TEST_F(WorkbookLimits, OfBytesInCsvFiles) {
    const auto file = Folder.Path() / "Tasks.csv";
    WriteFile(file, std::string(limits::kSheetFile, 'x'));
    EXPECT_NO_THROW(static_cast<void>(ReadWorkbook(file)));
    WriteFile(Folder.Path() / "Demand.csv", "x");
    ExpectRunTimeError(ErrorKind::NotAModel, [&] { static_cast<void>(ReadWorkbook(file)); });
}

TEST_F(WorkbookLimits, OfPairsOfATaskAndAResource) {
    constexpr int tasks = 200;
    constexpr int resources = limits::kPairs / tasks;
    EXPECT_NO_THROW(static_cast<void>(SheetsOf(test::EmptyMatrixModel(tasks, resources))));
    ExpectRunTimeError(ErrorKind::Overflow, [&] {
        static_cast<void>(SheetsOf(test::EmptyMatrixModel(tasks, resources + 1)));
    });
}

}  // namespace
}  // namespace quarnel02
