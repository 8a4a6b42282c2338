#include "sheets/RecordOrder.h"

#include <gtest/gtest.h>

#include "sheets/SheetModels.h"
#include "sheets/Triples.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::SmallModel;
using test::TriplesOf;

constexpr auto kTasks = RecordKind::Tasks;
constexpr auto kResources = RecordKind::Resources;

/// "1 T1, 2 T2".
std::string TasksOf(const InputTables& tables) {
    std::string texts;
    for (const InputRow& row : tables.Tasks) {
        texts += (texts.empty() ? "" : ", ") + ShownText(TaskColumns()[0], row[0]) + " " +
                 std::get<std::string>(row[1]);
    }
    return texts;
}

TEST(RecordOrder, InsertedTasksPushMatrixRowsDown) {
    const Reordered inserted = InsertRecords(SmallModel(), kTasks, 1, 2);
    EXPECT_EQ(TasksOf(inserted.Tables), "1 T1, 2    , 3    , 4 T2, 5 T3");
    EXPECT_EQ(inserted.Now, (Places{1, 2}));
    EXPECT_EQ(inserted.Tables.Matrix[1], test::PairRow(4, 1, 0, 0, 0));
    EXPECT_EQ(TriplesOf(inserted.Tables), TriplesOf(SmallModel()));
    EXPECT_EQ(inserted.Tables.Gen[0][GenColumn::Tasks], Value(std::int64_t{5}));
}

TEST(RecordOrder, AddedResourcesStandBehind) {
    const Reordered added = AddRecords(SmallModel(), kResources, 1);
    ASSERT_EQ(added.Tables.Resources.size(), 3U);
    EXPECT_EQ(added.Tables.Resources[2],
              (InputRow{std::int64_t{3}, std::string("   "), std::string("   "), std::int64_t{0},
                        0.0, 0.0, 100.0, 1.0, 1.0, 1.0}));
    EXPECT_EQ(added.Now, Places{2});
    EXPECT_EQ(added.Tables.Gen[0][GenColumn::Resources], Value(std::int64_t{3}));
    EXPECT_EQ(added.Tables.Matrix, SmallModel().Matrix);
}

TEST(RecordOrder, ACopyHasTheFiguresOfItsOriginal) {
    const Reordered copied = DuplicateRecords(SmallModel(), kTasks, {0, 1});
    EXPECT_EQ(TasksOf(copied.Tables), "1 T1, 2 T2, 3 T1, 4 T2, 5 T3");
    EXPECT_EQ(copied.Now, (Places{2, 3}));
    EXPECT_EQ(copied.Tables.Matrix.size(), 7U);
    auto triples = TriplesOf(SmallModel());
    for (const std::string& triple : TriplesOf(SmallModel())) {
        if (!triple.starts_with("T3")) {
            triples.insert(triple);
        }
    }
    EXPECT_EQ(TriplesOf(copied.Tables), triples);
}

TEST(RecordOrder, DeletedTasksTakeTheirRowsAlong) {
    const Reordered deleted = DeleteRecords(SmallModel(), kTasks, {0});
    EXPECT_EQ(TasksOf(deleted.Tables), "1 T2, 2 T3");
    EXPECT_EQ(deleted.Now, Places{0});
    EXPECT_EQ(deleted.Tables.Matrix,
              (TableRows{test::PairRow(1, 1, 0, 0, 0), test::PairRow(1, 2, 7, 1, 38000),
                         test::PairRow(2, 2, 9, 2, 26000)}));
    EXPECT_EQ(deleted.Tables.Gen[0][GenColumn::Tasks], Value(std::int64_t{2}));
    EXPECT_EQ(DeleteRecords(SmallModel(), kTasks, {2}).Now, Places{1});
}

TEST(RecordOrder, TheLastRecordLeavesANewOne) {
    const Reordered deleted = DeleteRecords(SmallModel(), kResources, {0, 1});
    EXPECT_EQ(deleted.Tables.Resources, (TableRows{NewRecord(kResources, 1)}));
    EXPECT_TRUE(deleted.Tables.Matrix.empty());
    EXPECT_EQ(deleted.Now, Places{0});
}

