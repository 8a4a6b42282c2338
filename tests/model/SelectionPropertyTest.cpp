#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

#include "basic/Numbers.h"
#include "model/Database.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::TestModel;
using Texts = std::vector<std::string>;

struct Cell {
    int Resource;
    int Task;
    double Time;
    int Tool;
};

/// A table of cells beside the store's Matrix: changes go to both, selections are compared.
/// Pairs may be entered twice.
class MatrixTwin {
  public:
    explicit MatrixTwin(const TestModel& model) : m_model(model), m_database(model.Open()) {}

    void Add() {
        const Cell cell{Number(1, 3), Number(1, 4), Number(0, 9) / 4.0, Number(1, 3)};
        RecordSet matrix = m_database.OpenRecordSet("SELECT * FROM Matrix;");
        matrix.AddNew();
        matrix.Set("ResourceId", std::int64_t{cell.Resource});
        matrix.Set("TaskId", std::int64_t{cell.Task});
        matrix.Set("TaskTime", cell.Time);
        matrix.Set("ToolNum", std::int64_t{cell.Tool});
        matrix.Update();
        m_cells.push_back(cell);
    }

    void EditFirst() {
        if (m_cells.empty()) {
            return;
        }
        const double time = Number(0, 9) / 4.0;
        RecordSet matrix = m_database.OpenRecordSet("SELECT * FROM Matrix;");
        const int place = Number(0, static_cast<int>(m_cells.size()) - 1);
        matrix.Move(place);
        matrix.Edit();
        matrix.Set("TaskTime", time);
        matrix.Update();
        m_cells[static_cast<std::size_t>(place)].Time = time;
    }

    void DeleteOne() {
        if (m_cells.empty()) {
            return;
        }
        RecordSet matrix = m_database.OpenRecordSet("SELECT * FROM Matrix;");
        const int place = Number(0, static_cast<int>(m_cells.size()) - 1);
        matrix.Move(place);
        matrix.Delete();
        m_cells.erase(m_cells.begin() + place);
    }

    void SelectRange() const {
        const int resource = Number(1, 4);
        const int low = Number(0, 4);
        const int high = Number(0, 5);
        const bool by_tool = *rc::gen::arbitrary<bool>();
        std::vector<Cell> found;
        std::copy_if(m_cells.begin(), m_cells.end(), std::back_inserter(found),
                     [&](const Cell& cell) {
                         return cell.Resource == resource && cell.Task >= low && cell.Task <= high;
                     });
        std::stable_sort(found.begin(), found.end(), [&](const Cell& a, const Cell& b) {
            return by_tool ? a.Tool < b.Tool : a.Task < b.Task;
        });
        Expect(found,
               "SELECT TaskTime, ToolNum From Matrix WHERE (ResourceId = " + NumberText(resource) +
                   " AND TaskId Between " + NumberText(low) + " And " + NumberText(high) +
                   ") ORDER BY " + (by_tool ? "ToolNum;" : "TaskId;"));
    }

    /// Without an order the rows of a pair may come in any, but all of them and always alike.
    void SelectPair() {
        const int resource = Number(1, 4);
        const int task = Number(0, 5);
        const std::string sql =
            "SELECT TaskTime, ToolNum FROM Matrix WHERE ResourceId = " + NumberText(resource) +
            " AND TaskId = " + NumberText(task) + ";";
        Texts expected;
        for (const Cell& cell : m_cells) {
            if (cell.Resource == resource && cell.Task == task) {
                expected.push_back(Text(cell));
            }
        }
        const Texts first = m_model.RowsOf(sql, 2);
        Texts rows = first;
        std::sort(expected.begin(), expected.end());
        std::sort(rows.begin(), rows.end());
        RC_ASSERT(rows == expected);
        for (int again = 0; again < 20; ++again) {
            RC_ASSERT(m_model.RowsOf(sql, 2) == first);
        }
    }

    void SelectTwo() const {
        const double time = Number(0, 9) / 4.0;
        std::vector<Cell> found;
        std::copy_if(m_cells.begin(), m_cells.end(), std::back_inserter(found),
                     [&](const Cell& cell) { return cell.Time == time; });
        std::stable_sort(found.begin(), found.end(), [](const Cell& a, const Cell& b) {
            return std::tie(a.Resource, a.Task) < std::tie(b.Resource, b.Task);
        });
        Expect(found, "SELECT TaskTime, ToolNum FROM Matrix WHERE TaskTime = " + NumberText(time) +
                          " ORDER BY ResourceId, TaskId;");
    }

  private:
    static int Number(int low, int high) { return *rc::gen::inRange(low, high + 1); }

    static std::string Text(const Cell& cell) {
        return NumberText(cell.Time) + "|" + NumberText(cell.Tool);
    }
    void Expect(const std::vector<Cell>& cells, const std::string& sql) const {
        Texts expected;
        for (const Cell& cell : cells) {
            expected.push_back(Text(cell));
        }
        RC_ASSERT(m_model.RowsOf(sql, 2) == expected);
    }

    const TestModel& m_model;
    Database m_database;
    std::vector<Cell> m_cells;
};

/// Random changes, each followed by a burst of selections.
void Exercise(MatrixTwin& twin) {
    const int rounds = *rc::gen::inRange(1, 6);
    for (int round = 0; round < rounds; ++round) {
        for (int change = *rc::gen::inRange(0, 8); change > 0; --change) {
            const int kind = *rc::gen::inRange(0, 4);
            kind == 0 ? twin.DeleteOne() : (kind == 1 ? twin.EditFirst() : twin.Add());
        }
        for (int read = 0; read < 12; ++read) {
            twin.SelectRange();
            twin.SelectTwo();
        }
    }
}

TEST(SelectionProperty, SelectsTheRowsThatMeetItsNumbers) {
    EXPECT_TRUE(rc::check([] {
        const TestModel model;
        MatrixTwin twin(model);
        Exercise(twin);
    }));
}

TEST(SelectionProperty, SelectsTheSameRowsInsideATransaction) {
    EXPECT_TRUE(rc::check([] {
        const TestModel model;
        const Database database = model.Open();
        MatrixTwin twin(model);
        const Transaction transaction(database);
        Exercise(twin);
    }));
}

TEST(SelectionProperty, SelectsAPairAlikeHoweverOftenItIsRead) {
    EXPECT_TRUE(rc::check([] {
        const TestModel model;
        const Database database = model.Open();
        MatrixTwin twin(model);
        const Transaction transaction(database);
        for (int rows = *rc::gen::inRange(1, 12); rows > 0; --rows) {
            twin.Add();
        }
        for (int task = 0; task < 10; ++task) {
            twin.SelectPair();
        }
    }));
}

}  // namespace
}  // namespace quarnel02
