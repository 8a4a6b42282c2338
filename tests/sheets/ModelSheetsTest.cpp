#include "sheets/ModelSheets.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "sheets/AnyModel.h"
#include "sheets/ImportPreview.h"
#include "sheets/SheetModels.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::SmallModel;

Value Text(const char* text) {
    return std::string(text);
}

const Sheet& SheetIn(const Workbook& workbook, const char* name) {
    const Sheet* sheet = FindSheet(workbook, name);
    return sheet == nullptr ? throw std::logic_error(name) : *sheet;
}

Sheet& SheetIn(Workbook& workbook, const char* name) {
    return const_cast<Sheet&>(SheetIn(std::as_const(workbook), name));
}

TEST(ModelSheets, HaveTheCaptionsOfTheWindows) {
    const Workbook workbook = SheetsOf(SmallModel());
    ASSERT_EQ(workbook.size(), 5U);
    EXPECT_EQ(workbook[0].Name, "General");
    EXPECT_EQ(workbook[0].Cells[3], (InputRow{Text("Working days per year"), 250.0}));
    EXPECT_EQ(workbook[1].Cells[0], (InputRow{Text("Number"), Text("Description")}));
    EXPECT_EQ(workbook[2].Cells[1], (InputRow{std::int64_t{1}, Text("   "), Text("R1"), 0.0, 0.0,
                                              100.0, 1.0, 1.0, 1.0, Text("MNL")}));
    EXPECT_EQ(workbook[4].Cells[1], (InputRow{33.3, 40.0}));
}

TEST(ModelSheets, HaveAGridForEachFigure) {
    const Sheet matrix = SheetsOf(SmallModel())[3];
    EXPECT_EQ(matrix.Cells[0], (InputRow{Text("Task time (s)"), Text("Resource"), std::int64_t{1},
                                         std::int64_t{2}}));
    EXPECT_EQ(matrix.Cells[1], (InputRow{Text("Task"), Value(), Text("R1"), Text("R2")}));
    EXPECT_EQ(matrix.Cells[2], (InputRow{std::int64_t{1}, Text("T1"), 12.5, Value()}));
    EXPECT_EQ(matrix.Cells[6][0], Text("Tool number"));
    EXPECT_EQ(matrix.Cells[12][0], Text("Tool cost ($)"));
    EXPECT_EQ(matrix.Cells[16], (InputRow{std::int64_t{3}, Text("T3"), Value(), 26000.0}));
    EXPECT_EQ(matrix.Cells.size(), 18U) << "no order: the pairs stand by resource and task";
}

TEST(ModelSheets, CountsFollowTheRowsUnlessTheyDiffer) {
    InputTables tables = SmallModel();
    EXPECT_EQ(SheetsOf(tables)[0].Formulas.at({2, 1}).Text, "=COUNT(Tasks!A2:A32768)");
    EXPECT_EQ(SheetsOf(tables)[0].Formulas.at({2, 1}).Result, 3);
    tables.Gen[0][GenColumn::Tasks] = std::int64_t{12};
    EXPECT_EQ(SheetsOf(tables)[0].Cells[2][1], Value(std::int64_t{12}));
    EXPECT_EQ(TablesOf(SheetsOf(tables)).Tables, tables);
    Workbook longer = SheetsOf(SmallModel());
    SheetIn(longer, "Tasks").Cells.push_back({std::int64_t{4}, Text("new")});
    EXPECT_EQ(TablesOf(longer).Tables.Gen[0][GenColumn::Tasks], Value(std::int64_t{4}));
}

TEST(ModelSheets, KeepTheOrderOfEntryAndRowsThatNoGridShows) {
    InputTables tables = SmallModel();
    std::swap(tables.Matrix[0], tables.Matrix[3]);
    tables.Matrix.insert(tables.Matrix.begin() + 1,
                         {test::PairRow(1, 1, 99, 9, 9),
                          {std::int64_t{2}, std::int64_t{1}, {}, {}, {}},
                          {{}, std::int64_t{1}, 5.0, std::int64_t{1}, 7.0},
                          test::PairRow(7, 8, 5, 5, 5)});
    const ModelOfSheets model = TablesOf(SheetsOf(tables));
    EXPECT_TRUE(model.Refused.IsEmpty()) << model.Refused.Message("");
    EXPECT_EQ(model.Tables, tables);
}

RC_GTEST_PROP(ModelSheets, AnyModelComesBack, ()) {
    const InputTables tables = *test::AnyModel();
    const ModelOfSheets model = TablesOf(SheetsOf(tables));
    RC_ASSERT(model.Refused.IsEmpty());
    RC_ASSERT(model.Tables == tables);
}

