#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/Database.h"
#include "support/RunTimeErrors.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::TestModel;
using Texts = std::vector<std::string>;

constexpr const char* kWhole = "SELECT * FROM Tasks;";
constexpr const char* kSome = "SELECT * FROM Tasks WHERE TaskId BETWEEN 1 AND 99;";

/// A set opened before the table changes, read only afterwards.
class SnapshotTest : public testing::TestWithParam<const char*> {
  protected:
    [[nodiscard]] RecordSet Open() const { return Handle.OpenRecordSet(GetParam()); }

    static Texts Rest(RecordSet& set) {
        Texts rows;
        for (; !set.Eof(); set.MoveNext()) {
            rows.push_back(set.Text(0) + set.Text(1));
        }
        return rows;
    }
    static void Add(RecordSet set, int number) {
        set.AddNew();
        set.Set("TaskId", std::int64_t{number});
        set.Update();
    }
    [[nodiscard]] Texts Stored() const { return Model.RowsOf("SELECT TaskId FROM Tasks;", 1); }

    TestModel Model{"INSERT INTO Tasks VALUES (1, 'a'), (2, 'b'), (3, 'c');"};
    Database Handle = Model.Open();
    Database Other = Model.Open();
};

TEST_P(SnapshotTest, DoesNotSeeRowsAddedElsewhere) {
    RecordSet set = Open();
    Add(Other.OpenRecordSet(kWhole), 4);
    Add(Handle.OpenRecordSet("SELECT * FROM Tasks WHERE TaskId = 1;"), 5);
    EXPECT_EQ(set.RecordCount(), 3);
    EXPECT_EQ(Rest(set), (Texts{"1a", "2b", "3c"}));
    EXPECT_EQ(Open().RecordCount(), 5);
}

TEST_P(SnapshotTest, KeepsRowsDeletedElsewhere) {
    RecordSet set = Open();
    RecordSet other = Other.OpenRecordSet(kWhole);
    other.MoveNext();
    other.Delete();
    EXPECT_EQ(set.RecordCount(), 3);
    EXPECT_EQ(Rest(set), (Texts{"1a", "2b", "3c"}));
    EXPECT_EQ(Stored(), (Texts{"1", "3"}));
}

TEST_P(SnapshotTest, KeepsValuesEditedElsewhere) {
    RecordSet set = Open();
    RecordSet other = Other.OpenRecordSet(kWhole);
    other.Edit();
    other.Set("Description", std::string("x"));
    other.Update();
    EXPECT_EQ(Rest(set), (Texts{"1a", "2b", "3c"}));
}

TEST_P(SnapshotTest, CannotChangeARowDeletedElsewhere) {
    RecordSet set = Open();
    Other.OpenRecordSet(kWhole).Delete();
    set.Edit();
    set.Set("Description", std::string("x"));
    ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { set.Update(); });
    EXPECT_EQ(Stored(), (Texts{"2", "3"}));
}

TEST_P(SnapshotTest, OfAnEmptiedTableIsStillFull) {
    RecordSet set = Open();
    RecordSet other = Other.OpenRecordSet(kWhole);
    for (; !other.Eof(); other.MoveNext()) {
        other.Delete();
    }
    EXPECT_EQ(Rest(set), (Texts{"1a", "2b", "3c"}));
}

TEST_P(SnapshotTest, SeesItsOwnRowsBehindItsOldOnes) {
    RecordSet set = Open();
    RecordSet other = Other.OpenRecordSet(kWhole);
    other.AddNew();
    other.Set("TaskId", std::int64_t{4});
    other.Update();
    set.AddNew();
    set.Set("TaskId", std::int64_t{5});
    set.Update();
    EXPECT_EQ(Rest(set), (Texts{"1a", "2b", "3c", "5"}));
    EXPECT_EQ(Rest(other), (Texts{"1a", "2b", "3c", "4"}));
    EXPECT_EQ(Stored(), (Texts{"1", "2", "3", "4", "5"}));
}

TEST_P(SnapshotTest, MixesItsRowsWithThoseOfOthers) {
    RecordSet set = Open();
    set.AddNew();
    set.Set("TaskId", std::int64_t{4});
    set.Update();
    set.MoveToLastModified();
    Add(Other.OpenRecordSet(kWhole), 5);
    set.AddNew();
    set.Set("TaskId", std::int64_t{6});
    set.Update();
    EXPECT_EQ(set.Integer("TaskId"), 4);
    EXPECT_EQ(set.RecordCount(), 5);
    EXPECT_EQ(Rest(set), (Texts{"4", "6"}));
}

TEST_P(SnapshotTest, StaysWhenItsTwinIsClosedOrDestroyed) {
    RecordSet set = Open();
    { const RecordSet twin = Open(); }
    RecordSet closed = Open();
    closed.Close();
    Add(Other.OpenRecordSet(kWhole), 4);
    EXPECT_EQ(set.RecordCount(), 3);
}

TEST_P(SnapshotTest, OfAClosedOpeningDoesNotDisturbTheOthers) {
    const RecordSet set = Open();
    Handle.Close();
    Add(Other.OpenRecordSet(kWhole), 4);
    EXPECT_FALSE(set.IsOpen());
    EXPECT_EQ(Stored(), (Texts{"1", "2", "3", "4"}));
}

TEST_P(SnapshotTest, ResultsOfTheSameTextAreIndependent) {
    const Transaction transaction(Handle);
    for (int i = 0; i < 40; ++i) {
        (void)Open().RecordCount();
    }
    RecordSet first = Open();
    const RecordSet second = Open();
    EXPECT_EQ(second.RecordCount(), 3);
    first.Edit();
    first.Set("Description", std::string("x"));
    first.Update();
    EXPECT_EQ(second.Text("Description"), "a");
    EXPECT_EQ(first.Text("Description"), "x");
    EXPECT_EQ(Open().Text("Description"), "x");
}

INSTANTIATE_TEST_SUITE_P(RecordSet, SnapshotTest, testing::Values(kWhole, kSome),
                         [](const auto& tested) {
                             return std::string(tested.param == kWhole ? "Whole" : "Some");
                         });

}  // namespace
}  // namespace quarnel02
