#pragma once

#include <string>
#include <utility>
#include <vector>

#include "commands/LoadModel.h"
#include "commands/cmdContinuous.h"
#include "shell/Demand.h"
#include "support/ModelScript.h"
#include "support/ScriptedForm.h"
#include "support/TestModel.h"

namespace quarnel02::test {

inline constexpr const char* kAllPathways = "SELECT * FROM Pathways;";
inline constexpr const char* kAllArcs = "SELECT * FROM Arcs;";
inline constexpr const char* kAllLabels = "SELECT * FROM BestPaths;";

/// A working copy shown in a scripted form, its network built; what loading recorded is dropped.
struct LoadedModel {
    explicit LoadedModel(const std::string& sql) : Copy(sql), Form(Copy.Directory()) {
        LoadModel(Form);
        ListDemand(Form.Copy(), Form);
        Form.Events.clear();
    }
    explicit LoadedModel(const ModelScript& model) : LoadedModel(model.Sql()) {}

    /// Presses a shift button on a model without demand rows; "" is no station limit.
    void Solve(int shifts, const std::string& demand, const std::string& limit = "") {
        Form.InputAnswers = {demand};
        Form.YesNoAnswers = {!limit.empty()};
        if (!limit.empty()) {
            Form.InputAnswers.push_back(limit);
        }
        cmdContinuous_Click(Form, static_cast<std::int16_t>(shifts));
    }

    [[nodiscard]] std::string Report() const { return ReadFile(Copy.File("RunRpt.txt")); }
    [[nodiscard]] bool HasReport() const {
        return std::filesystem::exists(Copy.File("RunRpt.txt"));
    }

    [[nodiscard]] std::vector<std::string> States() const {
        return Copy.RowsOf("SELECT Feasible FROM Pathways ORDER BY PathId;", 1);
    }

    /// Whole contents of the derived tables.
    [[nodiscard]] std::vector<std::string> DerivedTables() const {
        std::vector<std::string> rows = Copy.RowsOf(kAllArcs, 7);
        for (const auto& [sql, fields] : {std::pair(kAllPathways, 9), std::pair(kAllLabels, 4)}) {
            const auto more = Copy.RowsOf(sql, fields);
            rows.insert(rows.end(), more.begin(), more.end());
        }
        return rows;
    }

    TestModel Copy;
    ScriptedForm Form;
};

}  // namespace quarnel02::test
