#include "studies/AlternativesStudy.h"

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
                            {}};
    int rank = 0;
    for (const Alternative& line : AlternativesFor(*input.Line, input.Question.Request)) {
        watch.Look();
        study.Best.Rows.push_back(LineCells(input.Model(), line, ++rank));
        study.Details.push_back(ReplacementTable(input, line.Design));
    }
    return study;
}

std::vector<ShownCell> CapacityCells(const LineModel& model, const Capacity& capacity, int rank) {
    std::vector<StationGroup> groups;
    for (const ExpectedGroup& group : capacity.Line.Groups) {
        groups.push_back(group.Group);
    }
    const CostFigures& figures = capacity.Table.Totals;
    constexpr double whole = 100;
    return {WholeCell(rank),
            WholeCell(DecimalOfSingle(capacity.Line.Capacity)),
            TextCell(LineText(model, groups)),
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
                            {}};
    int rank = 0;
    for (const Capacity& capacity :
         BestCapacities(DesignWithCurves(input.Model(), input.Penalty(), watch))) {
        study.Best.Rows.push_back(CapacityCells(input.Model(), capacity, ++rank));
        study.Details.push_back(OutcomeTable(capacity));
    }
    return study;
}

}  // namespace

AlternativesStudy StudyAlternatives(const StudyInput& input, const StudyWatch& watch) {
    return input.Question.Expected ? CapacitiesOf(input, watch) : LinesOf(input, watch);
}

}  // namespace quarnel02
