// A procedure that fails half-way leaves the tables as they were. The store is made to fail by
// triggers.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fixed/CostPathways.h"
#include "fixed/CreateLinks.h"
#include "fixed/FindBestPath.h"
#include "fixed/GeneratePathways.h"
#include "shell/LoadLineModel.h"
#include "support/LoadedModel.h"
#include "support/NetworkScript.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::CostedNetwork;
using test::ExpectRunTimeError;
using test::LoadedModel;
using test::ScriptedForm;
using test::TestModel;

using Lines = std::vector<std::string>;

/// Makes a write fail, "INSERT ON Arcs" or "UPDATE ON Pathways", when `condition` holds.
std::string FailOn(const std::string& write, const std::string& condition) {
    return "CREATE TRIGGER Stop BEFORE " + write + " WHEN " + condition +
           " BEGIN SELECT RAISE(ABORT, 'stopped'); END;\n";
}

TEST(Rollback, UndoesTheRebuildOfArcsWithoutAWord) {
    const TestModel model("INSERT INTO Arcs VALUES (7, 1, 2, 3, 4, 5, 6);" +
                          FailOn("INSERT ON Arcs", "NEW.ArcId = 2"));
    ScriptedForm form(model.Directory());
    form.SetText(TextBox::txtTasks, "3");
    EXPECT_NO_THROW(CreateLinks(form.OpenWorkingCopy(), form, form.picArc));
    EXPECT_EQ(model.RowsOf(test::kAllArcs, 7), Lines{"7|1|2|3|4|5|6"});
    EXPECT_TRUE(form.Events.empty());
}

TEST(Rollback, UndoesTheGenerationOfPathways) {
    const TestModel model(test::WorkedExample().Sql() +
                          "INSERT INTO Arcs (ArcId) VALUES (0), (1), (2);"
                          "INSERT INTO Pathways (PathId, ArcId) VALUES (9, 8);" +
                          FailOn("INSERT ON Pathways", "NEW.PathId = 3"));
    ScriptedForm form(model.Directory());
    form.SetText(TextBox::txtTasks, "2");
    const auto message = ExpectRunTimeError(ErrorKind::DatabaseFailure, [&] {
        CreateLinks(form.OpenWorkingCopy(), form, form.picArc);
    });
    EXPECT_NE(message.find("stopped"), std::string::npos) << message;
    EXPECT_EQ(model.RowsOf("SELECT PathId, ArcId FROM Pathways;", 2), Lines{"9|8"});
}

TEST(Rollback, LeavesNoPathwaysOfANetworkThatIsGone) {
    const TestModel model(test::WorkedExample().Sql() +
                          "INSERT INTO Matrix (ResourceId, TaskId, TaskTime) VALUES (1, 8, 5);"
                          "INSERT INTO Arcs (ArcId) VALUES (0);"
                          "INSERT INTO Pathways (PathId, ArcId, Feasible) VALUES (1, 0, 4);");
    ScriptedForm form(model.Directory());
    form.SetText(TextBox::txtTasks, "2");
    const auto message = ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] {
        CreateLinks(form.OpenWorkingCopy(), form, form.picArc);
    });
    EXPECT_NE(message.find("task 8"), std::string::npos) << message;
    EXPECT_EQ(model.RowsOf("SELECT ArcId FROM Arcs;", 1).size(), 3U);
    EXPECT_EQ(model.RowsOf("SELECT PathId, ArcId FROM Pathways;", 2), Lines{});
}

void Cost(LoadedModel& model) {
    const Database database = model.Copy.Open();
    CostPathways(database, LoadLineModel(database),
                 {.Volume = 100000, .Shifts = 1, .StationLimit = {}}, model.Form.picArc);
}

/// Solves the worked example for 100,000 units on a store that fails there.
void ExpectUndoneCosting(const std::string& trigger) {
    LoadedModel model(test::WorkedExample().Sql() + trigger);
    const auto before = model.DerivedTables();
    ExpectRunTimeError(ErrorKind::DatabaseFailure, [&] { Cost(model); });
    EXPECT_EQ(model.DerivedTables(), before);
    EXPECT_TRUE(model.Form.Events.empty());
}

TEST(Rollback, UndoesTheCosting) {
    ExpectUndoneCosting(FailOn("UPDATE ON Pathways", "NEW.PathId = 3"));
}

TEST(Rollback, UndoesTheCostingWhenTheSelectionFails) {
    test::ModelScript script = test::WorkedExample();
    script.Resources.push_back(script.Resources[0]);
    script.Matrix.push_back({2, 1, 30, 1, 900});
    LoadedModel model(script.Sql() + FailOn("UPDATE ON Pathways", "NEW.Feasible = 3"));
    const auto before = model.DerivedTables();
    ExpectRunTimeError(ErrorKind::DatabaseFailure, [&] { Cost(model); });
    EXPECT_EQ(model.DerivedTables(), before);
}

/// A network with the choice of an earlier run, on a store that fails there during the search.
void ExpectUndoneSearch(const std::string& trigger) {
    const std::vector<test::Way> ways = {{1, 2, 10, 4}, {2, 3, 20, 4}, {1, 3, 25}, {3, 4, 5}};
    const TestModel model(test::NetworkSql(ways) +
                          "INSERT INTO BestPaths VALUES (2, 1, 1, 10), (3, 2, 2, 30);" + trigger);
    const Lines labels = model.RowsOf(test::kAllLabels, 4);
    const Lines pathways = model.RowsOf(test::kAllPathways, 9);
    ExpectRunTimeError(ErrorKind::DatabaseFailure, [&] { FindBestPath(model.Open()); });
    EXPECT_EQ(model.RowsOf(test::kAllLabels, 4), labels);
    EXPECT_EQ(model.RowsOf(test::kAllPathways, 9), pathways);
}

TEST(Rollback, UndoesTheLabels) {
    ExpectUndoneSearch(FailOn("INSERT ON BestPaths", "NEW.ThisPath = 4"));
}

TEST(Rollback, UndoesTheMarks) {
    ExpectUndoneSearch(FailOn("UPDATE ON Pathways", "NEW.Feasible = 4 AND NEW.PathId = 3"));
}

}  // namespace
}  // namespace quarnel02
