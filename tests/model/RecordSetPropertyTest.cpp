#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "basic/Numbers.h"
#include "model/Database.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::TestModel;
using Texts = std::vector<std::string>;

struct ReferenceRow {
    int Id;
    int TaskId;
    bool Deleted = false;
};

/// What a record set on Tasks should hold: rows, position and the row modified last; beside it
/// the rows of the table.
struct Reference {
    std::vector<ReferenceRow> Rows;
    int At = 0;
    std::optional<int> LastModified;

    std::vector<ReferenceRow> Table;
    int NextId = 0;

    [[nodiscard]] int Size() const { return static_cast<int>(Rows.size()); }
    [[nodiscard]] bool OnRow() const {
        return At >= 0 && At < Size() && !Rows[static_cast<std::size_t>(At)].Deleted;
    }
    ReferenceRow& Current() { return Rows[static_cast<std::size_t>(At)]; }
    [[nodiscard]] int Live() const {
        return static_cast<int>(
            std::count_if(Rows.begin(), Rows.end(), [](const auto& row) { return !row.Deleted; }));
    }
    [[nodiscard]] bool Eof() const { return At >= Size(); }
    [[nodiscard]] bool Bof() const { return At < 0 || Rows.empty(); }

    void Step(int step) {
        do {
            At += step;
        } while (At >= 0 && At < Size() && !OnRow());
    }
    void AddElsewhere(int taskId) { Table.push_back({NextId++, taskId}); }
    void Add(int taskId) {
        const bool was_at_end = Eof();
        Rows.push_back({NextId, taskId});
        LastModified = NextId;
        AddElsewhere(taskId);
        At = was_at_end ? Size() : At;
    }
    void Edit(int taskId) {
        Current().TaskId = taskId;
        LastModified = Current().Id;
        std::find_if(Table.begin(), Table.end(), [&](const auto& row) {
            return row.Id == Current().Id;
        })->TaskId = taskId;
    }
    void Delete() {
        std::erase_if(Table, [&](const auto& row) { return row.Id == Current().Id; });
        Current().Deleted = true;
    }
    void ToLastModified() {
        At = 0;
        while (Current().Id != *LastModified) {
            ++At;
        }
    }
};

class RandomWalk {
  public:
    RandomWalk(const TestModel& model, int rows, const std::string& sql)
        : m_model(model), m_database(model.Open()), m_other(model.Open()) {
        for (int row = 1; row <= rows; ++row) {
            AddElsewhere(row);
        }
        m_set = m_database.OpenRecordSet(sql);
        m_reference.Rows = m_reference.Table;
    }

    void Step() {
        const int choice = *rc::gen::inRange(0, 12);
        const int value = *rc::gen::inRange(1, 1000);
        switch (choice) {
            case 0:
                MoveToEnd(true);
                break;
            case 1:
                MoveToEnd(false);
                break;
            case 2:
                MoveBy(1);
                break;
            case 3:
                MoveBy(-1);
                break;
            case 4:
                Add(m_set, value);
                m_reference.Add(value);
                break;
            case 5:
                ToLastModified();
                break;
            case 6:
                Edit(value);
                break;
            case 7:
                Delete();
                break;
            case 8:
                AddElsewhere(value);
                break;
            case 9:
                BeginAndDrop(value);
                break;
            default:
                Compare();
        }
    }

    void Compare() {
        RC_ASSERT(m_set.RecordCount() == m_reference.Live());
        RC_ASSERT(m_set.Eof() == m_reference.Eof());
        RC_ASSERT(m_set.Bof() == m_reference.Bof());
        if (m_reference.OnRow()) {
            RC_ASSERT(m_set.Integer("TaskId") == m_reference.Current().TaskId);
        } else {
            RC_ASSERT_THROWS((void)m_set.Field(0));
        }
    }

    void CompareTable() const {
        Texts expected;
        for (const ReferenceRow& row : m_reference.Table) {
            expected.push_back(NumberText(row.TaskId));
        }
        RC_ASSERT(m_model.RowsOf("SELECT TaskId FROM Tasks;", 1) == expected);
    }

  private:
    static void Add(RecordSet& set, int value) {
        set.AddNew();
        set.Set("TaskId", std::int64_t{value});
        set.Update();
    }
    void AddElsewhere(int value) {
        RecordSet other = m_other.OpenRecordSet("SELECT * FROM Tasks;");
        Add(other, value);
        m_reference.AddElsewhere(value);
    }
    void MoveToEnd(bool first) {
        if (m_reference.Live() == 0) {
            RC_ASSERT_THROWS(first ? m_set.MoveFirst() : m_set.MoveLast());
            return;
        }
        first ? m_set.MoveFirst() : m_set.MoveLast();
        m_reference.At = first ? -1 : m_reference.Size();
        m_reference.Step(first ? 1 : -1);
    }
    void MoveBy(int step) {
        if (step > 0 ? m_reference.Eof() : m_reference.Bof()) {
            RC_ASSERT_THROWS(m_set.Move(step));
            return;
        }
        m_set.Move(step);
        m_reference.Step(step);
    }
    void ToLastModified() {
        if (m_reference.LastModified) {
            m_set.MoveToLastModified();
            m_reference.ToLastModified();
        } else {
            RC_ASSERT_THROWS(m_set.MoveToLastModified());
        }
    }
    void Edit(int value) {
        if (!m_reference.OnRow()) {
            RC_ASSERT_THROWS(m_set.Edit());
            return;
        }
        m_set.Edit();
        m_set.Set("TaskId", std::int64_t{value});
        m_set.Update();
        m_reference.Edit(value);
    }
    void Delete() {
        if (!m_reference.OnRow()) {
            RC_ASSERT_THROWS(m_set.Delete());
            return;
        }
        m_set.Delete();
        m_reference.Delete();
    }
    /// Begins an edit and a new row and writes neither.
    void BeginAndDrop(int value) {
        if (m_reference.OnRow()) {
            m_set.Edit();
            m_set.Set("TaskId", std::int64_t{value});
        }
        m_set.AddNew();
        m_set.Set("TaskId", std::int64_t{value});
        MoveBy(1);
    }

    const TestModel& m_model;
    Database m_database;
    Database m_other;
    RecordSet m_set;
    Reference m_reference;
};

class RecordSetProperty : public testing::TestWithParam<const char*> {};

TEST_P(RecordSetProperty, BehavesLikeAListOfRows) {
    EXPECT_TRUE(rc::check([] {
        const TestModel model;
        RandomWalk walk(model, *rc::gen::inRange(0, 5), GetParam());
        const int steps = *rc::gen::inRange(1, 60);
        for (int step = 0; step < steps; ++step) {
            walk.Step();
        }
        walk.Compare();
        walk.CompareTable();
    }));
}

INSTANTIATE_TEST_SUITE_P(Opened, RecordSetProperty,
                         testing::Values("SELECT * FROM Tasks;",
                                         "SELECT * FROM Tasks WHERE TaskId >= 0;",
                                         "SELECT TaskId FROM Tasks;"),
                         [](const auto& tested) {
                             return "Way" + std::to_string(tested.index + 1);
                         });

}  // namespace
}  // namespace quarnel02
