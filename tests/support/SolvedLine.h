#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "fixed/WriteSolutionSummary.h"
#include "shell/LoadLineModel.h"
#include "support/ModelScript.h"
#include "support/ScriptedForm.h"
#include "support/TestModel.h"

namespace quarnel02::test {

/// A chosen pathway and what the report shows of it; Tools has one entry per task.
struct ChosenStation {
    int TaskStart;
    int Resource;
    std::string ShortName;
    int Quantity;
    double Cost;
    double Time;
    std::vector<int> Tools;
    double Investment = 0;
    double AnnualLabor = 0;
    int Type = 0;

    [[nodiscard]] int TaskEnd() const { return TaskStart + static_cast<int>(Tools.size()); }
};

/// SQL of a solved model whose line is these stations, in line order.
inline std::string SolvedLineSql(const std::vector<ChosenStation>& line) {
    std::string sql;
    int id = 0;
    for (const ChosenStation& station : line) {
        const std::string number = NumberText(++id);
        const std::string resource = NumberText(station.Resource);
        const std::string start = NumberText(station.TaskStart);
        const std::string end = NumberText(station.TaskEnd());
        sql += "DELETE FROM Resources WHERE ResourceId = " + resource + ";\n";
        sql += SqlInsert("Resources", {resource, "'" + station.ShortName + "'", "''",
                                       NumberText(station.Type), "0", "0", "100", "1", "0", "1"});
        sql += SqlInsert("Arcs", {number, start, end, "0", "0", "0", "0"});
        sql += SqlInsert("Pathways",
                         {number, number, resource, "4", NumberText(station.Cost),
                          NumberText(station.Time), NumberText(station.Quantity),
                          NumberText(station.Investment), NumberText(station.AnnualLabor)});
        sql += SqlInsert("BestPaths", {end, number, start, "0"});
        int task = station.TaskStart;
        for (const int tool : station.Tools) {
            sql += SqlInsert("Matrix", {resource, NumberText(task++), "1", NumberText(tool), "0"});
        }
    }
    int resources = 0;
    int tasks = 0;
    for (const ChosenStation& station : line) {
        resources = std::max(resources, station.Resource);
        tasks = std::max(tasks, station.TaskEnd() - 1);
    }
    return sql + "UPDATE Gen SET Days = 25, Resources = " + NumberText(resources) +
           ", Tasks = " + NumberText(tasks) + ";\n";
}

/// A form on a solved model, designed for 60,000 units in two shifts: 24 s are available.
struct SolvedLine {
    explicit SolvedLine(const std::vector<ChosenStation>& line, const std::string& more = "")
        : Copy(SolvedLineSql(line) + more), Form(Copy.Directory()) {}

    /// Writes the summary and gives the report.
    std::string Write() {
        const Database database = Copy.Open();
        WriteSolutionSummary(database, LoadLineModel(database), Order, Form,
                             Copy.File("RunRpt.txt"));
        return ReadFile(Copy.File("RunRpt.txt"));
    }

    TestModel Copy;
    ScriptedForm Form;
    FixedDemandOrder Order{{.Volume = 60000, .Shifts = 2, .StationLimit = {}}, "--"};
};

}  // namespace quarnel02::test
