#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "model/Database.h"
#include "support/RunTimeErrors.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::TestModel;
using Texts = std::vector<std::string>;

class RecordSetChangeTest : public testing::Test {
  protected:
    [[nodiscard]] RecordSet Open(const std::string& sql) const { return Handle.OpenRecordSet(sql); }
    [[nodiscard]] Texts Tasks() const { return Model.RowsOf("SELECT * FROM Tasks;", 2); }

    TestModel Model{"INSERT INTO Tasks VALUES (1, 'Insert'), (2, 'Screw'), (3, 'Test');"};
    Database Handle = Model.Open();
};

TEST_F(RecordSetChangeTest, EditsTheCurrentRow) {
    RecordSet tasks = Open("SELECT * FROM Tasks;");
    tasks.MoveNext();
    tasks.Edit();
    tasks.Set("description", std::string("Glue"));
    tasks.Update();
    EXPECT_EQ(tasks.Text("Description"), "Glue");
    EXPECT_EQ(Tasks(), (Texts{"1|Insert", "2|Glue", "3|Test"}));
}

TEST_F(RecordSetChangeTest, EditStaysOnItsRow) {
    RecordSet tasks = Open("SELECT * FROM Tasks;");
    tasks.MoveNext();
    tasks.Edit();
    tasks.Set("TaskId", std::int64_t{7});
    tasks.Update();
    EXPECT_EQ(tasks.Integer("TaskId"), 7);
    tasks.MoveToLastModified();
    EXPECT_EQ(tasks.Integer("TaskId"), 7);
    tasks.MoveNext();
    EXPECT_EQ(tasks.Integer("TaskId"), 3);
}

TEST_F(RecordSetChangeTest, MoveToLastModifiedReturnsToTheEditedRow) {
    RecordSet tasks = Open("SELECT * FROM Tasks;");
    tasks.MoveLast();
    tasks.Edit();
    tasks.Set("TaskId", std::int64_t{7});
    tasks.Update();
    tasks.MoveFirst();
    tasks.MoveToLastModified();
    EXPECT_EQ(tasks.Integer("TaskId"), 7);
}

TEST_F(RecordSetChangeTest, AddsARowAtTheEndWithoutMoving) {
    for (const std::string sql : {"SELECT * FROM Tasks;", "SELECT * FROM Tasks ORDER BY TaskId;"}) {
        RecordSet tasks = Open(sql);
        const int before = tasks.RecordCount();
        tasks.MoveNext();
        tasks.AddNew();
        tasks.Set("TaskId", std::int64_t{before + 1});
        tasks.Set("Description", std::string("   "));
        EXPECT_EQ(tasks.RecordCount(), before);
        tasks.Update();
        EXPECT_EQ(tasks.RecordCount(), before + 1);
        EXPECT_EQ(tasks.Integer("TaskId"), 2);
        tasks.MoveToLastModified();
        EXPECT_EQ(tasks.Text("Description"), "   ");
        tasks.MoveNext();
        EXPECT_TRUE(tasks.Eof());
    }
    EXPECT_EQ(Tasks(), (Texts{"1|Insert", "2|Screw", "3|Test", "4|   ", "5|   "}));
}

TEST_F(RecordSetChangeTest, AddsToASetThatWasNeverRead) {
    RecordSet tasks = Open("SELECT * FROM Tasks;");
    tasks.AddNew();
    tasks.Set("TaskId", std::int64_t{4});
    tasks.Update();
    EXPECT_EQ(tasks.Integer("TaskId"), 1);
    EXPECT_EQ(tasks.RecordCount(), 4);

    RecordSet second = Open("SELECT * FROM Tasks;");
    second.AddNew();
    second.Set("TaskId", std::int64_t{5});
    second.Update();
    second.MoveToLastModified();
    EXPECT_EQ(second.Integer("TaskId"), 5);
    second.MovePrevious();
    EXPECT_EQ(second.Integer("TaskId"), 4);
}

TEST_F(RecordSetChangeTest, AddsToAnEmptySet) {
    for (const std::string sql : {"SELECT * FROM Arcs;", "SELECT * FROM Arcs WHERE ArcId = 99;"}) {
        RecordSet arcs = Open(sql);
        arcs.AddNew();
        arcs.Set("ArcId", std::int64_t{99});
        arcs.Update();
        EXPECT_EQ(arcs.RecordCount(), 1);
        EXPECT_TRUE(arcs.Eof());
        ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { (void)arcs.Field(0); });
        arcs.MoveToLastModified();
        EXPECT_EQ(arcs.Integer("ArcId"), 99);
        arcs.Delete();
    }
}

