#pragma once

#include <vector>

#include "line/LineModel.h"

namespace quarnel02 {

/// The distinct tools of a station as its tasks are added one after the other, with their cost at
/// every step. A task whose tool is there already costs a binary search; a new tool also the sums
/// of the tools with higher numbers.
class ToolSet {
  public:
    void Clear() { m_tools.clear(); }

    /// Adds the tool of the next task; one that is there already keeps its first cost.
    /// Throws Overflow when the cost is beyond a single.
    void Add(const MatrixEntry& entry);

    [[nodiscard]] int Count() const { return static_cast<int>(m_tools.size()); }
    /// Dollars, added in ascending order of tool number; 0 without tools.
    [[nodiscard]] float Cost() const { return m_tools.empty() ? 0.0F : m_tools.back().CostUpTo; }

  private:
    struct Tool {
        int Number;
        double Cost;
        float CostUpTo;  ///< of the tools up to this one
    };
    std::vector<Tool> m_tools;  ///< by number
};

}  // namespace quarnel02
