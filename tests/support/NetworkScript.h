#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "commands/SolveFixedDemand.h"
#include "shell/LoadLineModel.h"
#include "support/LoadedModel.h"

namespace quarnel02::test {

/// A costed pathway on an arc of its own.
struct Way {
    int Start;
    int End;
    double Cost;
    int State = 1;
};

/// Arcs and pathways as given, with PathId from 1 and ArcId from 0 in the order given, on one
/// resource that can do every task.
inline std::string NetworkSql(const std::vector<Way>& ways) {
    ModelScript model;
    for (const Way& way : ways) {
        model.Tasks = std::max(model.Tasks, way.End - 1);
    }
    model.Resources.resize(1);
    for (int task = 1; task <= model.Tasks; ++task) {
        model.Matrix.push_back({1, task, 10, 1});
    }
    std::string sql = model.Sql();
    int id = 0;
    for (const Way& way : ways) {
        const std::string arc = NumberText(id++);
        sql += SqlInsert("Arcs",
                         {arc, NumberText(way.Start), NumberText(way.End), "0", "0", "0", "0"});
        sql += SqlInsert("Pathways", {NumberText(id), arc, "1", NumberText(way.State),
                                      NumberText(way.Cost), "10", "1", "100", "50"});
    }
    return sql;
}

/// A working copy with a costed network, ready for the search.
struct CostedNetwork {
    explicit CostedNetwork(const std::vector<Way>& ways)
        : Copy(NetworkSql(ways)), Form(Copy.Directory()) {
        int tasks = 0;
        for (const Way& way : ways) {
            tasks = std::max(tasks, way.End - 1);
        }
        Form.SetText(TextBox::txtTasks, NumberText(tasks));
    }

    /// The search, and what comes of it.
    void Search() {
        const Database database = Copy.Open();
        ReportLine(Form, database, LoadLineModel(database), Order);
    }

    [[nodiscard]] std::vector<std::string> Labels() const { return Copy.RowsOf(kAllLabels, 4); }
    [[nodiscard]] std::vector<std::string> States() const {
        return Copy.RowsOf("SELECT Feasible FROM Pathways ORDER BY PathId;", 1);
    }
    [[nodiscard]] bool HasReport() const {
        return std::filesystem::exists(Copy.File("RunRpt.txt"));
    }

    TestModel Copy;
    ScriptedForm Form;
    FixedDemandOrder Order{{.Volume = 1000, .Shifts = 1, .StationLimit = {}}, "--"};
};

}  // namespace quarnel02::test
