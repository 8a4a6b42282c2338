#pragma once

#include <cstddef>
#include <vector>

#include "line/StationGroup.h"
#include "study/GridCurve.h"
#include "study/StudyWatch.h"

namespace quarnel02 {

/// A value for every range of tasks of a line.
template <typename Value>
class OfArcs {
  public:
    explicit OfArcs(int tasks)
        : m_tasks(tasks),
          m_values(static_cast<std::size_t>(tasks) * (static_cast<std::size_t>(tasks) + 1) / 2) {}

    [[nodiscard]] int TaskCount() const { return m_tasks; }
    /// 1 <= first <= last <= TaskCount().
    [[nodiscard]] Value& At(int first, int last) { return m_values[PlaceOf(first, last)]; }
    [[nodiscard]] const Value& At(int first, int last) const {
        return m_values[PlaceOf(first, last)];
    }

  private:
    [[nodiscard]] static std::size_t PlaceOf(int first, int last) {
        return static_cast<std::size_t>(last) * static_cast<std::size_t>(last - 1) / 2 +
               static_cast<std::size_t>(first) - 1;
    }

    int m_tasks;
    std::vector<Value> m_values;  ///< by last task, then first task
};

/// Calls `act(first, last)` for every range of tasks, by last task, then first task.
template <typename Act>
void ForEachArc(int tasks, const Act& act) {
    for (int last = 1; last <= tasks; ++last) {
        for (int first = 1; first <= last; ++first) {
            act(first, last);
        }
    }
}

/// Of every range of tasks the cost of its cheapest station group; empty where there is none.
using ArcCurves = OfArcs<GridCurve>;

/// The cheapest lines for the first task, the first two tasks and so on, over all steps. Of equal
/// costs the earlier first task of the last group counts. Within a segment the whole line is one.
/// Looks at `watch`.
std::vector<GridCurve> CheapestPrefixes(const ArcCurves& arcs, const StudyWatch& watch = {});

/// The station groups, in task order, of the cheapest line for all tasks at a step that the last
/// curve of `prefixes` reaches.
std::vector<StationGroup> GroupsAt(const std::vector<GridCurve>& prefixes, int step);

}  // namespace quarnel02
