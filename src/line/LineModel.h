#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace quarnel02 {

/// The parameters of a line that hold for all of its tasks and resources.
struct Production {
    double Days = 0;           ///< working days per year
    double ACF = 0;            ///< annual capital charge factor
    double LaborCost = 0;      ///< dollars per hour
    double TransportTime = 0;  ///< seconds between stations
    double Penalty = 0;        ///< dollars per unit of unmet demand
    std::string Product;
};

/// A kind of equipment that stations can be made of.
struct Resource {
    int Number = 0;  ///< from 1
    std::string ShortName;
    std::string Description;
    int Type = 0;           ///< 0 manual, 1 fixed, 2 programmable, 3 automatic; others draw no icon
    double FixedCost = 0;   ///< dollars per station
    double VarCost = 0;     ///< dollars per hour
    double UpTime = 0;      ///< percent
    double ICF = 0;         ///< multiplier on investment
    double ToolChange = 0;  ///< seconds
    double StatPerWrk = 0;  ///< stations per worker
};

/// A step of the assembly; the tasks are done in the order of their numbers.
struct Task {
    int Number = 0;  ///< from 1
    std::string Description;
};

/// What a task needs on a resource.
struct MatrixEntry {
    double TaskTime = 0;  ///< seconds; 0: the resource cannot do the task
    int ToolNum = 0;      ///< tasks of one station with the same number share the tool
    double ToolCost = 0;  ///< dollars

    [[nodiscard]] bool CanDo() const { return TaskTime > 0; }
};

/// A matrix entry and where it belongs.
struct MatrixRow {
    int Resource = 0;
    int Task = 0;
    MatrixEntry Entry;
};

/// One of the volumes that the demand may turn out to be.
struct DemandPoint {
    float Volume = 0;       ///< units per year
    float Probability = 0;  ///< percent
};

/// All that a planner knows of a line, as a value. Resources and tasks are numbered from 1 without
/// gaps; a pair without a matrix row has the empty entry, which says "cannot".
class LineModel {
  public:
    LineModel() = default;

    /// Resources, tasks and matrix rows may come in any order; the demand points keep theirs.
    /// Throws NotAModel, with a line that names the record, for a number twice or outside its
    /// range, and for a matrix row of a missing resource or task or with a pair that came before;
    /// Overflow for more than 255 tasks or 32,767 resources.
    LineModel(Production production, std::vector<Resource> resources, std::vector<Task> tasks,
              std::span<const MatrixRow> matrix, std::vector<DemandPoint> demand);

    [[nodiscard]] const Production& Parameters() const { return m_production; }
    [[nodiscard]] std::span<const Resource> Resources() const { return m_resources; }
    [[nodiscard]] std::span<const Task> Tasks() const { return m_tasks; }
    [[nodiscard]] std::span<const DemandPoint> Demand() const { return m_demand; }

    [[nodiscard]] int ResourceCount() const { return static_cast<int>(m_resources.size()); }
    [[nodiscard]] int TaskCount() const { return static_cast<int>(m_tasks.size()); }

    /// `resource` from 1 to ResourceCount().
    [[nodiscard]] const Resource& ResourceOf(int resource) const {
        return m_resources[static_cast<std::size_t>(resource) - 1];
    }
    /// Entries of a resource for all tasks, in task order.
    [[nodiscard]] std::span<const MatrixEntry> Row(int resource) const {
        return {m_matrix.data() + PlaceOf(resource, 1), m_tasks.size()};
    }
    /// Entries of a resource for the tasks from `first` to `last`, in task order.
    [[nodiscard]] std::span<const MatrixEntry> Entries(int resource, int first, int last) const {
        return Row(resource).subspan(
            static_cast<std::size_t>(first) - 1,
            static_cast<std::size_t>(last) + 1 - static_cast<std::size_t>(first));
    }
    [[nodiscard]] const MatrixEntry& Entry(int resource, int task) const {
        return m_matrix[PlaceOf(resource, task)];
    }
    [[nodiscard]] bool CanDo(int resource, int task) const { return Entry(resource, task).CanDo(); }

  private:
    [[nodiscard]] std::size_t PlaceOf(int resource, int task) const {
        return (static_cast<std::size_t>(resource) - 1) * m_tasks.size() +
               static_cast<std::size_t>(task) - 1;
    }
    void Enter(std::span<const MatrixRow> matrix);

    Production m_production;
    std::vector<Resource> m_resources;  ///< by number
    std::vector<Task> m_tasks;          ///< by number
    std::vector<MatrixEntry> m_matrix;  ///< by resource, then task
    std::vector<DemandPoint> m_demand;
};

}  // namespace quarnel02
