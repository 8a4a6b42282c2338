#include "fixed/GeneratePathways.h"

#include <vector>

#include "basic/Limits.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "fixed/Arcs.h"
#include "fixed/DrawLinks.h"
#include "model/RowWriter.h"

namespace quarnel02 {

namespace {

/// A row of Pathways to be.
struct NewPathway {
    int Arc;
    int Resource;
};

/// The pathways of all resources, whatever the matrix holds: a task entered twice counts twice, and
/// only a pathway to a task without an arc is refused. Models are opened with all of that.
class PathwayGenerator {
  public:
    explicit PathwayGenerator(const Arcs& arcs) : m_arcs(arcs) {}

    /// `tasks` of the resource in ascending order.
    void AddResource(int resource, const std::vector<int>& tasks);
    [[nodiscard]] const std::vector<NewPathway>& Pathways() const { return m_pathways; }

  private:
    void AddChain(int resource, const std::vector<int>& tasks, std::size_t first);
    void Append(int resource, int start, int end);
    [[nodiscard]] int ArcOf(int resource, int start, int end) const;

    const Arcs& m_arcs;
    std::vector<NewPathway> m_pathways;
};

void PathwayGenerator::AddResource(int resource, const std::vector<int>& tasks) {
    for (std::size_t first = 0; first < tasks.size(); ++first) {
        AddChain(resource, tasks, first);
    }
}

/// Pathways that start at a task and end at each task of its unbroken chain.
void PathwayGenerator::AddChain(int resource, const std::vector<int>& tasks, std::size_t first) {
    const int start = tasks[first];
    int current = start;
    Append(resource, start, current + 1);
    for (std::size_t next = first + 1; next < tasks.size() && tasks[next] == current + 1; ++next) {
        ++current;
        Append(resource, start, current + 1);
    }
}

int PathwayGenerator::ArcOf(int resource, int start, int end) const {
    const Arc* arc = m_arcs.Between(start, end);
    if (arc == nullptr) {
        throw RunTimeError(ErrorKind::NoCurrentRecord,
                           "Matrix: resource " + NumberText(resource) + " has a row for task " +
                               NumberText(end - 1) +
                               ", which the model does not have. Correct the number of tasks or "
                               "remove the row.");
    }
    return arc->Id;
}

void PathwayGenerator::Append(int resource, int start, int end) {
    if (m_pathways.size() == limits::kPathways) {
        throw RunTimeError(ErrorKind::Overflow,
                           "Pathways: the model has more than 32,767 pathways (a task range and a "
                           "resource that can do it). Remove tasks, resources or matrix rows.");
    }
    m_pathways.push_back({ArcOf(resource, start, end), resource});
}

/// The rows of the matrix with a task time, by resource and task.
class MatrixByResource {
  public:
    explicit MatrixByResource(const Database& database)
        : m_rows(database.OpenRecordSet("SELECT ResourceId, TaskId FROM Matrix WHERE TaskTime > 0 "
                                        "ORDER BY ResourceId, TaskId;")) {}

    /// Tasks of a resource, which must be above all that were asked for before.
    std::vector<int> TasksOf(int resource) {
        while (!m_rows.Eof() && (IsNull(m_rows.Field(0)) || m_rows.Number(0) < resource)) {
            m_rows.MoveNext();
        }
        std::vector<int> tasks;
        for (; !m_rows.Eof() && m_rows.Number(0) == resource; m_rows.MoveNext()) {
            tasks.push_back(m_rows.Integer(1));
        }
        return tasks;
    }

  private:
    RecordSet m_rows;
};

/// Whether the table already holds them, row for row, and untouched by any design. Reading takes a
/// quarter of the time of writing, and a model that has just been opened is so.
bool Holds(const Database& database, const std::vector<NewPathway>& pathways) {
    const RecordSet count = database.OpenRecordSet("SELECT COUNT(*) FROM Pathways;");
    if (count.Number(0) != static_cast<double>(pathways.size())) {
        return false;
    }
    RecordSet rows = database.OpenRecordSet(
        "SELECT PathId, ArcId, ResourceId FROM Pathways WHERE Feasible = 1 AND Cost = 0 AND Time = "
        "0 AND Stations = 0 AND Investment = 0 AND AnnualLabor = 0;");
    int number = 0;
    for (const NewPathway& pathway : pathways) {
        ++number;
        if (rows.Eof() || rows.Number(0) != number || rows.Number(1) != pathway.Arc ||
            rows.Number(2) != pathway.Resource) {
            return false;
        }
        rows.MoveNext();
    }
    return true;
}

void WritePathways(const Database& database, const std::vector<NewPathway>& pathways) {
    DeleteAllRows(database, "Pathways");
    RowWriter rows = RowWriter::Adding(
        database, "Pathways", {"PathId", "ArcId", "ResourceId", "Feasible", "Cost", "Time"});
    int number = 0;
    for (const NewPathway& pathway : pathways) {
        ++number;
        rows.Write({number, pathway.Arc, pathway.Resource, 1, 0, 0});
    }
}

}  // namespace

void GeneratePathways(const Database& database, const TextBoxes& boxes, Picture& network) {
    Transaction transaction(database);
    const std::int16_t resources = database.OpenRecordSet("SELECT Resources FROM Gen;").Integer(0);
    const Arcs arcs(database);
    MatrixByResource matrix(database);
    PathwayGenerator generator(arcs);
    for (int resource = 1; resource <= resources; ++resource) {
        generator.AddResource(resource, matrix.TasksOf(resource));
    }
    if (!Holds(database, generator.Pathways())) {
        WritePathways(database, generator.Pathways());
    }
    transaction.Commit();
    DrawLinks(database, boxes, network);
}

}  // namespace quarnel02
