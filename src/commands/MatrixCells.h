#pragma once

#include <optional>
#include <string>
#include <vector>

#include "commands/PairRecord.h"

namespace quarnel02 {

/// Heading of a row or column of the grid.
struct MatrixHeading {
    bool Exists = false;  ///< the model has a task or resource of that number
    std::string Name;     ///< a task's description, a resource's short name
    std::string Full;     ///< all there is to say
};

/// Which rows of pairs without a mark a commit deletes.
enum class UnmarkedPairs {
    All,    ///< every one, but for pairs stored without a mark on purpose (Settle)
    Turned  ///< those whose mark was taken off by hand
};

/// The grid of every task against every resource, with a mark on each pair that is to have a
/// matrix row. A mark is first what is stored; turned by hand it is kept here until a commit.
/// Numbers count from 1. Throws what the store reports.
class MatrixCells {
  public:
    explicit MatrixCells(MainForm& form) : m_form(form) {}

    /// Counts tasks and resources and reads headings and marks. A model without tasks gets 10
    /// rows, one without resources 8 columns.
    void Load();
    /// The same, but marks that were turned by hand stay so.
    void Reload();

    [[nodiscard]] std::int16_t Tasks() const { return m_tasks; }
    [[nodiscard]] std::int16_t Resources() const { return m_resources; }
    [[nodiscard]] const MatrixHeading& Task(int number) const;
    [[nodiscard]] const MatrixHeading& Resource(int number) const;

    [[nodiscard]] bool Exists(TaskResource pair) const;
    /// "Bench, task 5"
    [[nodiscard]] std::string PairName(TaskResource pair) const;
    [[nodiscard]] bool IsMarked(TaskResource pair) const;
    /// Whether the mark was set or taken off by hand and the store says otherwise.
    [[nodiscard]] bool IsTurned(TaskResource pair) const;
    /// Turns the mark over; a pair that does not exist cannot be marked.
    void Toggle(TaskResource pair);
    /// The mark follows what the pair was just stored as. `keep`: a commit leaves its row alone
    /// even without a usable time.
    void Settle(TaskResource pair, bool usable, bool keep = false);
    /// What is stored for the pair, or why nothing can be.
    [[nodiscard]] std::string Line(TaskResource pair) const;

    /// Deletes every matrix row and reads the grid anew.
    void Clear();
    /// Deletes the rows of the pairs without a mark, all or none of them. Gives the marked pairs
    /// without a usable time, by resource and within it by task.
    [[nodiscard]] std::vector<TaskResource> Commit(UnmarkedPairs deleted = UnmarkedPairs::All);

  private:
    struct Cell {
        bool Usable = false;         ///< a time above 0 is stored
        std::optional<bool> Turned;  ///< the mark as it was turned by hand
        bool Kept = false;           ///< stored without a usable time on purpose
    };

    [[nodiscard]] std::size_t Place(TaskResource pair) const;
    void LoadTasks(const Database& database);
    void LoadResources(const Database& database);
    void LoadMarks(const Database& database);
    [[nodiscard]] static bool IsToDelete(const Cell& cell, UnmarkedPairs deleted);

    MainForm& m_form;
    std::int16_t m_tasks = 0;
    std::int16_t m_resources = 0;
    std::vector<MatrixHeading> m_taskHeadings;
    std::vector<MatrixHeading> m_resourceHeadings;
    std::vector<Cell> m_cells;
};

}  // namespace quarnel02
