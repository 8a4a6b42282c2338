#include "fixed/GeneratePathways.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fixed/CreateLinks.h"
#include "support/LoadedModel.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::kAllPathways;
using test::LoadedModel;
using test::ModelScript;

using Lines = std::vector<std::string>;

constexpr const char* kRanges =
    "SELECT Pathways.PathId, Pathways.ResourceId, Arcs.TaskStart, Arcs.TaskEnd FROM Pathways "
    "INNER JOIN Arcs ON Pathways.ArcId = Arcs.ArcId ORDER BY Pathways.PathId;";

/// A model in which resource r can do the tasks of can[r - 1], entered in that order.
ModelScript Capable(int tasks, const std::vector<std::vector<int>>& can) {
    ModelScript model;
    model.Tasks = tasks;
    model.Resources.resize(can.size());
    int resource = 0;
    for (const auto& list : can) {
        ++resource;
        for (const int task : list) {
            model.Matrix.push_back({resource, task, 10, 1});
        }
    }
    return model;
}

/// Number, resource, start and end node of every pathway.
Lines RangesOf(const ModelScript& model) {
    return LoadedModel(model).Copy.RowsOf(kRanges, 4);
}

TEST(GeneratePathways, TakesEverySubRangeOfARun) {
    EXPECT_EQ(RangesOf(Capable(3, {{1, 2, 3}})),
              (Lines{"1|1|1|2", "2|1|1|3", "3|1|1|4", "4|1|2|3", "5|1|2|4", "6|1|3|4"}));
}

TEST(GeneratePathways, BreaksTheChainAtAGap) {
    EXPECT_EQ(RangesOf(Capable(4, {{1, 2, 4}})),
              (Lines{"1|1|1|2", "2|1|1|3", "3|1|2|3", "4|1|4|5"}));
}

TEST(GeneratePathways, OrdersTasksWhateverTheOrderOfEntry) {
    EXPECT_EQ(RangesOf(Capable(3, {{3, 1, 2}})), RangesOf(Capable(3, {{1, 2, 3}})));
}

TEST(GeneratePathways, TakesNothingFromAResourceWithoutMatrixRows) {
    EXPECT_EQ(RangesOf(Capable(2, {{}, {1, 2}, {}})), (Lines{"1|2|1|2", "2|2|1|3", "3|2|2|3"}));
    EXPECT_EQ(RangesOf(Capable(2, {{}})), Lines{});
    EXPECT_EQ(RangesOf(Capable(0, {})), Lines{});
}

TEST(GeneratePathways, NumbersPathwaysOverAllResources) {
    const Lines ranges = RangesOf(Capable(3, {{1, 2, 3}, {1, 2, 3}}));
    ASSERT_EQ(ranges.size(), 12U);
    EXPECT_EQ(ranges[5], "6|1|3|4");
    EXPECT_EQ(ranges[6], "7|2|1|2");
    EXPECT_EQ(ranges[11], "12|2|3|4");
}

TEST(GeneratePathways, StartsEveryPathwayFeasibleAndWithoutCost) {
    const LoadedModel model(Capable(2, {{1, 2}}));
    // PathId, ArcId, ResourceId, Feasible, Cost, Time, Stations, Investment, AnnualLabor
    EXPECT_EQ(model.Copy.RowsOf(kAllPathways, 9),
              (Lines{"1|0|1|1|0|0|0|0|0", "2|2|1|1|0|0|0|0|0", "3|1|1|1|0|0|0|0|0"}));
}

TEST(GeneratePathways, TakesARowWithoutTaskTimeForATaskThatTheResourceCannotDo) {
    const Lines without_task_two = {"1|1|1|2", "2|1|3|4"};
    ModelScript model = Capable(3, {{1, 2, 3}});
    model.Matrix[1].Entry.TaskTime = 0;
    EXPECT_EQ(RangesOf(model), without_task_two);
    const LoadedModel null(model.Sql() + "UPDATE Matrix SET TaskTime = NULL WHERE TaskId = 2;");
    EXPECT_EQ(null.Copy.RowsOf(kRanges, 4), without_task_two);
}

TEST(GeneratePathways, DoublesTheRangesOfATaskEnteredTwice) {
    // Tasks 1, 1, 2: the first row's chain meets task 1 again, which is not task 2, and breaks.
    EXPECT_EQ(RangesOf(Capable(2, {{1, 1, 2}})),
              (Lines{"1|1|1|2", "2|1|1|2", "3|1|1|3", "4|1|2|3"}));
}

TEST(GeneratePathways, NeverConsidersAResourceBeyondTheCountOfGen) {
    const ModelScript model = Capable(1, {{1}, {1}, {1}});
    const LoadedModel loaded(model.Sql() + "UPDATE Gen SET Resources = 2;");
    EXPECT_EQ(loaded.Copy.RowsOf(kRanges, 4), (Lines{"1|1|1|2", "2|2|1|2"}));
}

TEST(GeneratePathways, ReplacesWhatThereWas) {
    LoadedModel model(Capable(3, {{1, 2, 3}}));
    const Lines before = model.Copy.RowsOf(kAllPathways, 9);
    RecordSet pathways = model.Form.OpenWorkingCopy().OpenRecordSet(kAllPathways);
    pathways.Edit();
    pathways.Set("Feasible", 4);
    pathways.Set("Cost", 12.5);
    pathways.Set("Stations", 7);
    pathways.Update();
    GeneratePathways(model.Form.OpenWorkingCopy(), model.Form, model.Form.picArc);
    EXPECT_EQ(model.Copy.RowsOf(kAllPathways, 9), before);
}

