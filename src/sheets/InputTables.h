#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "model/Database.h"
#include "model/Value.h"

namespace quarnel02 {

/// A row's values in the order of the table's columns.
using InputRow = std::vector<Value>;
using TableRows = std::vector<InputRow>;

/// What the planner enters, whole: the rows of Gen, Tasks, Resources, Matrix, Demand and Scenarios
/// as they stand in the tables, in their order. The other tables are made of these. Equal values
/// are equal tables, row for row and bit for bit.
struct InputTables {
    TableRows Gen;
    TableRows Tasks;
    TableRows Resources;
    TableRows Matrix;
    TableRows Demand;
    TableRows Scenarios;

    bool operator==(const InputTables&) const = default;
};

/// A table of InputTables and its name.
struct InputTable {
    std::string_view Name;
    TableRows InputTables::*Rows;
};

/// The input tables in the order of the schema.
const std::vector<InputTable>& AllInputTables();

// Places of the columns in a row.
struct GenColumn {
    enum : std::size_t { Resources, Tasks, Days, ACF, LaborCost, TransportTime, Penalty, Product };
};
struct TaskColumn {
    enum : std::size_t { TaskId, Description };
};
struct ResourceColumn {
    enum : std::size_t {
        ResourceId,
        ShortName,
        Description,
        Type,
        FixedCost,
        VarCost,
        UpTime,
        ICF,
        ToolChange,
        StatPerWrk
    };
};
struct MatrixColumn {
    enum : std::size_t { ResourceId, TaskId, TaskTime, ToolNum, ToolCost };
};
struct DemandColumn {
    enum : std::size_t { Volume, Prob };
};
struct ScenarioColumn {
    enum : std::size_t { Name, Differences };
};

/// Reads all rows; of a table of scenarios that is missing, none. Throws what the store reports.
InputTables ReadInputTables(const Database& database);

/// Makes the database hold exactly these rows, in a transaction of its own.
/// Tables that hold them already are not written; the rows of all others are new ones, so that
/// record sets on them are to be opened again. Scenarios need their table. Throws what the store
/// reports; nothing is then changed.
void WriteInputTables(const Database& database, const InputTables& tables);

}  // namespace quarnel02
