#include "fixed/GeneratePathways.h"

#include <limits>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "fixed/DrawLinks.h"

namespace quarnel02 {

namespace {

class PathwayGenerator {
  public:
    explicit PathwayGenerator(const Database& database) : m_database(database) {}

    void DeleteAll();
    void AddResource(int resource);

  private:
    void AddChain(RecordSet& tasks, int resource);
    void Append(int resource, int start, int end);
    [[nodiscard]] std::int16_t ArcOf(int resource, int start, int end) const;

    const Database& m_database;
    int m_counter = 1;
};

void PathwayGenerator::DeleteAll() {
    RecordSet pathways = m_database.OpenRecordSet("SELECT * FROM Pathways;");
    while (!pathways.Eof()) {
        pathways.Delete();
        pathways.MoveNext();
    }
}

void PathwayGenerator::AddResource(int resource) {
    RecordSet tasks = m_database.OpenRecordSet(
        "SELECT TaskId FROM Matrix WHERE ResourceId = " + NumberText(resource) +
        " AND TaskTime > 0 ORDER BY TaskId;");
    const int count = tasks.RecordCount();
    for (int first = 0; first < count; ++first) {
        tasks.MoveFirst();
        tasks.Move(first);
        AddChain(tasks, resource);
    }
}

/// Pathways that start at the current task and end at each task of its unbroken chain.
void PathwayGenerator::AddChain(RecordSet& tasks, int resource) {
    const int start = tasks.Integer(0);
    int current = start;
    Append(resource, start, current + 1);
    for (tasks.MoveNext(); !tasks.Eof() && tasks.Integer(0) == current + 1; tasks.MoveNext()) {
        Append(resource, start, current + 2);
        ++current;
    }
}

std::int16_t PathwayGenerator::ArcOf(int resource, int start, int end) const {
    const RecordSet arc =
        m_database.OpenRecordSet("SELECT ArcId FROM Arcs WHERE TaskStart = " + NumberText(start) +
                                 " AND TaskEnd = " + NumberText(end) + ";");
    if (arc.Eof()) {
        throw RunTimeError(ErrorKind::NoCurrentRecord,
                           "Matrix: resource " + NumberText(resource) + " has a row for task " +
                               NumberText(end - 1) +
                               ", which the model does not have. Correct the number of tasks or "
                               "remove the row.");
    }
    return arc.Integer(0);
}

void PathwayGenerator::Append(int resource, int start, int end) {
    if (m_counter > std::numeric_limits<std::int16_t>::max()) {
        throw RunTimeError(ErrorKind::Overflow,
                           "Pathways: the model has more than 32,767 pathways (a task range and a "
                           "resource that can do it). Remove tasks, resources or matrix rows.");
    }
    const std::int16_t arc = ArcOf(resource, start, end);
    RecordSet pathways = m_database.OpenRecordSet("SELECT * FROM Pathways;");
    pathways.AddNew();
    pathways.Set("PathId", m_counter);
    pathways.Set("ArcId", arc);
    pathways.Set("ResourceId", resource);
    pathways.Set("Feasible", 1);
    pathways.Set("Cost", 0);
    pathways.Set("Time", 0);
    pathways.Update();
    pathways.MoveToLastModified();
    ++m_counter;
}

}  // namespace

void GeneratePathways(MainForm& form) {
    const Database& database = form.OpenWorkingCopy();
    Transaction transaction(database);
    PathwayGenerator generator(database);
    generator.DeleteAll();
    const std::int16_t resources = database.OpenRecordSet("SELECT Resources FROM Gen;").Integer(0);
    for (int resource = 1; resource <= resources; ++resource) {
        generator.AddResource(resource);
    }
    transaction.Commit();
    DrawLinks(form);
}

}  // namespace quarnel02