TEST(ModelSheets, HaveAnEnd) {
    test::ExpectRunTimeError(ErrorKind::Overflow, [] {
        static_cast<void>(SheetsOf(test::EmptyMatrixModel(2001, 100)));
    });
    const InputTables largest = test::EmptyMatrixModel(255, 100);
    EXPECT_EQ(TablesOf(SheetsOf(largest)).Tables, largest);
}

TEST(ModelSheets, ColumnsAndLinesMayStandInAnyOrder) {
    Workbook workbook = SheetsOf(SmallModel());
    std::swap(workbook[0], workbook[3]);
    for (InputRow& row : SheetIn(workbook, "Resources").Cells) {
        row.insert(row.begin(), Text("a remark"));
        std::swap(row[2], row[5]);
    }
    auto& demand = SheetIn(workbook, "Demand");
    demand.Name = "DEMAND";
    demand.Cells[0][0] = Text(" volume (Units/Year) ");
    demand.Cells.insert(demand.Cells.begin() + 1, InputRow());
    EXPECT_EQ(TablesOf(workbook).Tables, SmallModel());
}

TEST(ModelSheets, NamesWhatIsMissing) {
    Workbook workbook = SheetsOf(SmallModel());
    SheetIn(workbook, "Resources").Cells[0][5] = Text("Uptime");
    EXPECT_EQ(
        test::ExpectRunTimeError(ErrorKind::NotAModel,
                                 [&] { static_cast<void>(TablesOf(workbook)); }),
        "Sheet Resources has no column \"Uptime (%)\" in its first row. Export a model to see "
        "what a workbook has to hold.");
    workbook.erase(workbook.begin() + 1);
    EXPECT_EQ(
        test::ExpectRunTimeError(ErrorKind::NotAModel,
                                 [&] { static_cast<void>(TablesOf(workbook)); }),
        "The workbook has no sheet Tasks. Export a model to see what a workbook has to hold.");
    workbook = SheetsOf(SmallModel());
    SheetIn(workbook, "Matrix").Cells[6][0] = Text("Tool");
    EXPECT_EQ(test::ExpectRunTimeError(ErrorKind::NotAModel,
                                       [&] { static_cast<void>(TablesOf(workbook)); }),
              "Sheet Matrix has no grid \"Tool number\" in its first column. Export a model to see "
              "how it is laid out.");
}

TEST(ModelSheets, NameTheCellsThatDoNotFit) {
    Workbook workbook = SheetsOf(SmallModel());
    SheetIn(workbook, "Resources").Cells[2][5] = 0.0;
    SheetIn(workbook, "Tasks").Cells[1][0] = Value();
    SheetIn(workbook, "General").Cells[3][1] = Text("many");
    SheetIn(workbook, "Matrix").Cells[2][2] = -1.0;
    SheetIn(workbook, "Matrix").Cells[9].push_back(4.0);
    const Misfits refused = TablesOf(workbook).Refused;
    EXPECT_EQ(
        refused.Message("Not imported.", "\n"),
        "Not imported.\n"
        "Sheet Tasks, row 2, column A: number is empty; it must be a whole number from 1 to "
        "32,767.\n"
        "Sheet Resources, row 3, column F: uptime is 0 %; it must be above 0 and at most 100.\n"
        "Sheet Matrix, row 3, column C: task time is -1 s; it must be at least 0.\n"
        "Sheet Matrix, row 10, column E: the grid has no task or no resource number there.\n"
        "Sheet General, row 4, column B: working days per year: \"many\" is not a number. Enter "
        "digits, for example 12,500 or 0.25.");
}

TEST(ModelSheets, NothingInAGridIsPassedOver) {
    Workbook workbook = SheetsOf(SmallModel());
    Sheet& matrix = SheetIn(workbook, "Matrix");
    matrix.Cells.insert(matrix.Cells.begin() + 3, InputRow());
    EXPECT_EQ(TablesOf(workbook).Tables, SmallModel());
    matrix.Cells[4][0] = Text("two");
    EXPECT_EQ(TablesOf(workbook).Refused.First()[0].Reason,
              "Sheet Matrix, row 5, column A: task: \"two\" is not a number. Enter digits, for "
              "example 12,500 or 0.25.");
    matrix.Cells[4][0] = Text("1");
    EXPECT_EQ(TablesOf(workbook).Refused.First()[0].Reason,
              "Sheet Matrix, row 5, column C: the grid has this task and resource twice.");
}

TEST(ModelSheets, ATimeAloneMakesAPair) {
    Workbook workbook = SheetsOf(SmallModel());
    SheetIn(workbook, "Matrix").Cells[4][2] = 8.0;
    EXPECT_EQ(TablesOf(workbook).Tables.Matrix[2], test::PairRow(3, 1, 8, 0, 0));
}

