#include "report/StationTables.h"

#include <string>
#include <utility>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "study/LineText.h"

namespace quarnel02 {

namespace {

constexpr double kPercent = 100;

std::string DollarFigure(double amount) {
    return Format(amount, "$#,##0");
}

std::string SecondFigure(double seconds) {
    return Format(seconds, "#,##0.00");
}

std::string Percent(double share) {
    return Format(share * kPercent, "0.0");
}

std::vector<std::string> CostCells(std::string first, std::string name, const CostFigures& figures,
                                   double share) {
    std::vector<std::string> cells = {std::move(first), std::move(name)};
    for (const double figure :
         {figures.Investment, figures.Capital, figures.Machine, figures.Labour, figures.Total}) {
        cells.push_back(DollarFigure(figure));
    }
    cells.push_back(Percent(share));
    return cells;
}

}  // namespace

TablePart StationWorkTable(const LineModel& model, const LineTable& line) {
    TablePart table{{{"Station", true},
                     {"Resource"},
                     {"Qty", true},
                     {"Tasks"},
                     {"Tools"},
                     {"Time (s)", true},
                     {"Load (%)", true},
                     {"Idle (s)", true}},
                    {}};
    int number = 0;
    for (const StationRow& station : line.Rows) {
        table.Rows.push_back({NumberText(++number), station.Resource,
                              NumberText(station.Group.Stations), TaskTexts(model, station.Group),
                              ToolNumbersText(station.Tools), SecondFigure(station.Time),
                              Percent(station.Load), SecondFigure(station.Idle)});
    }
    return table;
}

TablePart StationCostTable(const LineTable& line) {
    TablePart table{{{"Station", true},
                     {"Resource"},
                     {"Investment ($)", true},
                     {"Capital", true},
                     {"Machine", true},
                     {"Labour", true},
                     {"Total", true},
                     {"Share (%)", true}},
                    {}};
    int number = 0;
    for (const StationRow& station : line.Rows) {
        table.Rows.push_back(
            CostCells(NumberText(++number), station.Resource, station.Figures, station.Share));
    }
    table.Rows.push_back(CostCells("", "All stations", line.Totals, line.Rows.empty() ? 0 : 1));
    return table;
}

}  // namespace quarnel02