TEST_F(RecordSetChangeTest, FieldsThatAreNotSetGetTheirDefaults) {
    RecordSet resources = Open("SELECT * FROM Resources;");
    resources.AddNew();
    resources.Set("ShortName", std::string("MNL"));
    resources.Update();
    resources.MoveToLastModified();
    EXPECT_EQ(resources.Number("FixedCost"), 0);
    EXPECT_EQ(resources.Integer("Type"), 0);
    EXPECT_TRUE(IsNull(resources.Field("Description")));
    RecordSet demand = Open("SELECT * FROM Demand;");
    demand.AddNew();
    demand.Update();
    demand.MoveToLastModified();
    EXPECT_EQ(demand.Number("Volume"), 0);
}

TEST_F(RecordSetChangeTest, TheLastValueSetCounts) {
    RecordSet tasks = Open("SELECT * FROM Tasks;");
    tasks.Edit();
    tasks.Set("Description", std::string("first"));
    tasks.Set("DESCRIPTION", std::string("second"));
    tasks.Update();
    EXPECT_EQ(tasks.Text("Description"), "second");
    tasks.AddNew();
    tasks.Set("Description", std::string("third"));
    tasks.Set("DESCRIPTION", std::string("fourth"));
    tasks.Update();
    tasks.MoveToLastModified();
    EXPECT_EQ(tasks.Text("Description"), "fourth");
    EXPECT_EQ(Model.RowsOf("SELECT Description FROM Tasks;", 1),
              (Texts{"second", "Screw", "Test", "fourth"}));
}

TEST_F(RecordSetChangeTest, WritingNeedsEditOrAddNew) {
    RecordSet tasks = Open("SELECT * FROM Tasks;");
    EXPECT_EQ(ExpectRunTimeError(ErrorKind::UpdateWithoutEdit,
                                 [&] { tasks.Set("TaskId", std::int64_t{5}); }),
              "Tasks.TaskId was set without Edit or AddNew.");
    ExpectRunTimeError(ErrorKind::UpdateWithoutEdit, [&] { tasks.Update(); });
    tasks.Edit();
    tasks.Update();
    ExpectRunTimeError(ErrorKind::UpdateWithoutEdit, [&] { tasks.Update(); });
    tasks.Edit();
    ExpectRunTimeError(ErrorKind::FieldNotFound, [&] { tasks.Set("Volume", 1.0); });
}

TEST_F(RecordSetChangeTest, MovesDropWhatWasBegun) {
    const std::vector<std::function<void(RecordSet&)>> moves = {
        [](RecordSet& set) { set.MoveFirst(); }, [](RecordSet& set) { set.MoveLast(); },
        [](RecordSet& set) { set.MoveNext(); }, [](RecordSet& set) { set.MovePrevious(); },
        [](RecordSet& set) { set.Move(1); }};
    for (const auto& move : moves) {
        RecordSet tasks = Open("SELECT * FROM Tasks;");
        tasks.MoveNext();
        tasks.Edit();
        tasks.Set("TaskId", std::int64_t{50});
        move(tasks);
        ExpectRunTimeError(ErrorKind::UpdateWithoutEdit, [&] { tasks.Update(); });
        tasks.MoveFirst();
        tasks.AddNew();
        tasks.Set("TaskId", std::int64_t{51});
        tasks.MoveNext();
        ExpectRunTimeError(ErrorKind::UpdateWithoutEdit, [&] { tasks.Update(); });
    }
    EXPECT_EQ(Tasks(), (Texts{"1|Insert", "2|Screw", "3|Test"}));
}

TEST_F(RecordSetChangeTest, AMoveThatFailsInAnEmptySetDropsTheNewRowToo) {
    const std::vector<std::function<void(RecordSet&)>> moves = {
        [](RecordSet& set) { set.MoveFirst(); }, [](RecordSet& set) { set.MoveLast(); }};
    const Texts before = Model.RowsOf("SELECT TaskId FROM Tasks;", 1);
    for (const auto& move : moves) {
        RecordSet tasks = Open("SELECT * FROM Tasks WHERE TaskId = 99;");
        tasks.AddNew();
        tasks.Set("TaskId", std::int64_t{99});
        ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { move(tasks); });
        ExpectRunTimeError(ErrorKind::UpdateWithoutEdit, [&] { tasks.Update(); });
    }
    EXPECT_EQ(Model.RowsOf("SELECT TaskId FROM Tasks;", 1), before);
}

