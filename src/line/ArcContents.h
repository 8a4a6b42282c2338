#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "line/LineModel.h"
#include "line/WorkContent.h"

namespace quarnel02::line {

/// The work contents of all arcs that end at one task, for every resource that can do them. Going
/// on to the next task adds one task to each.
class ArcContents {
  public:
    /// Ends before the first task. Keeps a reference to the model.
    explicit ArcContents(const LineModel& model) : m_model(model) {}

    /// Goes on to the next last task. Throws DivisionByZero when the uptime of a resource that can
    /// do it is 0, and Overflow.
    void Next();

    struct OfResource {
        int Resource = 0;
        StationContent Content;
    };
    /// Resources for the tasks from `first` to the last task in hand, ascending.
    [[nodiscard]] std::span<const OfResource> From(int first) const {
        return m_arcs[static_cast<std::size_t>(first) - 1];
    }

  private:
    const LineModel& m_model;
    std::vector<std::vector<OfResource>> m_arcs;  ///< by first task
};

}  // namespace quarnel02::line
