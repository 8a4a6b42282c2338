// The solver against every possible line of small random models, costed by arithmetic of the
// test's own.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "support/Dice.h"
#include "support/LoadedModel.h"

namespace quarnel02 {
namespace {

using test::Dice;
using test::LoadedModel;
using test::ModelScript;
using test::ResourceRow;

constexpr int kModels = 400;

struct Order {
    int Shifts;
    double Demand;
    int Limit;  ///< -1 is none
};

float Single(double value) {
    return static_cast<float>(value);
}

double Wide(float value) {
    return value;
}

ModelScript RandomModel(Dice& dice) {
    ModelScript model;
    model.Tasks = dice(1, 6);
    model.Days = dice(200, 300);
    model.ACF = dice(10, 40) / 100.0;
    model.LaborCost = dice(5, 40);
    model.TransportTime = dice(0, 10);
    const int priced = dice.OneIn(4) ? 0 : 1;  // 0 is a line that costs nothing
    model.LaborCost *= priced;
    const int gaps = dice(0, 2);  // 0 is a matrix without gaps
    const int resources = dice(1, 4);
    for (int resource = 1; resource <= resources; ++resource) {
        model.Resources.push_back({"R" + std::to_string(resource), dice(0, 3),
                                   dice(0, 100) * 1000.0 * priced, (dice(0, 20) + 0.5) * priced,
                                   static_cast<double>(dice(70, 100)), dice(10, 20) / 10.0,
                                   dice(0, 12) + 0.25, dice(1, 12) / 2.0});
        for (int task = 1; task <= model.Tasks; ++task) {
            if (gaps == 0 || !dice.OneIn(8 / gaps)) {
                model.Matrix.push_back({resource, task, dice(1, 600) / 10.0, dice(1, 3),
                                        dice(0, 200) * 100.0 * priced});
            }
        }
    }
    return model;
}

Order RandomOrder(Dice& dice) {
    return {dice(1, 3), dice(20, 400) * 1000.0, dice.OneIn(2) ? -1 : dice(1, 4)};
}

std::optional<MatrixRow> RowOf(const ModelScript& model, int resource, int task) {
    for (const MatrixRow& row : model.Matrix) {
        if (row.Resource == resource && row.Task == task) {
            return row;
        }
    }
    return std::nullopt;
}

float ToolSet(const std::vector<MatrixRow>& rows) {
    std::map<int, double> cost_of_tool;
    for (const MatrixRow& row : rows) {
        cost_of_tool.emplace(row.Entry.ToolNum,
                             row.Entry.ToolCost);  // the first task that names it counts
    }
    float sum = 0;
    for (const auto& [tool, cost] : cost_of_tool) {
        sum = Single(Wide(sum) + cost);
    }
    return sum;
}

float Work(const std::vector<MatrixRow>& rows, const ResourceRow& resource, double transport) {
    float time = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        time = Single(Wide(time) + rows[i].Entry.TaskTime / (resource.UpTime * 0.01));
        if (i > 0 && rows[i].Entry.ToolNum != rows[i - 1].Entry.ToolNum) {
            time = Single(Wide(time) + resource.ToolChange);
        }
    }
    const bool tool_back = rows.front().Entry.ToolNum == rows.back().Entry.ToolNum;
    const double end = tool_back ? transport : std::max(transport, resource.ToolChange);
    return Single(Wide(time) + end / (resource.UpTime * 0.01));
}

/// Yearly cost of the tasks first to last on a resource; none when it cannot do them or needs
/// more stations than the limit.
std::optional<float> CostOf(const ModelScript& model, const Order& order, int id, int first,
                            int last) {
    std::vector<MatrixRow> rows;
    for (int task = first; task <= last; ++task) {
        const auto row = RowOf(model, id, task);
        if (!row) {
            return std::nullopt;
        }
        rows.push_back(*row);
    }
    const ResourceRow& resource = model.Resources[static_cast<std::size_t>(id) - 1];
    const float available = Single(model.Days * order.Shifts * 8 * 3600 / order.Demand);
    const float work = Work(rows, resource, model.TransportTime);
    int stations = 1;
    float time = work;
    while (Wide(time) > Wide(available) * (1 + 1e-6)) {
        time = Single(Wide(work) / ++stations);
    }
    if (order.Limit != -1 && stations > order.Limit) {
        return std::nullopt;
    }
    const float investment =
        Single(stations * (Wide(ToolSet(rows)) + resource.FixedCost) * resource.ICF);
    const double machine =
        (resource.VarCost / 3600) * order.Demand * Wide(time) * resource.UpTime * 0.01;
    const double labour =
        stations * (order.Shifts * 8.0) * model.Days * model.LaborCost / resource.StatPerWrk;
    return Single(Wide(Single(machine + labour)) + Wide(investment) * model.ACF);
}

constexpr float kNone = std::numeric_limits<float>::infinity();

/// Least cost of every arc by start and end node; kNone where none is feasible.
using ArcCosts = std::map<std::pair<int, int>, float>;

ArcCosts CostArcs(const ModelScript& model, const Order& order) {
    ArcCosts costs;
    for (int start = 1; start <= model.Tasks; ++start) {
        for (int end = start + 1; end <= model.Tasks + 1; ++end) {
            for (int id = 1; id <= static_cast<int>(model.Resources.size()); ++id) {
                if (const auto cost = CostOf(model, order, id, start, end - 1)) {
                    const auto arc = costs.emplace(std::pair(start, end), kNone).first;
                    arc->second = std::min(arc->second, *cost);
                }
            }
        }
    }
    return costs;
}

/// Cheapest of all chains that go on from `node`, reached at `cost`, to `end`.
float CheapestFrom(const ArcCosts& arcs, int node, float cost, int end) {
    if (node == end) {
        return cost;
    }
    float best = kNone;
    for (int next = node + 1; next <= end; ++next) {
        const auto arc = arcs.find({node, next});
        if (arc != arcs.end()) {
            const float reached = Single(Wide(cost) + Wide(arc->second));
            best = std::min(best, CheapestFrom(arcs, next, reached, end));
        }
    }
    return best;
}

int LastNode(const ArcCosts& arcs) {
    int last = 0;
    for (const auto& [nodes, cost] : arcs) {
        last = std::max(last, nodes.second);
    }
    return last;
}

/// Cheapest line to the last node: from node 1, or by the arc that the search meets first.
float CheapestLine(const ArcCosts& arcs) {
    const int end = LastNode(arcs);
    const auto first = std::min_element(arcs.begin(), arcs.end(), [](const auto& a, const auto& b) {
        return std::pair(a.first.second, a.first.first) < std::pair(b.first.second, b.first.first);
    });
    return std::min(CheapestFrom(arcs, 1, 0, end),
                    CheapestFrom(arcs, first->first.second, first->second, end));
}

std::string Dollars(double amount) {
    const auto whole = std::llround(amount);
    std::string digits = whole == 0 ? "" : std::to_string(whole);  // "$#,###" prints no 0
    for (auto at = static_cast<int>(digits.size()) - 3; at > 0; at -= 3) {
        digits.insert(static_cast<std::size_t>(at), ",");
    }
    return "$" + digits;
}

/// The chosen line goes from node 1 to `end` without a gap, and costs what the report says.
void ExpectLine(const LoadedModel& model, int end, float cost) {
    RecordSet chosen = model.Copy.Open().OpenRecordSet(
        "SELECT Arcs.TaskStart, Arcs.TaskEnd, Pathways.Cost FROM Pathways INNER JOIN Arcs ON "
        "Pathways.ArcId = Arcs.ArcId WHERE Pathways.Feasible = 4 ORDER BY Arcs.TaskStart;");
    int node = 1;
    double total = 0;
    for (; !chosen.Eof(); chosen.MoveNext()) {
        EXPECT_EQ(chosen.Integer(0), node);
        node = chosen.Integer(1);
        total += chosen.Number(2);
    }
    EXPECT_EQ(node, end);
    EXPECT_NEAR(total, Wide(cost), Wide(cost) * 1e-6);
    const RecordSet label =
        model.Copy.Open().OpenRecordSet("SELECT * FROM BestPaths ORDER BY ThisPath DESC;");
    EXPECT_EQ(label.Integer(0), end);
    EXPECT_EQ(label.Single(3), cost);
    EXPECT_NE(model.Report().find("\nTotal Cost:         " + Dollars(total) + "\n"),
              std::string::npos)
        << model.Report();
}

/// A line that leaves tasks out is said to do so, and no other.
void ExpectLeftOut(const LoadedModel& model, int end, int tasks) {
    const std::string& last = model.Form.Events.back();
    const std::string message = "message[critical]: This line ends after task " +
                                std::to_string(end - 1) + ": no resource can do tasks " +
                                std::to_string(end) + " to " + std::to_string(tasks) +
                                " within the limits.";
    EXPECT_EQ(last == message, end <= tasks) << last;
    EXPECT_EQ(last.starts_with("start: "), end > tasks) << last;
}

/// A solve without a report ends with one message. Only without a buildable arc it is that of the
/// costing, and without any matrix row that of the empty tables.
void ExpectReason(const LoadedModel& model, const ModelScript& script, const ArcCosts& arcs) {
    ASSERT_FALSE(model.Form.Events.empty());
    const std::string& last = model.Form.Events.back();
    const bool incomplete =
        last == "message[information]: Please complete the task and resource tables first.";
    const bool infeasible = last == "message[critical]: There is not a feasible solution!";
    EXPECT_TRUE(incomplete || infeasible || last.ends_with(": There is no feasible solution.") ||
                last == "message[critical]: There is no feasible solution!")
        << last;
    EXPECT_EQ(incomplete, script.Matrix.empty());
    EXPECT_EQ(incomplete || infeasible, arcs.empty());
}

/// A line from the first task to the last is found whenever each task can be done on its own.
bool EveryTaskCanStandAlone(const ArcCosts& arcs, int tasks) {
    for (int task = 1; task <= tasks; ++task) {
        if (!arcs.contains({task, task + 1})) {
            return false;
        }
    }
    return true;
}

TEST(SolverAndBruteForce, AgreeOnRandomModels) {
    int reports = 0;
    for (unsigned seed = 1; seed <= kModels; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Dice dice(seed);
        const ModelScript script = RandomModel(dice);
        const Order order = RandomOrder(dice);
        LoadedModel model(script);
        model.Solve(order.Shifts, NumberText(order.Demand),
                    order.Limit == -1 ? "" : NumberText(order.Limit));
        const ArcCosts arcs = CostArcs(script, order);
        if (model.HasReport()) {
            ++reports;
            ExpectLine(model, LastNode(arcs), CheapestLine(arcs));
            ExpectLeftOut(model, LastNode(arcs), script.Tasks);
        } else {
            ExpectReason(model, script, arcs);
            EXPECT_FALSE(EveryTaskCanStandAlone(arcs, script.Tasks));
        }
    }
    RecordProperty("reports", reports);
    EXPECT_GE(reports, kModels / 2);
}

}  // namespace
}  // namespace quarnel02