TEST(GeneratePathways, RedrawsTheNetwork) {
    LoadedModel model(Capable(2, {{1, 2}}));
    const auto drawn = model.Form.picArc.Figures();
    model.Form.picArc.Clear();
    GeneratePathways(model.Form.OpenWorkingCopy(), model.Form, model.Form.picArc);
    EXPECT_FALSE(drawn.empty());
    EXPECT_EQ(model.Form.picArc.Figures(), drawn);
}

TEST(GeneratePathways, RefusesAMatrixRowOfATaskWithoutArc) {
    LoadedModel model(Capable(3, {{1, 2, 3}}));
    model.Form.SetText(TextBox::txtTasks, "2");
    ASSERT_EQ(model.Copy.RowsOf(kAllPathways, 9).size(), 6U);
    const std::string message = ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] {
        CreateLinks(model.Form.OpenWorkingCopy(), model.Form, model.Form.picArc);
    });
    EXPECT_NE(message.find("resource 1"), std::string::npos) << message;
    EXPECT_NE(message.find("task 3"), std::string::npos) << message;
    EXPECT_EQ(model.Copy.RowsOf(kAllPathways, 9), Lines{}) << "pathways of three tasks";
}

TEST(GeneratePathways, NeedsTheRowOfGen) {
    LoadedModel model(Capable(1, {{1}}));
    model.Form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Gen;").Delete();
    const auto before = model.DerivedTables();
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] {
        GeneratePathways(model.Form.OpenWorkingCopy(), model.Form, model.Form.picArc);
    });
    EXPECT_EQ(model.DerivedTables(), before);
}

/// 157 resources on 20 tasks (157 x 210 = 32,970 pathways) of which the last ones can do less:
/// `total` pathways in all.
ModelScript WithPathways(int total) {
    constexpr int tasks = 20;
    ModelScript model;
    model.Tasks = tasks;
    while (total > 0) {
        model.Resources.emplace_back();
        const int resource = static_cast<int>(model.Resources.size());
        int run = 0;
        while (run < tasks && (run + 1) * (run + 2) / 2 <= total) {
            model.Matrix.push_back({resource, ++run, 1, 1});
        }
        total -= run * (run + 1) / 2;
    }
    return model;
}

TEST(GeneratePathways, NumbersUpToTheLargestInteger) {
    const LoadedModel model(WithPathways(32767));
    EXPECT_EQ(model.Copy.RowsOf("SELECT Max(PathId) AS Largest FROM Pathways;", 1), Lines{"32767"});
}

TEST(GeneratePathways, OverflowsBeyondTheLargestIntegerAndChangesNothing) {
    const test::TestModel copy(
        WithPathways(32768).Sql() +
        "INSERT INTO Pathways (PathId, ArcId, ResourceId, Feasible) VALUES (9, 8, 7, 3);"
        "WITH RECURSIVE Ids(Id) AS (SELECT 0 UNION ALL SELECT Id + 1 FROM Ids WHERE Id < 209) "
        "INSERT INTO Arcs (ArcId) SELECT Id FROM Ids;");
    test::ScriptedForm form(copy.Directory());
    form.SetText(TextBox::txtTasks, "20");
    const std::string message = ExpectRunTimeError(
        ErrorKind::Overflow, [&] { CreateLinks(form.OpenWorkingCopy(), form, form.picArc); });
    EXPECT_NE(message.find("32,767"), std::string::npos) << message;
    EXPECT_EQ(copy.RowsOf(kAllPathways, 9), Lines{"9|8|7|3|0|0|0|0|0"});
}

TEST(GeneratePathways, WritesAnewWhateverIsNotAsItWouldBe) {
    LoadedModel model(test::WorkedExample());
    const Lines generated = model.Copy.RowsOf(kAllPathways, 9);
    for (const std::string spoiled :
         {"PathId = 9", "ArcId = 2", "ResourceId = 7", "Feasible = 3", "Cost = 1", "Time = 1",
          "Stations = 1", "Investment = 1", "AnnualLabor = 1"}) {
        RecordSet row = model.Copy.Open().OpenRecordSet(kAllPathways);
        row.Edit();
        row.Set(spoiled.substr(0, spoiled.find(' ')), spoiled.substr(spoiled.rfind(' ') + 1));
        row.Update();
        ASSERT_NE(model.Copy.RowsOf(kAllPathways, 9), generated) << spoiled;
        GeneratePathways(model.Copy.Open(), model.Form, model.Form.picArc);
        EXPECT_EQ(model.Copy.RowsOf(kAllPathways, 9), generated) << spoiled;
    }
}

TEST(GeneratePathways, DropsRowsThatAreTooMany) {
    LoadedModel model(test::WorkedExample());
    const Lines generated = model.Copy.RowsOf(kAllPathways, 9);
    RecordSet rows = model.Copy.Open().OpenRecordSet(kAllPathways);
    rows.AddNew();
    rows.Set("Feasible", 2);
    rows.Update();
    GeneratePathways(model.Copy.Open(), model.Form, model.Form.picArc);
    EXPECT_EQ(model.Copy.RowsOf(kAllPathways, 9), generated);
}

}  // namespace
}  // namespace quarnel02
