// Neither the order in which a model was entered nor that of the rows in its file matters.

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "picture/SvgWriter.h"
#include "support/StochSolve.h"

namespace quarnel02 {
namespace {

using test::ModelScript;
using test::StochSolve;

using Lines = std::vector<std::string>;

/// A model that has lines, some with gaps in the matrix, tools of different costs and texts.
ModelScript ArbitraryModel() {
    ModelScript model;
    model.Tasks = *rc::gen::inRange(1, 6);
    model.Days = *rc::gen::inRange(1, 300);
    model.TransportTime = *rc::gen::inRange(0, 9);
    const int resources = *rc::gen::inRange(1, 5);
    for (int resource = 1; resource <= resources; ++resource) {
        model.Resources.push_back({"R" + NumberText(resource), *rc::gen::inRange(0, 4),
                                   static_cast<double>(*rc::gen::inRange(0, 90000)),
                                   static_cast<double>(*rc::gen::inRange(0, 30)),
                                   static_cast<double>(*rc::gen::inRange(50, 101)),
                                   *rc::gen::inRange(10, 20) / 10.0,
                                   static_cast<double>(*rc::gen::inRange(0, 12)),
                                   static_cast<double>(*rc::gen::inRange(1, 5))});
        for (int task = 1; task <= model.Tasks; ++task) {
            if (resource == 1 || *rc::gen::inRange(0, 4) != 0) {
                model.Matrix.push_back({resource, task, *rc::gen::inRange(1, 600) / 10.0,
                                        *rc::gen::inRange(1, 4),
                                        static_cast<double>(*rc::gen::inRange(0, 9000))});
            }
        }
    }
    const int points = *rc::gen::inRange(2, 6);
    for (int point = 1; point <= points; ++point) {
        const float volume = static_cast<float>(point * *rc::gen::inRange(1, 9)) * 1000;
        model.Demand.push_back({volume, 100.0F / static_cast<float>(points)});
    }
    return model;
}

/// Statements of a script: what updates Gen, then the tasks, then all rows in another order.
std::string Shuffled(const std::string& script, unsigned seed) {
    std::istringstream text(script);
    Lines rows;
    for (std::string line; std::getline(text, line);) {
        rows.push_back(line + "\n");
    }
    std::shuffle(rows.begin(), rows.end(), std::mt19937(seed));
    std::string shuffled;
    for (const std::string& row : rows) {
        shuffled += row;
    }
    return shuffled;
}

std::string WithTasks(const ModelScript& model) {
    std::string script = model.Sql();
    for (int task = 1; task <= model.Tasks; ++task) {
        script += test::SqlInsert("Tasks", {NumberText(task), "'Task " + NumberText(task) + "'"});
    }
    return script;
}

/// Everything that a design leaves: pictures, tables, reports, and what was said.
Lines Left(StochSolve& solve, const std::string& report) {
    Lines left = solve.DerivedTables();
    left.push_back(ToSvg(solve.Form.picArc));
    for (const Picture& picture : solve.Form.picGraph) {
        left.push_back(ToSvg(picture));
    }
    const auto file = solve.Copy.File(report);
    left.push_back(std::filesystem::exists(file) ? ReadFile(file) : "none");
    for (const std::string& event : solve.Form.Events) {
        if (!event.starts_with("start: ")) {
            left.push_back(event);
        }
    }
    return left;
}

Lines FixedDesign(const std::string& script, int shifts, const std::string& demand,
                  const std::string& limit) {
    StochSolve solve(script);
    solve.Form.ClearDemand();  // the demand is asked for
    solve.Solve(shifts, demand, limit);
    return Left(solve, "RunRpt.txt");
}

Lines StochasticDesign(const std::string& script, const std::string& penalty) {
    StochSolve solve(script, penalty);
    solve.Press();
    return Left(solve, "ProdRpt.txt");
}

RC_GTEST_PROP(RowOrder, DoesNotMatterForAFixedDemand, ()) {
    const std::string script = WithTasks(ArbitraryModel());
    const std::string shuffled = Shuffled(script, *rc::gen::arbitrary<unsigned>());
    const int shifts = *rc::gen::inRange(1, 4);
    const std::string demand = NumberText(*rc::gen::inRange(100, 200000));
    const std::string limit = *rc::gen::element<std::string>("", "1", "3", "10");
    RC_ASSERT(FixedDesign(shuffled, shifts, demand, limit) ==
              FixedDesign(script, shifts, demand, limit));
}

RC_GTEST_PROP(RowOrder, DoesNotMatterForAnUncertainDemand, ()) {
    const std::string script = WithTasks(ArbitraryModel());
    const std::string shuffled = Shuffled(script, *rc::gen::arbitrary<unsigned>());
    const std::string penalty = *rc::gen::element<std::string>("0", "0.5", "15");
    RC_ASSERT(StochasticDesign(shuffled, penalty) == StochasticDesign(script, penalty));
}

}  // namespace
}  // namespace quarnel02
