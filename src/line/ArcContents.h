#pragma once

#include <cstddef>
#include <vector>

#include "line/LineModel.h"
#include "line/WorkContent.h"

namespace quarnel02 {

/// The work contents of all arcs that end at one task, for every resource that can do them. Going
/// on to the next task adds one task to each.
class ArcContents {
  public:
    /// Ends before the first task. Keeps a reference to the model.
    explicit ArcContents(const LineModel& model) : m_model(model) {}

    /// Goes on to the next last task. Throws DivisionByZero when the uptime of a resource that can
    /// do it is 0.
    void Next();

    /// Calls `action` with every resource, ascending, that can do the tasks from `first` to the
    /// last task in hand, and with its work content. To be called once for each first task before
    /// going on. Throws Overflow, when the resource's turn has come.
    template <class Action>
    void ForEachResource(int first, Action action) {
        for (OfResource& each : m_arcs[static_cast<std::size_t>(first) - 1]) {
            each.Content.Add(m_model.Entry(each.Resource, LastTask()));
            action(each.Resource, each.Content.Content());
        }
    }

  private:
    struct OfResource {
        int Resource = 0;
        StationContent Content;
    };

    [[nodiscard]] int LastTask() const { return static_cast<int>(m_arcs.size()); }

    const LineModel& m_model;
    std::vector<std::vector<OfResource>> m_arcs;  ///< by first task
};

}  // namespace quarnel02
