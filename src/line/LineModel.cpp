#include "line/LineModel.h"

#include <algorithm>
#include <utility>

#include "basic/Limits.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

[[noreturn]] void Refuse(const std::string& message) {
    throw RunTimeError(ErrorKind::NotAModel, message);
}

/// Puts records in the order of their numbers, which must be 1, 2, 3 and so on.
template <typename Record>
void SortByNumber(std::vector<Record>& records, const std::string& kind) {
    std::sort(records.begin(), records.end(),
              [](const Record& a, const Record& b) { return a.Number < b.Number; });
    for (std::size_t place = 0; place < records.size(); ++place) {
        if (records[place].Number != static_cast<int>(place) + 1) {
            Refuse(kind + " " + NumberText(records[place].Number) +
                   ": the numbers must be 1, 2, 3 and so on, each once. Number them anew.");
        }
    }
}

std::string NameOfRow(const MatrixRow& row) {
    return "Task " + NumberText(row.Task) + " on resource " + NumberText(row.Resource);
}

void RequireAtMost(std::size_t most, std::size_t count, const std::string& plural) {
    if (count > most) {
        throw RunTimeError(ErrorKind::Overflow,
                           "The model has " + NumberText(static_cast<int>(count)) + " " + plural +
                               ", and at most " + NumberText(static_cast<int>(most)) +
                               " are possible. Join or remove some.");
    }
}

}  // namespace

LineModel::LineModel(Production production, std::vector<Resource> resources,
                     std::vector<Task> tasks, std::span<const MatrixRow> matrix,
                     std::vector<DemandPoint> demand)
    : m_production(std::move(production)),
      m_resources(std::move(resources)),
      m_tasks(std::move(tasks)),
      m_demand(std::move(demand)) {
    RequireAtMost(limits::kResources, m_resources.size(), "resources");
    RequireAtMost(limits::kTasks, m_tasks.size(), "tasks");
    SortByNumber(m_resources, "Resource");
    SortByNumber(m_tasks, "Task");
    m_matrix.resize(m_resources.size() * m_tasks.size());
    Enter(matrix);
}

void LineModel::Enter(std::span<const MatrixRow> matrix) {
    std::vector<bool> entered(m_matrix.size());
    for (const MatrixRow& row : matrix) {
        if (row.Resource < 1 || row.Resource > ResourceCount() || row.Task < 1 ||
            row.Task > TaskCount()) {
            Refuse(NameOfRow(row) +
                   ": the matrix has figures of them, but the model does not have both. Remove the "
                   "row.");
        }
        const std::size_t place = PlaceOf(row.Resource, row.Task);
        if (entered[place]) {
            Refuse(NameOfRow(row) + ": the matrix has figures of them twice. Remove one row.");
        }
        entered[place] = true;
        m_matrix[place] = row.Entry;
    }
}

}  // namespace quarnel02
