#include "studies/ScenarioStudy.h"

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "study/FigureText.h"
#include "study/LineText.h"
#include "study/ScenarioNames.h"

namespace quarnel02 {

namespace {

std::string LineOfScenario(const ScenarioOutcome& outcome) {
    std::vector<StationGroup> groups;
    for (const StationRow& row : outcome.Table.Rows) {
        groups.push_back(row.Group);
    }
    return LineText(outcome.Order.Model, groups);
}

std::string CapacityText(const ScenarioOutcome& outcome) {
    return Format(outcome.Capacity, "#,##0") + " in " +
           CountText(outcome.CapacityShifts, "shift", "shifts");
}

ShownCell DifferenceCell(const ScenarioOutcome& outcome) {
    return outcome.Difference ? DollarCell(*outcome.Difference) : ShownCell();
}

std::vector<ShownCell> ScenarioCells(const ScenarioOutcome& outcome) {
    const CostFigures& figures = outcome.Table.Totals;
    return {DollarCell(DecimalOfSingle(outcome.Cost)),
            DifferenceCell(outcome),
            TextCell(LineOfScenario(outcome)),
            TextCell(outcome.LineChanges ? "changes" : ""),
            WholeCell(outcome.Capacity),
            WholeCell(outcome.CapacityShifts),
            DollarCell(figures.Investment),
            DollarCell(figures.Capital),
            DollarCell(figures.Machine),
            DollarCell(figures.Labour),
            DollarCell(outcome.Penalty)};
}

/// Those between the name and the differences.
std::vector<ShownCell> OutcomeCells(const std::optional<ScenarioOutcome>& outcome) {
    constexpr std::size_t columns = 11;
    constexpr std::size_t line_column = 2;
    if (outcome && outcome->HasLine) {
        return ScenarioCells(*outcome);
    }
    std::vector<ShownCell> cells(columns);
    if (outcome) {
        cells[0] = TextCell(outcome->Problem.empty() ? "no line" : "not solved");
        cells[line_column] = TextCell(outcome->Problem);
    }
    return cells;
}

std::string BarWords(const ScenarioOutcome& outcome) {
    return LineOfScenario(outcome) + "; capacity " + CapacityText(outcome);
}

}  // namespace

DesignOrder OrderOf(const StudyInput& input) {
    return {input.Model(),
            input.Question.Expected ? std::nullopt : std::optional(input.Question.Request)};
}

std::vector<ScenarioOutcome> StudyScenarios(const StudyInput& input, const StudyWatch& watch) {
    return SolveScenarios(OrderOf(input), input.Scenarios, watch);
}

ShownTable TableOf(const std::vector<Scenario>& scenarios,
                   const std::vector<std::optional<ScenarioOutcome>>& outcomes) {
    ShownTable table{"Scenarios",
                     {{"Scenario"},
                      {"Cost", true},
                      {"Difference", true},
                      {"Line"},
                      {"Other line"},
                      {"Capacity", true},
                      {"Shifts", true},
                      {"Investment", true},
                      {"Capital", true},
                      {"Machine", true},
                      {"Labour", true},
                      {"Penalty", true},
                      {"Differences"}},
                     {}};
    for (std::size_t place = 0; place < outcomes.size(); ++place) {
        const Scenario shown = place == 0 ? Scenario{kBaseName, ""} : scenarios[place - 1];
        std::vector<ShownCell>& cells = table.Rows.emplace_back();
        cells.push_back(TextCell(shown.Name));
        for (ShownCell& cell : OutcomeCells(outcomes[place])) {
            cells.push_back(std::move(cell));
        }
        cells.push_back(TextCell(shown.Differences));
    }
    return table;
}

std::vector<CostBar> BarsOf(const std::vector<std::optional<ScenarioOutcome>>& outcomes) {
    std::vector<CostBar> bars;
    for (const auto& outcome : outcomes) {
        if (outcome && outcome->HasLine) {
            bars.push_back(
                {outcome->Name, outcome->Table.Totals, outcome->Penalty, BarWords(*outcome)});
        }
    }
    return bars;
}

}  // namespace quarnel02
