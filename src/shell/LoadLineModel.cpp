#include "shell/LoadLineModel.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "shell/Demand.h"

namespace quarnel02 {

namespace {

/// How many tasks and resources count.
struct Counts {
    int Resources;
    int Tasks;
};

bool IsCounted(const RecordSet& row, int position, int count) {
    return !IsNull(row.Field(position)) && row.Number(position) >= 1 &&
           row.Number(position) <= count;
}

Production ProductionOf(const RecordSet& gen) {
    return {.Days = gen.Number(2),
            .ACF = gen.Number(3),
            .LaborCost = gen.Number(4),
            .TransportTime = gen.Number(5),
            .Penalty = gen.Number(6),
            .Product = gen.Text(7)};
}

std::vector<Task> TasksOfLine(const Database& database, int count) {
    std::vector<Task> tasks(static_cast<std::size_t>(count));
    RecordSet rows = database.OpenRecordSet("SELECT * FROM Tasks;");
    for (; !rows.Eof(); rows.MoveNext()) {
        if (!IsCounted(rows, 0, count)) {
            continue;
        }
        Task& task = tasks[static_cast<std::size_t>(rows.Integer(0)) - 1];
        if (task.Number == 0) {  // of two texts for one number the first counts
            task = {rows.Integer(0), rows.Text(1)};
        }
    }
    for (std::size_t place = 0; place < tasks.size(); ++place) {
        tasks[place].Number = static_cast<int>(place) + 1;
    }
    return tasks;
}

Resource ResourceOf(const RecordSet& row) {
    constexpr int no_type = -1;  // is drawn without an icon
    return {.Number = row.Integer(0),
            .ShortName = row.Text(1),
            .Description = row.Text(2),
            .Type = IsNull(row.Field(3)) ? no_type : row.Integer(3),
            .FixedCost = row.Number(4),
            .VarCost = row.Number(5),
            .UpTime = row.Number(6),
            .ICF = row.Number(7),
            .ToolChange = row.Number(8),
            .StatPerWrk = row.Number(9)};
}

/// By number; one without a row has the number 0.
std::vector<Resource> ResourcesOfLine(const Database& database, int count) {
    std::vector<Resource> resources(static_cast<std::size_t>(count));
    RecordSet rows = database.OpenRecordSet("SELECT * FROM Resources;");
    for (; !rows.Eof(); rows.MoveNext()) {
        if (IsCounted(rows, 0, count)) {
            resources[static_cast<std::size_t>(rows.Integer(0)) - 1] = ResourceOf(rows);
        }
    }
    return resources;
}

void RequireResource(const std::vector<Resource>& resources, int number) {
    if (resources[static_cast<std::size_t>(number) - 1].Number == 0) {
        throw RunTimeError(ErrorKind::NoCurrentRecord,
                           "The matrix has figures for resource " + NumberText(number) +
                               ", which the model does not have. Add it in the resource editor.");
    }
}

std::vector<MatrixRow> ReadMatrix(const Database& database,
                                  const std::vector<Resource>& resources) {
    std::vector<MatrixRow> matrix;
    RecordSet rows = database.OpenRecordSet("SELECT * FROM Matrix;");
    for (; !rows.Eof(); rows.MoveNext()) {
        const bool can = !IsNull(rows.Field(2)) && rows.Number(2) > 0;
        if (!can || !IsCounted(rows, 0, static_cast<int>(resources.size()))) {
            continue;
        }
        RequireResource(resources, rows.Integer(0));
        matrix.push_back(
            {rows.Integer(0), rows.Integer(1), {rows.Number(2), rows.Integer(3), rows.Number(4)}});
    }
    return matrix;
}

void NumberAll(std::vector<Resource>& resources) {
    for (std::size_t place = 0; place < resources.size(); ++place) {
        resources[place].Number = static_cast<int>(place) + 1;
    }
}

std::vector<DemandPoint> ReadDemand(const Database& database) {
    std::vector<DemandPoint> points;
    RecordSet rows = database.OpenRecordSet("SELECT * FROM Demand ORDER BY Volume;");
    for (; !rows.Eof(); rows.MoveNext()) {
        if (IsDemandPoint(rows)) {
            points.push_back({rows.Single(0), rows.Single(1)});
        }
    }
    return points;
}

}  // namespace

LineModel LoadLineModel(const Database& database) {
    const RecordSet gen = database.OpenRecordSet("SELECT * FROM Gen;");
    const Counts counts{gen.Integer(0), gen.Integer(1)};
    std::vector<Resource> resources = ResourcesOfLine(database, counts.Resources);
    const std::vector<MatrixRow> matrix = ReadMatrix(database, resources);
    NumberAll(resources);
    return {ProductionOf(gen), std::move(resources), TasksOfLine(database, counts.Tasks), matrix,
            ReadDemand(database)};
}

}  // namespace quarnel02
