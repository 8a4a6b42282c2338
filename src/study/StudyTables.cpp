#include "study/StudyTables.h"

#include "basic/Numbers.h"
#include "study/LineText.h"
#include "study/VolumePieces.h"

namespace quarnel02 {

namespace {

/// Costs are singles: 64335.55 rather than 64335.55078125.
double DollarCell(float single) {
    return DecimalOfSingle(single);
}

template <typename Number>
StudyCell CellOf(const std::optional<Number>& number) {
    return number ? StudyCell(static_cast<double>(*number)) : StudyCell();
}

StudyCell CellOf(const std::optional<float>& single) {
    return single ? StudyCell(DollarCell(*single)) : StudyCell();
}

/// Empty without a line.
StudyCell CapacityCell(float capacity, bool hasLine) {
    StudyCell cell;
    if (hasLine) {
        cell = DollarCell(capacity);
    }
    return cell;
}

StudyCell Flag(bool value) {
    return value ? 1.0 : 0.0;
}

StudyCell Count(int number) {
    return static_cast<double>(number);
}

std::string TableText(const LineModel& model, const LineTable& table) {
    std::vector<StationGroup> groups;
    for (const StationRow& row : table.Rows) {
        groups.push_back(row.Group);
    }
    return LineText(model, groups);
}

std::vector<StudyCell> CellsOf(const SensitivityRow& row) {
    return {row.Name,          row.Value,
            row.Low,           CellOf(row.CostLow),
            row.High,          CellOf(row.CostHigh),
            Flag(row.Changes), CellOf(row.BreakEven)};
}

const std::vector<std::string>& SensitivityColumns() {
    static const std::vector<std::string> columns = {
        "figure", "value", "low", "cost_low", "high", "cost_high", "changes", "break_even"};
    return columns;
}

/// Cells about the line of a scenario; empty ones without a line.
std::vector<StudyCell> LineCells(const ScenarioOutcome& outcome) {
    if (!outcome.HasLine) {
        return std::vector<StudyCell>(7);
    }
    const CostFigures& totals = outcome.Table.Totals;
    return {DollarCell(outcome.Cost),
            CellOf(outcome.Difference),
            totals.Capital,
            totals.Machine,
            totals.Labour,
            outcome.Penalty,
            totals.Investment};
}

std::vector<StudyCell> RequestCells(const std::optional<FixedDemandRequest>& request) {
    if (!request) {
        return std::vector<StudyCell>(3);
    }
    return {Count(request->Shifts), request->Volume, CellOf(request->StationLimit)};
}

std::vector<StudyCell> CellsOf(const ScenarioOutcome& outcome) {
    std::vector<StudyCell> cells = {outcome.Name};
    for (const auto& more : {LineCells(outcome), RequestCells(outcome.Order.Fixed)}) {
        cells.insert(cells.end(), more.begin(), more.end());
    }
    if (outcome.HasLine) {
        cells.insert(cells.end(), {outcome.Capacity, Flag(outcome.LineChanges),
                                   TableText(outcome.Order.Model, outcome.Table)});
    } else {
        cells.resize(cells.size() + 3);
    }
    cells.emplace_back(outcome.Problem);
    return cells;
}

}  // namespace

StudyTable VolumesTable(const LineModel& model, std::span<const VolumeRange> ranges) {
    StudyTable table{{"shifts", "from", "to", "line", "cost_from", "cost_to", "investment", "best"},
                     {}};
    for (const VolumeRange& range : ranges) {
        table.Rows.push_back({Count(range.Shifts), Count(range.From), Count(range.To),
                              LineText(model, range.Line), DollarCell(range.CostFrom),
                              DollarCell(range.CostTo), range.Investment, Flag(range.Best)});
    }
    return table;
}

StudyTable AlternativesTable(const LineModel& model, std::span<const Alternative> alternatives) {
    StudyTable table{{"rank", "cost", "difference", "investment", "labour", "line"}, {}};
    for (const Alternative& each : alternatives) {
        table.Rows.push_back({Count(static_cast<int>(table.Rows.size()) + 1),
                              DollarCell(each.Design.Cost), each.Difference,
                              each.Figures.Investment, each.Figures.Labour,
                              LineText(model, GroupsOf(each.Design))});
    }
    return table;
}

StudyTable CapacitiesTable(const LineModel& model, std::span<const Capacity> capacities) {
    StudyTable table{{"rank", "capacity", "expected_cost", "penalty", "investment", "line"}, {}};
    for (const Capacity& each : capacities) {
        table.Rows.push_back({Count(static_cast<int>(table.Rows.size()) + 1),
                              DollarCell(each.Line.Capacity), DollarCell(each.Line.ExpectedCost),
                              each.Line.ExpectedPenalty, each.Table.Totals.Investment,
                              TableText(model, each.Table)});
    }
    return table;
}

StudyTable SensitivityTable(std::span<const SensitivityRow> rows) {
    StudyTable table{SensitivityColumns(), {}};
    for (const SensitivityRow& row : rows) {
        table.Rows.push_back(CellsOf(row));
    }
    return table;
}

StudyTable SensitivityTable(std::span<const ExpectedSensitivityRow> rows) {
    StudyTable table{SensitivityColumns(), {}};
    table.Columns.insert(table.Columns.end(), {"capacity_low", "capacity_high"});
    for (const ExpectedSensitivityRow& row : rows) {
        std::vector<StudyCell>& cells = table.Rows.emplace_back(CellsOf(row));
        cells.push_back(CapacityCell(row.CapacityLow, row.CostLow.has_value()));
        cells.push_back(CapacityCell(row.CapacityHigh, row.CostHigh.has_value()));
    }
    return table;
}

StudyTable ScenariosTable(std::span<const ScenarioOutcome> outcomes) {
    StudyTable table{
        {"scenario", "cost", "difference", "capital", "machine", "labour", "penalty", "investment",
         "shifts", "volume", "station_limit", "capacity", "changes", "line", "problem"},
        {}};
    for (const ScenarioOutcome& outcome : outcomes) {
        table.Rows.push_back(CellsOf(outcome));
    }
    return table;
}

StudyTable WhyNotTable(const WhyNot& why) {
    return {{"has_line", "impossible_tasks", "overloaded_tasks", "forbidden_tasks",
             "smallest_limit", "fewest_shifts", "largest_volume"},
            {{Flag(why.HasLine), why.ImpossibleTasks, why.OverloadedTasks, why.ForbiddenTasks,
              CellOf(why.SmallestLimit), CellOf(why.FewestShifts), CellOf(why.LargestVolume)}}};
}

}  // namespace quarnel02
