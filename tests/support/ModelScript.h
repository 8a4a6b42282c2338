#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "basic/Numbers.h"
#include "line/LineModel.h"

namespace quarnel02::test {

/// A resource as a test writes it down; without figures it has no cost and no tool change.
struct ResourceRow : Resource {
    ResourceRow(std::string shortName = "Res", int type = 0, double fixedCost = 0,
                double varCost = 0, double upTime = 100, double icf = 1, double toolChange = 0,
                double statPerWrk = 1)
        : Resource{0,   std::move(shortName), "Described", type, fixedCost, varCost, upTime,
                   icf, toolChange,           statPerWrk} {}
};

/// A small model, for the tables of a database or as a value. Resources are numbered from 1 in
/// order, whatever their number says; tasks have no text.
struct ModelScript : Production {
    ModelScript() : Production{250, 0.25, 20, 0, 0, "Untitled"} {}

    int Tasks = 0;
    std::vector<ResourceRow> Resources;
    std::vector<MatrixRow> Matrix;
    std::vector<DemandPoint> Demand;

    /// SQL to run after the schema, which has put the row of Gen in. Table Tasks gets no rows.
    [[nodiscard]] std::string Sql() const;
    [[nodiscard]] LineModel Model() const;

    [[nodiscard]] std::vector<Resource> NumberedResources() const;
    [[nodiscard]] std::vector<Task> NumberedTasks() const;
};

/// "(1, 2.5, 'x')" of values that are SQL already.
inline std::string SqlRow(std::initializer_list<std::string> values) {
    std::string row;
    for (const std::string& value : values) {
        row += (row.empty() ? "(" : ", ") + value;
    }
    return row + ")";
}

inline std::string SqlInsert(const std::string& table, std::initializer_list<std::string> values) {
    return "INSERT INTO " + table + " VALUES " + SqlRow(values) + ";\n";
}

inline std::string ModelScript::Sql() const {
    std::string sql = "UPDATE Gen SET Tasks = " + NumberText(Tasks) +
                      ", Resources = " + NumberText(static_cast<int>(Resources.size())) +
                      ", Days = " + NumberText(Days) + ", ACF = " + NumberText(ACF) +
                      ", LaborCost = " + NumberText(LaborCost) +
                      ", TransportTime = " + NumberText(TransportTime) +
                      ", Penalty = " + NumberText(Penalty) + ", Product = '" + Product + "';\n";
    for (const Resource& row : NumberedResources()) {
        sql += SqlInsert("Resources", {NumberText(row.Number), "'" + row.ShortName + "'",
                                       "'" + row.Description + "'", NumberText(row.Type),
                                       NumberText(row.FixedCost), NumberText(row.VarCost),
                                       NumberText(row.UpTime), NumberText(row.ICF),
                                       NumberText(row.ToolChange), NumberText(row.StatPerWrk)});
    }
    for (const auto& [resource, task, entry] : Matrix) {
        sql +=
            SqlInsert("Matrix", {NumberText(resource), NumberText(task), NumberText(entry.TaskTime),
                                 NumberText(entry.ToolNum), NumberText(entry.ToolCost)});
    }
    for (const auto& [volume, percent] : Demand) {
        sql += SqlInsert(
            "Demand", {NumberText(DecimalOfSingle(volume)), NumberText(DecimalOfSingle(percent))});
    }
    return sql;
}

inline LineModel ModelScript::Model() const {
    return {*this, NumberedResources(), NumberedTasks(), Matrix, Demand};
}

inline std::vector<Resource> ModelScript::NumberedResources() const {
    std::vector<Resource> numbered(Resources.begin(), Resources.end());
    for (std::size_t place = 0; place < numbered.size(); ++place) {
        numbered[place].Number = static_cast<int>(place) + 1;
    }
    return numbered;
}

inline std::vector<Task> ModelScript::NumberedTasks() const {
    std::vector<Task> tasks;
    for (int number = 1; number <= Tasks; ++number) {
        tasks.push_back({number, ""});
    }
    return tasks;
}

/// One resource on two tasks with one tool: 64,335.55 dollars for 100,000 units in one shift.
inline ModelScript WorkedExample() {
    ModelScript model;
    model.Tasks = 2;
    model.ACF = 0.3;
    model.LaborCost = 15;
    model.TransportTime = 5;
    model.Resources = {{"Press", 1, 10000, 20, 90, 1.2, 10, 1}};
    model.Matrix = {{1, 1, 30, 1, 500}, {1, 2, 20, 1, 500}};
    return model;
}

}  // namespace quarnel02::test