TEST_F(RecordSetChangeTest, DeletedRowHasNoCurrentRecordUntilTheNextMove) {
    RecordSet tasks = Open("SELECT * FROM Tasks;");
    tasks.MoveNext();
    tasks.Delete();
    EXPECT_EQ(tasks.RecordCount(), 2);
    EXPECT_FALSE(tasks.Eof());
    EXPECT_FALSE(tasks.Bof());
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { (void)tasks.Field(0); });
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { tasks.Edit(); });
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { tasks.Delete(); });
    tasks.MoveNext();
    EXPECT_EQ(tasks.Integer("TaskId"), 3);
    tasks.MovePrevious();
    EXPECT_EQ(tasks.Integer("TaskId"), 1);
    EXPECT_EQ(Tasks(), (Texts{"1|Insert", "3|Test"}));
}

TEST_F(RecordSetChangeTest, DeletesFromTheFirstRowToTheEnd) {
    RecordSet tasks = Open("SELECT * FROM Tasks;");
    int deleted = 0;
    for (; !tasks.Eof(); tasks.MoveNext(), ++deleted) {
        tasks.Delete();
    }
    EXPECT_EQ(deleted, 3);
    EXPECT_EQ(tasks.RecordCount(), 0);
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { tasks.MoveFirst(); });
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { tasks.MoveLast(); });
    EXPECT_TRUE(Tasks().empty());
}

TEST_F(RecordSetChangeTest, AddsAfterDeletingEverything) {
    RecordSet tasks = Open("SELECT * FROM Tasks;");
    while (tasks.RecordCount() > 0) {
        tasks.MoveFirst();
        tasks.Delete();
    }
    tasks.AddNew();
    tasks.Set("TaskId", std::int64_t{1});
    tasks.Update();
    tasks.MoveToLastModified();
    EXPECT_EQ(tasks.Integer("TaskId"), 1);
    EXPECT_EQ(tasks.RecordCount(), 1);
    tasks.MovePrevious();
    EXPECT_TRUE(tasks.Bof());
}

TEST_F(RecordSetChangeTest, EditedRowStaysInItsSet) {
    const TestModel model("INSERT INTO Pathways (PathId, Feasible) VALUES (1, 4), (2, 1), (3, 4);");
    const Database database = model.Open();
    RecordSet chosen = database.OpenRecordSet("SELECT * FROM Pathways WHERE Feasible = 4;");
    std::string seen;
    for (; !chosen.Eof(); chosen.MoveNext()) {
        seen += chosen.Text("PathId");
        chosen.Edit();
        chosen.Set("Feasible", std::int64_t{1});
        chosen.Update();
        chosen.MoveToLastModified();
        EXPECT_EQ(chosen.Integer("Feasible"), 1);
    }
    EXPECT_EQ(seen, "13");
    EXPECT_EQ(chosen.RecordCount(), 2);
    EXPECT_EQ(model.RowsOf("SELECT Feasible FROM Pathways;", 1), (Texts{"1", "1", "1"}));
}

TEST_F(RecordSetChangeTest, WritesAFieldOfASetOfSomeFields) {
    RecordSet penalty = Open("SELECT Penalty FROM Gen;");
    penalty.Edit();
    penalty.Set("Penalty", std::string("1,250.5"));
    penalty.Update();
    penalty.MoveToLastModified();
    EXPECT_EQ(penalty.Number(0), 1250.5);
    ExpectRunTimeError(ErrorKind::FieldNotFound, [&] { (void)penalty.Field("Days"); });
    EXPECT_EQ(Model.RowsOf("SELECT * FROM Gen;", 8), Texts{"0|0|250|0.25|20|5|1250.5|Untitled"});
}

