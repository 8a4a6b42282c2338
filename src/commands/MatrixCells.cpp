#include "commands/MatrixCells.h"

#include <algorithm>

#include "basic/Numbers.h"
#include "commands/ResourceRecords.h"

namespace quarnel02 {

namespace {

constexpr std::int16_t kDefaultTasks = 10;
constexpr std::int16_t kDefaultResources = 8;

std::int16_t CountOr(const Database& database, const std::string& sql, std::int16_t ifNone) {
    const std::int16_t count = database.OpenRecordSet(sql).Integer(0);
    return count == 0 ? ifNone : count;
}

std::string Trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string::npos ? ""
                                      : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string Titled(const std::string& title, const std::string& name) {
    return name.empty() ? title : title + ": " + name;
}

std::vector<MatrixHeading> MissingHeadings(const std::string& kind, std::int16_t count) {
    std::vector<MatrixHeading> headings(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < headings.size(); ++i) {
        headings[i].Full = kind + " " + NumberText(static_cast<int>(i + 1)) + " (not in the model)";
    }
    return headings;
}

/// The heading of the row's number; nullptr for a number beyond the grid or met before.
MatrixHeading* NewHeading(std::vector<MatrixHeading>& headings, const RecordSet& row) {
    const Value& number = row.Field(0);
    const auto* id = std::get_if<std::int64_t>(&number);
    if (id == nullptr || *id < 1 || *id > static_cast<std::int64_t>(headings.size())) {
        return nullptr;
    }
    MatrixHeading& heading = headings[static_cast<std::size_t>(*id - 1)];
    return heading.Exists ? nullptr : &heading;
}

bool IsWithin(std::int64_t number, std::int16_t count) {
    return number >= 1 && number <= count;
}

}  // namespace

void MatrixCells::Load() {
    const Database database = m_form.OpenWorkingCopy();
    m_tasks = CountOr(database, "SELECT COUNT(*) FROM Tasks;", kDefaultTasks);
    m_resources = CountOr(database, "SELECT COUNT(*) FROM Resources;", kDefaultResources);
    LoadTasks(database);
    LoadResources(database);
    LoadMarks(database);
}

void MatrixCells::LoadTasks(const Database& database) {
    m_taskHeadings = MissingHeadings("Task", m_tasks);
    RecordSet tasks = database.OpenRecordSet("SELECT * FROM Tasks;");
    for (; !tasks.Eof(); tasks.MoveNext()) {
        if (MatrixHeading* heading = NewHeading(m_taskHeadings, tasks)) {
            const std::string name = Trimmed(tasks.Text("Description"));
            *heading = {true, name, Titled("Task " + tasks.Text("TaskId"), name)};
        }
    }
}

void MatrixCells::LoadResources(const Database& database) {
    m_resourceHeadings = MissingHeadings("Resource", m_resources);
    RecordSet resources = database.OpenRecordSet("SELECT * FROM Resources;");
    for (; !resources.Eof(); resources.MoveNext()) {
        if (MatrixHeading* heading = NewHeading(m_resourceHeadings, resources)) {
            const std::string name = Trimmed(resources.Text("ShortName"));
            const auto type = TypeOfCode(resources.Text("Type"));
            std::string full = Titled("Resource " + resources.Text("ResourceId"), name);
            full = Titled(full, Trimmed(resources.Text("Description")));
            *heading = {true, name, type ? full + " (" + std::string(type->Label) + ")" : full};
        }
    }
}

void MatrixCells::Reload() {
    MatrixCells before = *this;
    Load();
    for (std::int16_t task = 1; task <= std::min(m_tasks, before.m_tasks); ++task) {
        for (std::int16_t number = 1; number <= std::min(m_resources, before.m_resources);
             ++number) {
            const Cell& old = before.m_cells[before.Place({task, number})];
            Cell& cell = m_cells[Place({task, number})];
            cell.Kept = old.Kept;
            cell.Turned = old.Turned == cell.Usable ? std::nullopt : old.Turned;
        }
    }
}

void MatrixCells::LoadMarks(const Database& database) {
    m_cells.assign(static_cast<std::size_t>(m_tasks) * static_cast<std::size_t>(m_resources), {});
    RecordSet stored =
        database.OpenRecordSet("SELECT TaskId, ResourceId From Matrix WHERE (TaskTime)>0;");
    for (; !stored.Eof(); stored.MoveNext()) {
        if (IsNull(stored.Field(0)) || IsNull(stored.Field(1))) {
            continue;
        }
        const TaskResource pair{stored.Integer(0), stored.Integer(1)};
        if (IsWithin(pair.Task, m_tasks) && IsWithin(pair.Resource, m_resources)) {
            m_cells[Place(pair)].Usable = true;
        }
    }
}

std::size_t MatrixCells::Place(TaskResource pair) const {
    return static_cast<std::size_t>(pair.Resource - 1) * static_cast<std::size_t>(m_tasks) +
           static_cast<std::size_t>(pair.Task - 1);
}

const MatrixHeading& MatrixCells::Task(int number) const {
    return m_taskHeadings.at(static_cast<std::size_t>(number - 1));
}

const MatrixHeading& MatrixCells::Resource(int number) const {
    return m_resourceHeadings.at(static_cast<std::size_t>(number - 1));
}

bool MatrixCells::Exists(TaskResource pair) const {
    return Task(pair.Task).Exists && Resource(pair.Resource).Exists;
}

std::string MatrixCells::PairName(TaskResource pair) const {
    const std::string& name = Resource(pair.Resource).Name;
    return (name.empty() ? "resource " + NumberText(int{pair.Resource}) : name) + ", task " +
           NumberText(int{pair.Task});
}

bool MatrixCells::IsMarked(TaskResource pair) const {
    const Cell& cell = m_cells[Place(pair)];
    return cell.Turned.value_or(cell.Usable);
}

bool MatrixCells::IsTurned(TaskResource pair) const {
    return m_cells[Place(pair)].Turned.has_value();
}

void MatrixCells::Toggle(TaskResource pair) {
    Cell& cell = m_cells[Place(pair)];
    const bool marked = !IsMarked(pair) && Exists(pair);
    cell.Turned = marked == cell.Usable ? std::nullopt : std::optional(marked);
}

void MatrixCells::Settle(TaskResource pair, bool usable, bool keep) {
    m_cells[Place(pair)] = {usable, std::nullopt, keep};
}

std::string MatrixCells::Line(TaskResource pair) const {
    if (!Task(pair.Task).Exists) {
        return "The model has no task " + NumberText(int{pair.Task}) +
               ". Add it with View > Tasks.";
    }
    if (!Resource(pair.Resource).Exists) {
        return "The model has no resource " + NumberText(int{pair.Resource}) +
               ". Add it with View > Resources.";
    }
    return PairLine(m_form.OpenWorkingCopy(), pair);
}

void MatrixCells::Clear() {
    const Database database = m_form.OpenWorkingCopy();
    Transaction transaction(database);
    RecordSet matrix = database.OpenRecordSet("SELECT * FROM Matrix;");
    for (; !matrix.Eof(); matrix.MoveNext()) {
        matrix.Delete();
    }
    transaction.Commit();
    Load();
}

bool MatrixCells::IsToDelete(const Cell& cell, UnmarkedPairs deleted) {
    if (cell.Turned.value_or(cell.Usable)) {
        return false;
    }
    return cell.Turned.has_value() || (deleted == UnmarkedPairs::All && !cell.Kept);
}

std::vector<TaskResource> MatrixCells::Commit(UnmarkedPairs deleted) {
    std::vector<TaskResource> unusable;
    const Database database = m_form.OpenWorkingCopy();
    Transaction transaction(database);
    for (std::int16_t resource = 1; resource <= m_resources; ++resource) {
        for (std::int16_t task = 1; task <= m_tasks; ++task) {
            const TaskResource pair{task, resource};
            if (IsToDelete(m_cells[Place(pair)], deleted)) {
                DeletePair(database, pair);
            } else if (IsMarked(pair) && !HasUsableTime(database, pair)) {
                unusable.push_back(pair);
            }
        }
    }
    transaction.Commit();
    for (Cell& cell : m_cells) {
        if (IsToDelete(cell, deleted)) {
            cell = {};
        }
    }
    return unusable;
}

}  // namespace quarnel02
