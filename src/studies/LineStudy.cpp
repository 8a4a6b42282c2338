#include "studies/LineStudy.h"

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "line/CheapestLine.h"
#include "study/ExpectedDesigns.h"
#include "study/HowComputed.h"
#include "study/LineText.h"
#include "study/VolumePieces.h"

namespace quarnel02 {

namespace {

std::optional<LineStudy> StudyExpected(const StudyInput& input, const StudyWatch& watch) {
    const ExpectedDesigns designs = DesignWithCurves(input.Model(), input.Penalty(), watch);
    const auto& line = designs.Result.Line;
    if (!line) {
        return std::nullopt;
    }
    return LineStudy{TableOf(input.Model(), *line), line->ExpectedPenalty,
                     DecimalOfSingle(line->ExpectedCost)};
}

std::optional<LineStudy> StudyFixed(const StudyInput& input) {
    const FixedDemandRequest& request = input.Question.Request;
    const auto line = CheapestLine(*input.Line, request);
    if (!line) {
        return std::nullopt;
    }
    return LineStudy{
        TableOf(input.Model(), GroupsOf(*line), BasisOf(request, input.Model().Parameters())), 0,
        DecimalOfSingle(line->Cost)};
}

void AddFigures(std::vector<ShownCell>& row, const CostFigures& figures) {
    for (const double figure :
         {figures.Investment, figures.Capital, figures.Machine, figures.Labour, figures.Total}) {
        row.push_back(DollarCell(figure));
    }
}

std::vector<ShownCell> StationCells(const LineModel& model, const StationRow& station, int number) {
    const StationGroup& group = station.Group;
    std::vector<ShownCell> row = {WholeCell(number),
                                  TextCell(station.Resource),
                                  WholeCell(group.Stations),
                                  TextCell(TaskRangeText(group.FirstTask, group.LastTask)),
                                  TextCell(TaskTexts(model, group)),
                                  TextCell(ToolNumbersText(station.Tools)),
                                  HundredthsCell(station.Time),
                                  PercentCell(station.Load),
                                  HundredthsCell(station.Idle)};
    AddFigures(row, station.Figures);
    row.push_back(PercentCell(station.Share));
    return row;
}

std::vector<ShownCell> TotalCells(const LineTable& table) {
    std::vector<ShownCell> row = {TextCell("Total"),
                                  {},
                                  WholeCell(table.Stations),
                                  {},
                                  {},
                                  {},
                                  HundredthsCell(table.CycleTime),
                                  {},
                                  {}};
    AddFigures(row, table.Totals);
    row.push_back(PercentCell(table.Rows.empty() ? 0 : 1));
    return row;
}

/// A row with nothing but a name and an annual total.
std::vector<ShownCell> SumCells(const std::string& name, double dollars, std::size_t columns) {
    constexpr std::size_t behind_total = 2;
    std::vector<ShownCell> row(columns);
    row.front() = TextCell(name);
    row[columns - behind_total] = DollarCell(dollars);
    return row;
}

}  // namespace

std::optional<LineStudy> StudyLine(const StudyInput& input, const StudyWatch& watch) {
    return input.Question.Expected ? StudyExpected(input, watch) : StudyFixed(input);
}

ShownTable TableOf(const LineModel& model, const LineStudy& study) {
    ShownTable table{"Line",
                     {{"Station"},
                      {"Resource"},
                      {"Quantity", true},
                      {"Tasks"},
                      {"Task texts"},
                      {"Tools"},
                      {"Time (s)", true},
                      {"Load (%)", true},
                      {"Idle (s)", true},
                      {"Investment", true},
                      {"Capital", true},
                      {"Machine", true},
                      {"Labour", true},
                      {"Total", true},
                      {"Share (%)", true}},
                     {}};
    int number = 0;
    for (const StationRow& station : study.Table.Rows) {
        table.Rows.push_back(StationCells(model, station, ++number));
    }
    table.Rows.push_back(TotalCells(study.Table));
    if (study.Table.Basis.Expected) {
        table.Rows.push_back(SumCells("Penalty", study.Penalty, table.Columns.size()));
        table.Rows.push_back(SumCells("With penalty", study.Cost, table.Columns.size()));
    }
    return table;
}

std::string SummaryOf(const LineStudy& study) {
    const CostBasis& basis = study.Table.Basis;
    const std::string cost =
        Format(study.Cost, "$#,##0") +
        (basis.Expected ? " expected a year at a capacity of " + Format(basis.Capacity, "#,##0") +
                              " units in 3 shifts"
                        : " a year");
    const std::string per_unit =
        basis.Units > 0 ? ", " + Format(study.Cost / basis.Units, "$#,##0.00") + " per unit" : "";
    return cost + per_unit + "; investment " + Format(study.Table.Totals.Investment, "$#,##0") +
           "; cycle time " + Format(study.Table.CycleTime, "#,##0.00") + " s of " +
           Format(basis.AvailableCycleTime, "#,##0.00") + " s";
}

std::string HowComputedAt(const LineModel& model, const LineStudy& study, std::size_t row) {
    const auto& stations = study.Table.Rows;
    return row < stations.size()
               ? HowComputed(model, stations[row], static_cast<int>(row) + 1, study.Table.Basis)
               : HowComputed(model, study.Table);
}

}  // namespace quarnel02