TEST(ModelSheets, WhatStandsInTheModelAlreadyFits) {
    InputTables tables = SmallModel();
    tables.Resources[1][ResourceColumn::UpTime] = 0.0;
    tables.Resources[1][ResourceColumn::Type] = std::int64_t{7};
    tables.Resources[0][ResourceColumn::ICF] = Value();
    tables.Matrix[1][MatrixColumn::TaskTime] = -3.0;
    tables.Gen[0][GenColumn::Days] = 400.0;
    tables.Demand[0][DemandColumn::Prob] = Value();
    EXPECT_EQ(TablesOf(SheetsOf(tables)).Refused.Count(), 6U);
    const ModelOfSheets model = TablesOf(SheetsOf(tables), tables);
    EXPECT_TRUE(model.Refused.IsEmpty()) << model.Refused.Message("");
    EXPECT_EQ(model.Tables, tables);
}

TEST(ImportPreview, CountsAndNamesTheFirstDifferences) {
    InputTables after = SmallModel();
    after.Gen[0][GenColumn::Product] = Text("Pump");
    after.Tasks[1][TaskColumn::Description] = Value();
    after.Tasks.push_back(test::TaskRow(4, "T4"));
    after.Matrix.erase(after.Matrix.begin());
    after.Matrix[0][MatrixColumn::TaskTime] = 8.5;
    after.Matrix.push_back(test::PairRow(4, 1, 3, 2, 1));
    after.Demand.pop_back();
    const ImportPreview preview = PreviewOf(SmallModel(), after);
    EXPECT_EQ(preview.Differences, 7U);
    EXPECT_EQ(preview.Text(),
              "3 tasks become 4.\n2 resources.\n4 matrix cells.\n2 demand rows become 1.\n\n"
              "Product: \"Untitled\" becomes \"Pump\".\n"
              "Task 2, Description: \"T2\" becomes nothing.\n"
              "Task 4 is new: \"T4\".\n"
              "Task 1, resource 1 is removed: 12.5 | 3 | 400.\n"
              "Task 2, resource 1: 0 | 0 | 0 becomes 8.5 | 0 | 0.\n"
              "Task 4, resource 1 is new: 3 | 2 | 1.\n"
              "Demand row 2 is removed: 1000.\n");
}

TEST(ImportPreview, KnowsWhenNothingChangesAndWhenOnlyTheOrderDoes) {
    EXPECT_EQ(PreviewOf(SmallModel(), SmallModel()).Differences, 0U);
    InputTables after = SmallModel();
    std::swap(after.Matrix[0], after.Matrix[1]);
    EXPECT_EQ(PreviewOf(SmallModel(), after).First,
              std::vector<std::string>{
                  "The rows of the matrix stand in another order, or some of them twice."});
    const ImportPreview emptied = PreviewOf(test::EmptyMatrixModel(40, 2), InputTables());
    EXPECT_EQ(emptied.First.size(), ImportPreview::kShown);
    EXPECT_TRUE(emptied.Text().ends_with("And 32 more differences.\n"));
}

TEST(ModelSheets, HaveASheetOfScenariosWhereThereAreAny) {
    InputTables tables = SmallModel();
    EXPECT_EQ(FindSheet(SheetsOf(tables), "Scenarios"), nullptr);
    tables.Scenarios = {test::ScenarioRow("Wages", "LaborCost +10%")};
    const Workbook workbook = SheetsOf(tables);
    EXPECT_EQ(
        SheetIn(workbook, "Scenarios").Cells,
        (TableRows{{Text("Name"), Text("Differences")}, {Text("Wages"), Text("LaborCost +10%")}}));
    EXPECT_EQ(TablesOf(workbook).Tables.Scenarios, tables.Scenarios);
}

TEST(ModelSheets, WithoutScenariosLeaveThoseOfTheModel) {
    InputTables standing = SmallModel();
    standing.Scenarios = {test::ScenarioRow("Wages", "LaborCost +10%")};
    EXPECT_EQ(TablesOf(SheetsOf(SmallModel()), standing).Tables.Scenarios, standing.Scenarios);
}

TEST(ImportPreview, NamesScenarios) {
    InputTables after = SmallModel();
    after.Scenarios = {test::ScenarioRow("Wages", "LaborCost +10%")};
    EXPECT_NE(PreviewOf(SmallModel(), after).Text().find("Scenario 1 is new: \"Wages\"."),
              std::string::npos);
}

}  // namespace
}  // namespace quarnel02
