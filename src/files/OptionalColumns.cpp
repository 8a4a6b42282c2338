#include "files/OptionalColumns.h"

#include <algorithm>
#include <array>

namespace quarnel02 {

namespace {

struct OptionalColumn {
    std::string_view Table;
    std::string_view Column;
    Value Default;
};

const auto& OptionalColumns() {
    using namespace std::string_literals;
    static const std::array columns = {
        OptionalColumn{"Gen", "Product", "Untitled"s},
        OptionalColumn{"Tasks", "Description", "   "s},
        OptionalColumn{"Resources", "ShortName", "   "s},
        OptionalColumn{"Resources", "Description", "   "s},
        OptionalColumn{"Resources", "UpTime", 100.0},
        OptionalColumn{"Resources", "ICF", 1.0},
        OptionalColumn{"Resources", "ToolChange", 0.0},
        OptionalColumn{"Resources", "StatPerWrk", 1.0},
        OptionalColumn{"Matrix", "ToolNum", std::int64_t{0}},
        OptionalColumn{"Matrix", "ToolCost", 0.0},
        OptionalColumn{"Arcs", "Midpoint", 0.0},
        OptionalColumn{"Arcs", "Radius", 0.0},
        OptionalColumn{"Arcs", "Start", 0.0},
        OptionalColumn{"Arcs", "End", 0.0},
        OptionalColumn{"Pathways", "Feasible", std::int64_t{0}},
        OptionalColumn{"Pathways", "Cost", 0.0},
        OptionalColumn{"Pathways", "Time", 0.0},
        OptionalColumn{"Pathways", "Stations", std::int64_t{0}},
        OptionalColumn{"Pathways", "Investment", 0.0},
        OptionalColumn{"Pathways", "AnnualLabor", 0.0},
        OptionalColumn{"BestPaths", "PathCost", 0.0},
    };
    return columns;
}

}  // namespace

std::optional<Value> DefaultOfColumn(std::string_view table, std::string_view column) {
    const auto& columns = OptionalColumns();
    const auto* const found = std::find_if(
        columns.begin(), columns.end(),
        [&](const OptionalColumn& each) { return each.Table == table && each.Column == column; });
    return found == columns.end() ? std::nullopt : std::optional(found->Default);
}

}  // namespace quarnel02
