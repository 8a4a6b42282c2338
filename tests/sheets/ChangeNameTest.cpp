#include "sheets/ChangeName.h"

#include <gtest/gtest.h>

#include <functional>

#include "sheets/RecordOrder.h"
#include "sheets/SheetModels.h"

namespace quarnel02 {
namespace {

using test::SmallModel;

std::string NameOfChange(const std::function<void(InputTables&)>& change) {
    InputTables after = SmallModel();
    change(after);
    return ChangeName(SmallModel(), after);
}

TEST(ChangeName, NamesAParameterByItsCaption) {
    EXPECT_EQ(NameOfChange([](auto& t) { t.Gen[0][GenColumn::Days] = 111.0; }),
              "Change working days per year");
    EXPECT_EQ(NameOfChange([](auto& t) { t.Gen[0][GenColumn::ACF] = 0.5; }),
              "Change annual capital factor");
    EXPECT_EQ(NameOfChange([](auto& t) {
                  t.Gen[0][GenColumn::ACF] = 0.5;
                  t.Gen[0][GenColumn::Days] = 111.0;
              }),
              "Change parameters");
    EXPECT_EQ(NameOfChange([](auto& t) { t.Gen.clear(); }), "Change parameters");
}

TEST(ChangeName, CountsOfRecordsAreNoChange) {
    EXPECT_EQ(NameOfChange([](auto&) {}), "");
    EXPECT_EQ(NameOfChange([](auto& t) { t.Gen[0][GenColumn::Tasks] = std::int64_t{9}; }), "");
}

TEST(ChangeName, NamesASingleRecordByItsPlace) {
    EXPECT_EQ(NameOfChange([](auto& t) { t.Tasks[1][TaskColumn::Description] = "Other"; }),
              "Change task 2");
    EXPECT_EQ(NameOfChange([](auto& t) { t.Tasks.push_back(test::TaskRow(4, "New")); }),
              "Add task 4");
    EXPECT_EQ(NameOfChange([](auto& t) { t.Resources.erase(t.Resources.begin()); }),
              "Delete resource 1");
}

TEST(ChangeName, CountsSeveral) {
    EXPECT_EQ(NameOfChange([](auto& t) {
                  t.Tasks[0][TaskColumn::Description] = "A";
                  t.Tasks[2][TaskColumn::Description] = "C";
              }),
              "Change 2 tasks");
    EXPECT_EQ(NameOfChange([](auto& t) { t = AddRecords(t, RecordKind::Tasks, 12).Tables; }),
              "Add 12 tasks");
    EXPECT_EQ(NameOfChange([](auto& t) { t.Matrix.clear(); }), "Delete 4 matrix cells");
    EXPECT_EQ(NameOfChange([](auto& t) { t.Demand.pop_back(); }), "Delete demand row");
}

/// Deleting a task with its matrix rows changes three tables.
TEST(ChangeName, RecordsNameAChangeOfSeveralTables) {
    EXPECT_EQ(NameOfChange([](auto& t) { t = DeleteRecords(t, RecordKind::Tasks, {1}).Tables; }),
              "Delete task 2");
}

TEST(ChangeName, NamesScenarios) {
    EXPECT_EQ(
        NameOfChange([](auto& t) { t.Scenarios = {test::ScenarioRow("Wages", "LaborCost +10%")}; }),
        "Add scenario");
}

}  // namespace
}  // namespace quarnel02
