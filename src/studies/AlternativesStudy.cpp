#include "studies/AlternativesStudy.h"

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "study/Alternatives.h"
#include "study/Capacities.h"
#include "study/LineText.h"
#include "study/VolumePieces.h"

namespace quarnel02 {

namespace {

std::vector<ShownCell> LineCells(const LineModel& model, const Alternative& line, int rank) {
    return {WholeCell(rank),
            TextCell(LineText(model, GroupsOf(line.Design))),
            DollarCell(DecimalOfSingle(line.Design.Cost)),
            DollarCell(line.Difference),
            DollarCell(line.Figures.Investment),
            DollarCell(line.Figures.Capital),
            DollarCell(line.Figures.Machine),
            DollarCell(line.Figures.Labour)};
}

std::vector<ShownCell> ReplacementCells(const LineModel& model, const LineGroup& group,
                                        const std::optional<Replacement>& next, int number) {
    const auto name = [&](const LineGroup& one) {
        return TextCell(NameText(model.ResourceOf(one.Group.Resource)));
    };
    std::vector<ShownCell> row = {
        WholeCell(number), TextCell(TaskRangeText(group.Group.FirstTask, group.Group.LastTask)),
        name(group), WholeCell(group.Group.Stations), DollarCell(DecimalOfSingle(group.Cost.Cost))};
    if (!next) {
        row.insert(row.end(), {TextCell("no other"), {}, {}, {}});
        return row;
    }
    row.insert(row.end(),
               {name(next->Group), WholeCell(next->Group.Group.Stations),
                DollarCell(DecimalOfSingle(next->Group.Cost.Cost)), DollarCell(next->Difference)});
    return row;
}

ShownTable ReplacementTable(const StudyInput& input, const Line& line) {
    ShownTable table{"Next best resources",
                     {{"Station", true},
                      {"Tasks"},
                      {"Resource"},
                      {"Quantity", true},
                      {"Cost", true},
                      {"Next best"},
                      {"Its quantity", true},
                      {"Its cost", true},
                      {"Difference", true}},
                     {}};
    const auto next = Replacements(*input.Line, input.Question.Request, line);
    for (std::size_t place = 0; place < line.Groups.size(); ++place) {
        table.Rows.push_back(ReplacementCells(input.Model(), line.Groups[place], next[place],
                                              static_cast<int>(place) + 1));
    }
    return table;
}

AlternativesStudy LinesOf(const StudyInput& input, const StudyWatch& watch) {
    AlternativesStudy study{{"Alternatives",
                             {{"Rank", true},
                              {"Line"},
                              {"Cost", true},
                              {"Difference", true},
                              {"Investment", true},
                              {"Capital", true},
                              {"Machine", true},
                              {"Labour", true}},
                             {}},
                            {},
                            {},
                            {},
                            {}};
    int rank = 0;
    const std::vector<Alternative> lines = AlternativesFor(*input.Line, input.Question.Request);
    for (const Alternative& line : lines) {
        watch.Look(static_cast<double>(rank) / static_cast<double>(lines.size()));
        study.Best.Rows.push_back(LineCells(input.Model(), line, ++rank));
        study.Details.push_back(ReplacementTable(input, line.Design));
        study.Bars.push_back(
            {NumberText(rank), line.Figures, 0, LineText(input.Model(), GroupsOf(line.Design))});
    }
    return study;
}

std::string LineOf(const LineModel& model, const Capacity& capacity) {
    std::vector<StationGroup> groups;
    for (const ExpectedGroup& group : capacity.Line.Groups) {
        groups.push_back(group.Group);
    }
    return LineText(model, groups);
}

/// "2: capacity 84,000, $296,140 expected a year; Bench 1-8; one unit less costs 39,936 more"
CapacityMark MarkOf(const LineModel& model, const Capacity& capacity, int rank) {
    const double volume = DecimalOfSingle(capacity.Line.Capacity);
    const double cost = DecimalOfSingle(capacity.Line.ExpectedCost);
    const std::string word = CapacityWord(capacity);
    return {volume, cost,
            NumberText(rank) + ": capacity " + Format(volume, "#,##0") + ", " +
                Format(cost, "$#,##0") + " expected a year; " + LineOf(model, capacity) +
                (word.empty() ? "" : "; " + word)};
}

std::vector<ShownCell> CapacityCells(const LineModel& model, const Capacity& capacity, int rank) {
    const CostFigures& figures = capacity.Table.Totals;
    constexpr double whole = 100;
    return {WholeCell(rank),
            WholeCell(DecimalOfSingle(capacity.Line.Capacity)),
            TextCell(LineOf(model, capacity)),
            DollarCell(DecimalOfSingle(capacity.Line.ExpectedCost)),
            DollarCell(capacity.Difference),
            DollarCell(capacity.Line.ExpectedPenalty),
            DollarCell(figures.Investment),
            DollarCell(figures.Capital),
            DollarCell(figures.Machine),
            DollarCell(figures.Labour),
            PercentCell(capacity.ShortageProbability / whole),
            WholeCell(capacity.UnmetUnits),
            TextCell(CapacityWord(capacity))};
}

ShownTable OutcomeTable(const Capacity& capacity) {
    ShownTable table{"Demand rows",
                     {{"Demand", true},
                      {"Probability (%)", true},
                      {"Shifts", true},
                      {"Production", true},
                      {"Utilisation (%)", true},
                      {"Cost", true},
                      {"Penalty", true}},
                     {}};
    for (const CapacityOutcome& outcome : capacity.Outcomes) {
        table.Rows.push_back({WholeCell(DecimalOfSingle(outcome.Point.Volume)),
                              FigureCell(DecimalOfSingle(outcome.Point.Probability)),
                              WholeCell(outcome.Shifts), WholeCell(outcome.Production),
                              PercentCell(outcome.Utilisation), DollarCell(outcome.Cost),
                              DollarCell(outcome.Penalty)});
    }
    return table;
}

AlternativesStudy CapacitiesOf(const StudyInput& input, const StudyWatch& watch) {
    AlternativesStudy study{{"Capacities",
                             {{"Rank", true},
                              {"Capacity", true},
                              {"Line"},
                              {"Expected cost", true},
                              {"Difference", true},
                              {"Penalty", true},
                              {"Investment", true},
                              {"Capital", true},
                              {"Machine", true},
                              {"Labour", true},
                              {"Shortage (%)", true},
                              {"Unmet units", true},
                              {"Where it stands"}},
                             {}},
                            {},
                            {},
                            {},
                            {}};
    const ExpectedDesigns designs = DesignWithCurves(input.Model(), input.Penalty(), watch);
    study.ExpectedCosts = designs.Result.ExpectedCosts;
    int rank = 0;
    for (const Capacity& capacity : BestCapacities(designs)) {
        study.Best.Rows.push_back(CapacityCells(input.Model(), capacity, ++rank));
        study.Details.push_back(OutcomeTable(capacity));
        study.Marks.push_back(MarkOf(input.Model(), capacity, rank));
    }
    return study;
}

}  // namespace

AlternativesStudy StudyAlternatives(const StudyInput& input, const StudyWatch& watch) {
    return input.Question.Expected ? CapacitiesOf(input, watch) : LinesOf(input, watch);
}

}  // namespace quarnel02
