#pragma once

#include <string>

#include "sheets/InputTables.h"
#include "sheets/NumberedRows.h"
#include "sheets/UndoStack.h"

namespace quarnel02::test {

inline InputRow TaskRow(int number, const std::string& text) {
    return {std::int64_t{number}, text};
}

inline InputRow ResourceRowOf(int number, const std::string& name) {
    InputRow row = NewRecord(RecordKind::Resources, static_cast<std::size_t>(number));
    row[ResourceColumn::ShortName] = name;
    return row;
}

inline InputRow PairRow(int task, int resource, double time, int tool, double cost) {
    return {std::int64_t{resource}, std::int64_t{task}, time, std::int64_t{tool}, cost};
}

/// So many tasks T1, T2... and resources R1, R2..., without pairs.
inline InputTables EmptyMatrixModel(int tasks, int resources) {
    InputTables tables;
    for (int task = 1; task <= tasks; ++task) {
        tables.Tasks.push_back(TaskRow(task, "T" + std::to_string(task)));
    }
    for (int resource = 1; resource <= resources; ++resource) {
        tables.Resources.push_back(ResourceRowOf(resource, "R" + std::to_string(resource)));
    }
    tables.Gen = {{std::int64_t{resources}, std::int64_t{tasks}, 250.0, 0.25, 20.0, 5.0, 0.0,
                   std::string("Untitled")}};
    return tables;
}

inline InputRow ScenarioRow(const std::string& name, const std::string& differences) {
    return {name, differences};
}

/// Three tasks and two resources; no row of task 3 on resource 1, and none of task 1 on 2.
inline InputTables SmallModel() {
    InputTables tables = EmptyMatrixModel(3, 2);
    tables.Matrix = {PairRow(1, 1, 12.5, 3, 400), PairRow(2, 1, 0, 0, 0),
                     PairRow(2, 2, 7, 1, 38000), PairRow(3, 2, 9, 2, 26000)};
    tables.Demand = {{33.3, 40.0}, {1000.0, 60.0}};
    return tables;
}

/// Stores the tables and notes that as a step.
inline void StoreStep(UndoStack& stack, const Database& database, const std::string& name,
                      const InputTables& after) {
    const InputTables before = ReadInputTables(database);
    WriteInputTables(database, after);
    stack.Push(name, before, after);
}

}  // namespace quarnel02::test
