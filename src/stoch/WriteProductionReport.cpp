#include "stoch/WriteProductionReport.h"

#include <cmath>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "basic/Files.h"
#include "basic/LinePrinter.h"
#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "fixed/LinePicture.h"
#include "fixed/ToolsText.h"
#include "model/RowWriter.h"
#include "shell/Reports.h"

namespace quarnel02 {

namespace {

/// What the rows of the store call the states of a pathway.
constexpr int kFeasible = 1;
constexpr int kChosen = 4;

/// A station as the summary prints it.
struct Station {
    int Number;
    ExpectedGroup Group;
    std::string ShortName;
    std::string Tools;
};

std::vector<Station> StationsOf(const StochasticLine& line, const LineModel& model) {
    std::vector<Station> stations;
    for (const ExpectedGroup& each : line.Groups) {
        const StationGroup& group = each.Group;
        stations.push_back(
            {static_cast<int>(stations.size()) + 1, each,
             model.ResourceOf(group.Resource).ShortName,
             ToolsText(model.Entries(group.Resource, group.FirstTask, group.LastTask))});
    }
    return stations;
}

void PrintHead(LinePrinter& printer, const StochasticLine& line) {
    printer.Print("Final Solution");
    printer.Print("-------------------");
    // Meant: two fixed texts, whatever the design. A capacity is one of three shifts.
    printer.Print("Station Limit: ---");
    printer.Print("# of Shifts: 3");
    printer.Print("Capacity: ", CapacityText(line));
    printer.Print();
    printer.Print("Sta.  Resource  Qty     Cost      Time    Tasks    Tools");
}

/// An amount under a pattern that begins with the dollar sign; "$0" when it rounds to 0.
std::string Dollars(double amount, std::string_view pattern) {
    const std::string text = Format(amount, pattern);
    return text.back() == '$' ? text + "0" : text;
}

/// The tools of a station in lines that fit on the paper, cut where a tool begins.
std::vector<std::string> ToolLines(const std::string& tools) {
    constexpr std::size_t longest = 24;
    std::vector<std::string> lines;
    std::size_t from = 0;
    while (tools.size() - from > longest) {
        const auto cut = tools.rfind(' ', from + longest);
        if (cut == std::string::npos || cut <= from) {
            break;
        }
        lines.push_back(tools.substr(from, cut - from));
        from = cut;
    }
    lines.push_back(tools.substr(from));
    return lines;
}

void PrintStation(LinePrinter& printer, const Station& station) {
    constexpr int tools_column = 51;
    const StationGroup& group = station.Group.Group;
    const std::vector<std::string> tools = ToolLines(station.Tools);
    printer.Print(station.Number, Column{7}, station.ShortName, Column{17}, group.Stations,
                  Column{25}, Dollars(static_cast<double>(station.Group.Cost), "$###"), Column{35},
                  Format(static_cast<double>(station.Group.Time), "###.##"), Column{43},
                  NumberText(group.FirstTask) + "-" + NumberText(group.LastTask),
                  Column{tools_column}, tools.front());
    for (auto line = tools.begin() + 1; line != tools.end(); ++line) {
        printer.Print(Column{tools_column}, *line);
    }
}

void PrintClosing(LinePrinter& printer, const StochasticLine& line) {
    const auto seconds = [](float time) {
        return Format(static_cast<double>(time), "###.##") + " sec";
    };
    printer.Print("Cycle Time: ", seconds(line.CycleTime));
    printer.Print("Max. Cycle Time: ", seconds(line.MaximumCycleTime));
    printer.Print("Expected Penalty Cost: ", Dollars(line.ExpectedPenalty, "$#,###"));
    printer.Print("Expected Annualized System Costs: ", ExpectedCostText(line));
    printer.Print("Expected Annualized Fixed Costs: ", Dollars(line.FixedCosts, "$#,###"));
}

void PrintSummary(LinePrinter& printer, const StochasticLine& line,
                  const std::vector<Station>& stations) {
    PrintHead(printer, line);
    for (const Station& station : stations) {
        PrintStation(printer, station);
    }
    PrintClosing(printer, line);
}

/// A number without exponent; from 10 million on, where a single has no decimals, a whole one.
std::string PlainText(double value) {
    constexpr double whole_from = 1e7;
    return value < whole_from ? NumberText(static_cast<float>(value)) : Format(value, "###0");
}

std::string PlainVolume(float volume) {
    const double decimal = DecimalOfSingle(volume);
    return decimal == std::floor(decimal) ? Format(decimal, "###0") : NumberText(decimal);
}

std::string ReportText(const StochasticLine& line) {
    TextLines lines;
    LinePrinter printer(lines);
    printer.Print("Production Report");
    printer.Print("-----------------");
    printer.Print(" ");
    for (const DemandOutcome& outcome : line.Outcomes) {
        if (outcome.Point.Probability == 0) {
            continue;
        }
        printer.Print("Demand:     ", PlainVolume(outcome.Point.Volume));
        printer.Print("Shifts:     ", NumberText(outcome.Shifts));
        printer.Print("Total Cost: ", Dollars(outcome.TotalCost, "$#,###"));
        printer.Print("Penalty:    ", PlainText(outcome.Penalty));
        printer.Print(" ");
    }
    return lines.Text();
}

void ClearMarks(const Database& database) {
    RowWriter rows = RowWriter::Changing(database, "Pathways", {"Feasible"}, "Feasible");
    RecordSet states = database.OpenRecordSet("SELECT DISTINCT Feasible FROM Pathways;");
    for (; !states.Eof(); states.MoveNext()) {
        rows.Write({kFeasible, states.Field(0)});
    }
}

int PathwayOf(const StationGroup& group, const Database& database) {
    const RecordSet arc = database.OpenRecordSet(
        "SELECT ArcId FROM Arcs WHERE TaskStart = " + NumberText(group.FirstTask) +
        " AND TaskEnd = " + NumberText(group.LastTask + 1) + ";");
    return database
        .OpenRecordSet(
            "SELECT PathId FROM Pathways WHERE ArcId = " + NumberText(int{arc.Integer(0)}) +
            " AND ResourceId = " + NumberText(group.Resource) + ";")
        .Integer(0);
}

void MarkDesign(const Database& database, const StochasticLine& line) {
    Transaction transaction(database);
    ClearMarks(database);
    RowWriter rows = RowWriter::Changing(database, "Pathways", {"Feasible"}, "PathId");
    for (const ExpectedGroup& each : line.Groups) {
        rows.Write({kChosen, PathwayOf(each.Group, database)});
    }
    transaction.Commit();
}

void DrawChosenLine(Picture& picture, const StochasticLine& line, const LineModel& model) {
    std::vector<StationFigure> stations;
    for (const ExpectedGroup& each : line.Groups) {
        const Resource& resource = model.ResourceOf(each.Group.Resource);
        stations.push_back({resource.Type, each.Group.Stations, resource.ShortName,
                            each.Group.FirstTask, each.Group.LastTask,
                            static_cast<double>(each.Cost)});
    }
    DrawLine(picture, std::move(stations));
}

}  // namespace

std::string ExpectedCostText(const StochasticLine& line) {
    return Dollars(static_cast<double>(line.ExpectedCost), "$#,###");
}

std::string CapacityText(const StochasticLine& line) {
    return Format(static_cast<double>(line.Capacity), "#,###");
}

std::string WriteProductionReport(const StochasticLine& line, const LineModel& model,
                                  const Database& database,
                                  const std::filesystem::path& applicationDirectory,
                                  PictureBoxes& pictures) {
    const std::vector<Station> stations = StationsOf(line, model);
    WriteFile(applicationDirectory / kProductionReport, ReportText(line));
    MarkDesign(database, line);
    pictures.picGraph[0].Clear();
    PictureLines picture_lines(pictures.picGraph[0]);
    LinePrinter picture(picture_lines);
    TextLines text_lines;
    LinePrinter text(text_lines);
    for (LinePrinter* printer : {&picture, &text}) {
        PrintSummary(*printer, line, stations);
    }
    DrawChosenLine(pictures.picGraph[2], line, model);
    return text_lines.Text();
}

}  // namespace quarnel02
