#include "sheets/InputTables.h"

#include <gtest/gtest.h>

#include "model/Schema.h"
#include "sheets/SheetColumns.h"
#include "sheets/SheetModels.h"
#include "support/RunTimeErrors.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

/// Rows out of order, doubled, and with empty fields.
constexpr const char* kOddRows =
    "INSERT INTO Tasks VALUES (2, 'b'), (1, NULL), (NULL, '   ');"
    "INSERT INTO Resources (ResourceId, ShortName) VALUES (3, 'z');"
    "INSERT INTO Matrix VALUES (9, 1, NULL, 4, 0.1), (1, 2, 3.5, 4, 0.30000000000000004),"
    " (1, 1, 5, 6, 7), (1, 1, 8, 9, 10);"
    "INSERT INTO Demand VALUES (33.3, 40), (12, 60);"
    "INSERT INTO Scenarios VALUES ('b', 'Days = 5'), (NULL, 'ACF +1%');";

TEST(InputTables, AreReadInTheOrderOfTheRows) {
    const test::TestModel model(kOddRows);
    const InputTables tables = ReadInputTables(model.Open());
    ASSERT_EQ(tables.Matrix.size(), 4U);
    EXPECT_EQ(tables.Matrix[0],
              (InputRow{std::int64_t{9}, std::int64_t{1}, {}, std::int64_t{4}, 0.1}));
    EXPECT_EQ(tables.Matrix[3][MatrixColumn::ToolCost], Value(10.0));
    EXPECT_EQ(tables.Tasks[2], (InputRow{{}, std::string("   ")}));
    EXPECT_EQ(tables.Resources.size(), 1U);
    EXPECT_EQ(tables.Demand[0], (InputRow{33.3, 40.0}));
    EXPECT_EQ(tables.Gen[0][GenColumn::Product], Value(std::string("Untitled")));
    EXPECT_EQ(tables.Scenarios[0], test::ScenarioRow("b", "Days = 5"));
    EXPECT_EQ(tables.Scenarios[1], (InputRow{{}, std::string("ACF +1%")}));
}

TEST(InputTables, WrittenAreReadBackTheSame) {
    const test::TestModel model(kOddRows);
    const InputTables odd = ReadInputTables(model.Open());
    Database database = model.Open();
    WriteInputTables(database, test::SmallModel());
    EXPECT_EQ(ReadInputTables(database), test::SmallModel());
    WriteInputTables(database, odd);
    EXPECT_EQ(ReadInputTables(database), odd);
}

TEST(InputTables, EveryDifferenceCounts) {
    const InputTables tables = test::SmallModel();
    InputTables other = tables;
    std::swap(other.Matrix[0], other.Matrix[1]);
    EXPECT_NE(other, tables);
    other = tables;
    other.Tasks[0][TaskColumn::Description] = Value();
    EXPECT_NE(other, tables);
    other.Tasks[0][TaskColumn::Description] = std::string();
    EXPECT_NE(other, tables);
}

TEST(InputTables, AWriteThatFailsChangesNothing) {
    const test::TestModel model(kOddRows);
    Database database = model.Open();
    const InputTables before = ReadInputTables(database);
    InputTables bad = test::SmallModel();
    bad.Demand.push_back({std::string("many"), 1.0});
    test::ExpectRunTimeError(ErrorKind::TypeMismatch, [&] { WriteInputTables(database, bad); });
    EXPECT_EQ(ReadInputTables(database), before);
}

TEST(InputTables, ATableThatIsRightIsNotWritten) {
    const test::TestModel model(kOddRows);
    Database database = model.Open();
    RecordSet tasks = database.OpenRecordSet("SELECT * FROM Tasks;");
    InputTables tables = ReadInputTables(database);
    tables.Matrix.clear();
    WriteInputTables(database, tables);
    tasks.Edit();
    tasks.Set("Description", std::string("still there"));
    tasks.Update();
    EXPECT_EQ(model.RowsOf("SELECT Description FROM Tasks;", 1).front(), "still there");
}

TEST(SheetColumns, StandWhereTheSchemaHasThem) {
    for (const auto& columns : {GeneralColumns(), TaskColumns(), ResourceColumns(), FigureColumns(),
                                DemandColumns(), ScenarioColumns()}) {
        for (const SheetColumn& column : columns) {
            const TableSchema* table = FindTable(column.Table);
            ASSERT_NE(table, nullptr);
            EXPECT_EQ(table->Columns.at(column.Place).Name, column.Field);
        }
    }
    EXPECT_EQ(GeneralColumns().size(), FindTable("Gen")->Columns.size());
    EXPECT_EQ(ResourceColumns().size(), FindTable("Resources")->Columns.size());
}

TEST(SheetColumns, ShowTypesByTheirLabels) {
    const SheetColumn& type = ResourceColumns().back();
    EXPECT_EQ(ShownText(type, std::int64_t{2}), "PGM");
    EXPECT_EQ(ShownText(type, std::int64_t{7}), "7");
    EXPECT_EQ(ShownText(type, Value()), "");
    EXPECT_EQ(ShownText(ResourceColumns().front(), std::int64_t{2}), "2");
    EXPECT_EQ(TypeCode("a"), 3);
    EXPECT_EQ(TypeCode("Fxd"), 1);
    EXPECT_EQ(TypeCode("0"), 0);
    EXPECT_EQ(TypeCode(""), std::nullopt);
    EXPECT_EQ(TypeCode("MNLX"), std::nullopt);
    EXPECT_EQ(TypeCode("4"), std::nullopt);
}

TEST(InputTables, HaveNoScenariosWithoutTheirTable) {
    const test::TestModel model(std::string(kOddRows) + "DROP TABLE Scenarios;");
    const Database database = model.Open();
    InputTables tables = ReadInputTables(database);
    EXPECT_TRUE(tables.Scenarios.empty());
    tables.Gen[0][GenColumn::Days] = 7.0;
    WriteInputTables(database, tables);
    EXPECT_EQ(ReadInputTables(database), tables);
}

}  // namespace
}  // namespace quarnel02