TEST_F(RecordSetChangeTest, OfEqualRowsOnlyTheCurrentOneIsChanged) {
    const TestModel model("INSERT INTO Demand VALUES (5, 10), (5, 10), (5, 10);");
    const Database database = model.Open();
    const std::string pair = "SELECT * FROM Demand WHERE Volume = 5 AND Prob = 10;";
    RecordSet rows = database.OpenRecordSet(pair);
    EXPECT_EQ(rows.RecordCount(), 3);
    rows.Edit();
    rows.Set("Volume", 6.0);
    rows.Update();
    database.OpenRecordSet(pair).Delete();
    EXPECT_EQ(model.RowsOf("SELECT * FROM Demand;", 2), (Texts{"6|10", "5|10"}));
}

class ReadOnlyRecordSet : public RecordSetChangeTest,
                          public testing::WithParamInterface<const char*> {};

TEST_P(ReadOnlyRecordSet, CannotBeChanged) {
    RecordSet set = Open(GetParam());
    ExpectRunTimeError(ErrorKind::ReadOnlyRecordSet, [&] { set.Edit(); });
    ExpectRunTimeError(ErrorKind::ReadOnlyRecordSet, [&] { set.AddNew(); });
    ExpectRunTimeError(ErrorKind::ReadOnlyRecordSet, [&] { set.Delete(); });
    ExpectRunTimeError(ErrorKind::ReadOnlyRecordSet, [&] { set.Update(); });
    EXPECT_EQ(Tasks(), (Texts{"1|Insert", "2|Screw", "3|Test"}));
}

INSTANTIATE_TEST_SUITE_P(
    JoinsAggregatesGroupsAndDistinctSets, ReadOnlyRecordSet,
    testing::Values(
        "SELECT COUNT(*) FROM Tasks;", "SELECT SUM(Prob) FROM Demand;",
        "SELECT Avg(TaskId) FROM Tasks;", "SELECT Max(TaskId) FROM Tasks;",
        "select min(TaskId), TaskId from Tasks;", "SELECT total(TaskId) FROM Tasks;",
        "SELECT group_concat(Description) FROM Tasks;", "SELECT TaskId FROM Tasks Group By TaskId;",
        "SELECT TaskId FROM Tasks GROUP BY TaskId ORDER BY TaskId;",
        "SELECT DISTINCT TaskId FROM Tasks;", "SELECT distinct TaskId FROM Tasks ORDER BY TaskId;",
        "SELECT Resources.Description, Tasks.Description From Resources, Tasks;",
        "SELECT a.TaskId FROM Tasks a, Tasks b;",
        "SELECT Pathways.PathId FROM Arcs INNER JOIN Pathways ON Arcs.ArcId = "
        "Pathways.ArcId;",
        "SELECT Tasks.TaskId FROM Tasks INNER JOIN Matrix ON Tasks.TaskId = "
        "Matrix.TaskId ORDER BY Tasks.TaskId;",
        "SELECT TaskId FROM Tasks UNION SELECT TaskId FROM Tasks;", "SELECT TaskId + 1 FROM Tasks;",
        "SELECT TaskId AS Description FROM Tasks;", "SELECT 1;"));

TEST_F(RecordSetChangeTest, AnAggregateIsOneRowOverAllThatAreSelected) {
    const RecordSet average = Open("SELECT Avg(TaskId) FROM Tasks WHERE TaskId > 1;");
    EXPECT_EQ(average.RecordCount(), 1);
    EXPECT_EQ(average.Number(0), 2.5);
    const RecordSet longest = Open("SELECT Max(TaskId) AS Longest, Description FROM Tasks;");
    EXPECT_EQ(longest.RecordCount(), 1);
    EXPECT_EQ(longest.Integer("Longest"), 3);
    EXPECT_EQ(longest.Text("Description"), "Test");
    EXPECT_TRUE(IsNull(Open("SELECT AVG(Volume) FROM Demand;").Field(0)));
}

TEST_F(RecordSetChangeTest, WordsOfSqlInsideATextAreNoneOfIt) {
    for (const std::string sql : {"SELECT * FROM Tasks WHERE Description <> 'x ORDER BY y';",
                                  " select TaskId from Tasks where Description <> ' DISTINCT, "
                                  "AVG(x)' order by TaskId ; "}) {
        RecordSet tasks = Open(sql);
        EXPECT_EQ(tasks.RecordCount(), 3);
        tasks.Edit();
        tasks.Set("TaskId", tasks.Integer("TaskId"));
        EXPECT_NO_THROW(tasks.Update());
    }
}

}  // namespace
}  // namespace quarnel02
