#include "shell/LoadLineModel.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "shell/ModelCheck.h"
#include "support/ModelScript.h"
#include "support/RunTimeErrors.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::ModelScript;
using test::TestModel;

/// Three tasks, two resources, entered from the last to the first.
std::string Small() {
    ModelScript model;
    model.Tasks = 3;
    model.TransportTime = 5;
    model.Resources = {{"Hand"}, {"Arm", 2, 10000, 20, 90, 1.2, 10, 0.5}};
    model.Matrix = {{2, 3, 12.5, 7, 100}, {2, 1, 30, 6, 200}, {1, 2, 40, 5, 300}};
    model.Demand = {{5000, 60}, {1000.5, 40}};
    return model.Sql() + "UPDATE Gen SET Penalty = 3, Product = 'Pump';" +
           "INSERT INTO Tasks VALUES (3, 'Close'), (1, 'Open');";
}

auto FieldsOf(const LineModel& model) {
    const Production& year = model.Parameters();
    const Resource& press = model.ResourceOf(1);
    const MatrixEntry& last = model.Entry(1, 2);
    return std::tuple(year.Days, year.ACF, year.LaborCost, year.TransportTime, year.Penalty,
                      year.Product, model.ResourceCount(), press.Number, press.ShortName,
                      press.Description, press.Type, press.FixedCost, press.VarCost, press.UpTime,
                      press.ICF, press.ToolChange, press.StatPerWrk, model.TaskCount(),
                      last.TaskTime, last.ToolNum, last.ToolCost);
}

/// A model that a solve would take.
LineModel Load(const std::string& change = "") {
    const TestModel model(Small() + change);
    RequireUsableModel(model.Open());
    return LoadLineModel(model.Open());
}

TEST(LoadLineModel, MakesOfTheRowsOfATestModelWhatItIsAsAValue) {
    ModelScript script = test::WorkedExample();
    script.Penalty = 0.5;
    script.Product = "Pump";
    script.Demand = {{33.3F, 40}, {16777215, 59.95F}};
    const LineModel value = script.Model();
    const LineModel loaded = LoadLineModel(TestModel(script.Sql()).Open());
    EXPECT_EQ(FieldsOf(loaded), FieldsOf(value));
    ASSERT_EQ(loaded.Demand().size(), 2U);
    for (std::size_t point = 0; point < 2; ++point) {
        EXPECT_EQ(loaded.Demand()[point].Volume, value.Demand()[point].Volume);
        EXPECT_EQ(loaded.Demand()[point].Probability, value.Demand()[point].Probability);
    }
}

TEST(LoadLineModel, ReadsTheParameters) {
    const Production production = Load().Parameters();
    EXPECT_EQ(production.Days, 250);
    EXPECT_EQ(production.ACF, 0.25);
    EXPECT_EQ(production.LaborCost, 20);
    EXPECT_EQ(production.TransportTime, 5);
    EXPECT_EQ(production.Penalty, 3);
    EXPECT_EQ(production.Product, "Pump");
}

TEST(LoadLineModel, ReadsResourcesByNumber) {
    const LineModel model = Load();
    ASSERT_EQ(model.ResourceCount(), 2);
    EXPECT_EQ(model.ResourceOf(1).ShortName, "Hand");
    const Resource& arm = model.ResourceOf(2);
    EXPECT_EQ(arm.Number, 2);
    EXPECT_EQ(arm.ShortName, "Arm");
    EXPECT_EQ(arm.Description, "Described");
    EXPECT_EQ(arm.Type, 2);
    EXPECT_EQ(arm.FixedCost, 10000);
    EXPECT_EQ(arm.VarCost, 20);
    EXPECT_EQ(arm.UpTime, 90);
    EXPECT_EQ(arm.ICF, 1.2);
    EXPECT_EQ(arm.ToolChange, 10);
    EXPECT_EQ(arm.StatPerWrk, 0.5);
}

TEST(LoadLineModel, NamesTheTasksThatHaveAText) {
    const LineModel model = Load("INSERT INTO Tasks VALUES (1, 'Again'), (4, 'Beyond');");
    ASSERT_EQ(model.TaskCount(), 3);
    EXPECT_EQ(model.Tasks()[0].Description, "Open");
    EXPECT_EQ(model.Tasks()[1].Description, "");
    EXPECT_EQ(model.Tasks()[1].Number, 2);
    EXPECT_EQ(model.Tasks()[2].Description, "Close");
}

TEST(LoadLineModel, ReadsTheMatrix) {
    const LineModel model = Load();
    EXPECT_EQ(model.Entry(2, 3).TaskTime, 12.5);
    EXPECT_EQ(model.Entry(2, 3).ToolNum, 7);
    EXPECT_EQ(model.Entry(2, 3).ToolCost, 100);
    EXPECT_EQ(model.Entry(2, 1).TaskTime, 30);
    EXPECT_EQ(model.Entry(1, 2).TaskTime, 40);
    for (const auto& [resource, task] : {std::pair(1, 1), std::pair(1, 3), std::pair(2, 2)}) {
        EXPECT_FALSE(model.CanDo(resource, task)) << resource << ", " << task;
    }
}

TEST(LoadLineModel, TakesARowWithoutATimeForCannot) {
    for (const char* time : {"0", "NULL"}) {
        const LineModel model = Load(
            "UPDATE Matrix SET ToolNum = NULL, ToolCost = NULL, TaskTime = " + std::string(time) +
            " WHERE TaskId = 3;");
        EXPECT_FALSE(model.CanDo(2, 3)) << time;
        EXPECT_TRUE(model.CanDo(2, 1)) << time;
    }
}

TEST(LoadLineModel, LeavesOutWhatIsBeyondTheCounts) {
    const LineModel model = Load("UPDATE Gen SET Resources = 1;");
    EXPECT_EQ(model.ResourceCount(), 1);
    EXPECT_TRUE(model.CanDo(1, 2));
}

TEST(LoadLineModel, TakesACountedResourceWithoutARowThatNothingAsksFor) {
    const LineModel model = Load("UPDATE Gen SET Resources = 4;");
    ASSERT_EQ(model.ResourceCount(), 4);
    EXPECT_EQ(model.ResourceOf(4).Number, 4);
    EXPECT_FALSE(model.CanDo(4, 1));
}

TEST(LoadLineModel, TakesAnEmptyTypeForNone) {
    EXPECT_EQ(Load("UPDATE Resources SET Type = NULL;").ResourceOf(2).Type, -1);
}

TEST(LoadLineModel, TakesDemandPointsByVolumeAndLeavesOutOtherRows) {
    const LineModel model = Load("INSERT INTO Demand VALUES (NULL, 5);");
    ASSERT_EQ(model.Demand().size(), 2U);
    EXPECT_EQ(model.Demand()[0].Volume, 1000.5F);
    EXPECT_EQ(model.Demand()[0].Probability, 40);
    EXPECT_EQ(model.Demand()[1].Volume, 5000);
}

TEST(LoadLineModel, RefusesFiguresOfAMissingResource) {
    const TestModel model(Small() + "DELETE FROM Resources WHERE ResourceId = 2;");
    const auto message =
        ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { LoadLineModel(model.Open()); });
    EXPECT_NE(message.find("resource 2,"), std::string::npos) << message;
}

TEST(LoadLineModel, NeedsTheRowOfGen) {
    const TestModel model(Small() + "DELETE FROM Gen;");
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { LoadLineModel(model.Open()); });
}

}  // namespace
}  // namespace quarnel02
