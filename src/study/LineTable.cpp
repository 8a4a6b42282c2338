#include "study/LineTable.h"

#include <algorithm>

#include "line/AnnualCost.h"
#include "line/CostModel.h"
#include "line/WorkContent.h"
#include "study/LineText.h"
#include "study/StationTime.h"

namespace quarnel02 {

namespace {

WorkContent ContentOfGroup(const LineModel& model, const StationGroup& group) {
    return ContentOf(model.Entries(group.Resource, group.FirstTask, group.LastTask),
                     model.ResourceOf(group.Resource), model.Parameters().TransportTime);
}

StationRow RowOf(const LineModel& model, const StationGroup& group, const CostBasis& basis) {
    StationRow row;
    row.Group = group;
    row.Resource = NameText(model.ResourceOf(group.Resource));
    row.Figures = FiguresOf(model, group, basis);
    for (const ToolCost& tool : ToolsOf(model, group)) {
        row.Tools.push_back(tool.Tool);
    }
    row.Time =
        static_cast<double>(SharedTime(ContentOfGroup(model, group).WorkTime, group.Stations));
    row.Load = row.Time / basis.AvailableCycleTime;
    row.Idle = basis.AvailableCycleTime - row.Time;
    return row;
}

}  // namespace

CostFigures FiguresOf(const LineModel& model, const StationGroup& group, const CostBasis& basis) {
    const WorkContent content = ContentOfGroup(model, group);
    const Resource& resource = model.ResourceOf(group.Resource);
    const AnnualParts parts = AnnualPartsOf(content, group.Stations, resource, model.Parameters(),
                                            basis.Units, basis.Shifts);
    const auto stations = static_cast<std::int16_t>(group.Stations);
    return {static_cast<double>(Investment(stations, content.ToolCostSum, resource)), parts.Capital,
            parts.Machine, parts.Labour, static_cast<double>(AnnualCost(parts))};
}

CostFigures& operator+=(CostFigures& sum, const CostFigures& more) {
    sum.Investment += more.Investment;
    sum.Capital += more.Capital;
    sum.Machine += more.Machine;
    sum.Labour += more.Labour;
    sum.Total += more.Total;
    return sum;
}

LineTable TableOf(const LineModel& model, std::span<const StationGroup> groups,
                  const CostBasis& basis) {
    LineTable table;
    table.Basis = basis;
    for (const StationGroup& group : groups) {
        const StationRow& row = table.Rows.emplace_back(RowOf(model, group, basis));
        table.Totals += row.Figures;
        table.Stations += group.Stations;
        table.CycleTime = std::max(table.CycleTime, row.Time);
    }
    for (StationRow& row : table.Rows) {
        row.Share = table.Totals.Total == 0 ? 0 : row.Figures.Total / table.Totals.Total;
    }
    return table;
}

LineTable TableOf(const LineModel& model, const StochasticLine& line) {
    std::vector<StationGroup> groups;
    for (const ExpectedGroup& each : line.Groups) {
        groups.push_back(each.Group);
    }
    return TableOf(model, groups,
                   BasisOf(DemandDistribution(model.Demand()), line.Capacity, model.Parameters()));
}

}  // namespace quarnel02
