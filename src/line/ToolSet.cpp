#include "line/ToolSet.h"

#include <algorithm>
#include <iterator>

#include "basic/Numbers.h"

namespace quarnel02 {

void ToolSet::Add(const MatrixEntry& entry) {
    const auto place =
        std::lower_bound(m_tools.begin(), m_tools.end(), entry.ToolNum,
                         [](const Tool& tool, int number) { return tool.Number < number; });
    if (place != m_tools.end() && place->Number == entry.ToolNum) {
        return;
    }
    auto tool = m_tools.insert(place, {entry.ToolNum, entry.ToolCost, 0});
    double below = tool == m_tools.begin() ? 0 : static_cast<double>(std::prev(tool)->CostUpTo);
    for (; tool != m_tools.end(); ++tool) {
        tool->CostUpTo = ToSingle(below + tool->Cost, "Tool cost");
        below = static_cast<double>(tool->CostUpTo);
    }
}

}  // namespace quarnel02