TEST(RecordOrder, MovesASelectionByOnePlace) {
    const Reordered down = MoveRecordsDown(SmallModel(), kTasks, {0, 1});
    EXPECT_EQ(TasksOf(down.Tables), "1 T3, 2 T1, 3 T2");
    EXPECT_EQ(down.Now, (Places{1, 2}));
    EXPECT_EQ(TriplesOf(down.Tables), TriplesOf(SmallModel()));
    const Reordered up = MoveRecordsUp(SmallModel(), kTasks, {2});
    EXPECT_EQ(TasksOf(up.Tables), "1 T1, 2 T3, 3 T2");
    EXPECT_EQ(up.Now, Places{1});
}

TEST(RecordOrder, StopsAtBothEnds) {
    EXPECT_EQ(MoveRecordsUp(SmallModel(), kTasks, {0, 1}).Tables, SmallModel());
    EXPECT_EQ(MoveRecordsDown(SmallModel(), kResources, {1}).Tables, SmallModel());
    EXPECT_EQ(TasksOf(MoveRecordsUp(SmallModel(), kTasks, {0, 2}).Tables), "1 T1, 2 T3, 3 T2");
    EXPECT_EQ(MoveRecordsUp(InputTables{}, kTasks, {0}).Tables.Tasks, TableRows());
}

TEST(RecordOrder, PlacesBeyondTheTableAreNone) {
    const Reordered moved = MoveRecordsUp(SmallModel(), kTasks, {7});
    EXPECT_EQ(moved.Tables, SmallModel());
    EXPECT_TRUE(moved.Now.empty());
}

TEST(RecordOrder, RowsWithoutARecordNeverGetOne) {
    InputTables tables = SmallModel();
    tables.Matrix.push_back(test::PairRow(4, 1, 1, 1, 1));
    tables.Matrix.push_back(test::PairRow(9, 1, 2, 1, 1));
    const InputTables inserted = InsertRecords(tables, kTasks, 0, 2).Tables;
    EXPECT_EQ(inserted.Matrix[4], test::PairRow(6, 1, 1, 1, 1));
    EXPECT_EQ(inserted.Matrix[5], test::PairRow(9, 1, 2, 1, 1));
    EXPECT_EQ(TriplesOf(inserted), TriplesOf(tables));
}

TEST(RecordOrder, NumbersTypedByHandBecomeDense) {
    InputTables tables = SmallModel();
    tables.Tasks[2][TaskColumn::TaskId] = std::int64_t{9};
    tables.Matrix[3][MatrixColumn::TaskId] = std::int64_t{9};
    tables.Matrix.push_back(test::PairRow(3, 1, 5, 5, 5));
    const InputTables moved = MoveRecordsUp(tables, kTasks, {1}).Tables;
    EXPECT_EQ(TasksOf(moved), "1 T2, 2 T1, 3 T3");
    EXPECT_EQ(moved.Matrix[3], test::PairRow(3, 2, 9, 2, 26000));
    EXPECT_EQ(moved.Matrix[4], test::PairRow(4, 1, 5, 5, 5));
}

TEST(RecordOrder, AModelHasAnEnd) {
    test::ExpectRunTimeError(ErrorKind::Overflow, [] { AddRecords(SmallModel(), kTasks, 32765); });
    EXPECT_EQ(AddRecords(SmallModel(), kTasks, 32764).Tables.Tasks.size(), 32767U);
}

TEST(DeletionEffect, CountsTheRowsThatChangeOwner) {
    const DeletionEffect first = EffectOfDeletion(SmallModel(), kTasks, 0);
    EXPECT_EQ(first.OwnRows, 1U);
    EXPECT_EQ(first.ChangeOwner, 3U);  // that of 1 to T2, both of 2 to T3
    EXPECT_EQ(first.Lost, 1U);         // that of number 3
    const DeletionEffect last = EffectOfDeletion(SmallModel(), kTasks, 2);
    EXPECT_EQ(last.OwnRows, 1U);
    EXPECT_EQ(last.ChangeOwner, 0U);
    EXPECT_EQ(last.Lost, 1U);
}

TEST(DeletionEffect, OfAnOnlyRecordIsNone) {
    InputTables tables = test::EmptyMatrixModel(1, 1);
    tables.Matrix = {test::PairRow(1, 1, 5, 1, 1)};
    const DeletionEffect effect = EffectOfDeletion(tables, kResources, 0);
    EXPECT_EQ(effect.OwnRows, 1U);
    EXPECT_EQ(effect.ChangeOwner + effect.Lost, 0U);
}

}  // namespace
}  // namespace quarnel02
