#pragma once

#include <string>
#include <utility>
#include <vector>

#include "basic/Numbers.h"

namespace quarnel02::test {

struct ResourceRow {
    std::string ShortName = "Res";
    int Type = 0;
    double FixedCost = 0;
    double VarCost = 0;
    double UpTime = 100;
    double Icf = 1;
    double ToolChange = 0;
    double StatPerWrk = 1;
};

struct MatrixRow {
    int Resource;
    int Task;
    double Time;
    int Tool = 1;
    double ToolCost = 0;
};

/// The rows of a small model; resources are numbered from 1 in order.
struct ModelScript {
    int Tasks = 0;
    double Days = 250;
    double Acf = 0.25;
    double LaborCost = 20;
    double TransportTime = 0;
    std::vector<ResourceRow> Resources;
    std::vector<MatrixRow> Matrix;
    std::vector<std::pair<double, double>> Demand;  ///< volume, percent

    /// SQL to run after the schema, which has put the row of Gen in.
    [[nodiscard]] std::string Sql() const;
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
                      ", Days = " + NumberText(Days) + ", ACF = " + NumberText(Acf) +
                      ", LaborCost = " + NumberText(LaborCost) +
                      ", TransportTime = " + NumberText(TransportTime) + ";\n";
    int id = 0;
    for (const ResourceRow& row : Resources) {
        sql += SqlInsert(
            "Resources",
            {NumberText(++id), "'" + row.ShortName + "'", "'Described'", NumberText(row.Type),
             NumberText(row.FixedCost), NumberText(row.VarCost), NumberText(row.UpTime),
             NumberText(row.Icf), NumberText(row.ToolChange), NumberText(row.StatPerWrk)});
    }
    for (const MatrixRow& row : Matrix) {
        sql += SqlInsert("Matrix",
                         {NumberText(row.Resource), NumberText(row.Task), NumberText(row.Time),
                          NumberText(row.Tool), NumberText(row.ToolCost)});
    }
    for (const auto& [volume, percent] : Demand) {
        sql += SqlInsert("Demand", {NumberText(volume), NumberText(percent)});
    }
    return sql;
}

/// One resource on two tasks with one tool: 64,335.55 dollars for 100,000 units in one shift.
inline ModelScript WorkedExample() {
    ModelScript model;
    model.Tasks = 2;
    model.Acf = 0.3;
    model.LaborCost = 15;
    model.TransportTime = 5;
    model.Resources = {{"Press", 1, 10000, 20, 90, 1.2, 10, 1}};
    model.Matrix = {{1, 1, 30, 1, 500}, {1, 2, 20, 1, 500}};
    return model;
}

}  // namespace quarnel02::test
