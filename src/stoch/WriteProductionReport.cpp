#include "stoch/WriteProductionReport.h"

#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "basic/Files.h"
#include "basic/LinePrinter.h"
#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "fixed/DrawLinks.h"
#include "fixed/LinePicture.h"
#include "shell/Reports.h"
#include "stoch/ProductionFigures.h"

namespace quarnel02 {

namespace {

std::string CapacityText(const ProductionFigures& figures) {
    return Format(static_cast<double>(figures.Capacity), "#,###");
}

void PrintHead(LinePrinter& printer, const ProductionFigures& figures) {
    printer.Print("Final Solution");
    printer.Print("-------------------");
    // Meant: two fixed texts, whatever the design. A capacity is one of three shifts.
    printer.Print("Station Limit: ---");
    printer.Print("# of Shifts: 3");
    printer.Print("Capacity: ", CapacityText(figures));
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

void PrintStation(LinePrinter& printer, const ProductionStation& station) {
    constexpr int tools_column = 51;
    const std::vector<std::string> tools = ToolLines(station.Tools);
    printer.Print(station.Number, Column{7}, station.ShortName, Column{17}, station.Quantity,
                  Column{25}, Dollars(station.Cost, "$###"), Column{35},
                  Format(static_cast<double>(station.Time), "###.##"), Column{43},
                  NumberText(station.FirstTask) + "-" + NumberText(station.LastTask),
                  Column{tools_column}, tools.front());
    for (auto line = tools.begin() + 1; line != tools.end(); ++line) {
        printer.Print(Column{tools_column}, *line);
    }
}

void PrintStations(LinePrinter& printer, const ProductionFigures& figures) {
    for (const ProductionStation& station : figures.Stations) {
        PrintStation(printer, station);
    }
}

void PrintClosing(LinePrinter& printer, const ProductionFigures& figures) {
    const auto seconds = [](float time) {
        return Format(static_cast<double>(time), "###.##") + " sec";
    };
    printer.Print("Cycle Time: ", seconds(figures.CycleTime));
    printer.Print("Max. Cycle Time: ", seconds(figures.MaximumCycleTime));
    printer.Print("Expected Penalty Cost: ", Dollars(figures.ExpectedPenalty, "$#,###"));
    printer.Print("Expected Annualized System Costs: ", Dollars(figures.SystemCosts, "$#,###"));
    printer.Print("Expected Annualized Fixed Costs: ", Dollars(figures.FixedCosts, "$#,###"));
}

/// A number without exponent; from 10 million on, where a single has no decimals, a whole one.
std::string PlainText(double value) {
    constexpr double whole_from = 1e7;
    return value < whole_from ? NumberText(static_cast<float>(value)) : Format(value, "###0");
}

std::string VolumeText(float volume) {
    const double decimal = DecimalOfSingle(volume);
    return decimal == std::floor(decimal) ? Format(decimal, "###0") : NumberText(decimal);
}

std::string ReportText(const ProductionFigures& figures) {
    TextLines lines;
    LinePrinter printer(lines);
    printer.Print("Production Report");
    printer.Print("-----------------");
    printer.Print(" ");
    for (const DemandOutcome& outcome : figures.Outcomes) {
        if (outcome.Prob == 0) {
            continue;
        }
        printer.Print("Demand:     ", VolumeText(outcome.Volume));
        printer.Print("Shifts:     ", NumberText(outcome.Shifts));
        printer.Print("Total Cost: ", Dollars(outcome.TotalCost, "$#,###"));
        printer.Print("Penalty:    ", PlainText(outcome.Penalty));
        printer.Print(" ");
    }
    return lines.Text();
}

void ClearMarks(const Database& database) {
    RecordSet pathways = database.OpenRecordSet("SELECT * FROM Pathways;");
    for (; !pathways.Eof(); pathways.MoveNext()) {
        pathways.Edit();
        pathways.Set("Feasible", 1);
        pathways.Update();
        pathways.MoveToLastModified();
    }
}

void MarkStation(const Database& database, const ProductionStation& station) {
    const RecordSet arc = database.OpenRecordSet(
        "SELECT ArcId FROM Arcs WHERE TaskStart = " + NumberText(station.FirstTask) +
        " AND TaskEnd = " + NumberText(station.LastTask + 1) + ";");
    RecordSet pathway = database.OpenRecordSet(
        "SELECT Feasible FROM Pathways WHERE ArcId = " + NumberText(int{arc.Integer(0)}) +
        " AND ResourceId = " + NumberText(station.Resource) + ";");
    pathway.Edit();
    pathway.Set("Feasible", 4);
    pathway.Update();
    pathway.MoveToLastModified();
}

void MarkDesign(MainForm& form, const ProductionFigures& figures) {
    const Database database = form.OpenWorkingCopy();
    Transaction transaction(database);
    ClearMarks(database);
    for (const ProductionStation& station : figures.Stations) {
        MarkStation(database, station);
    }
    transaction.Commit();
}

void DrawChosenLine(Picture& picture, const ProductionFigures& figures) {
    std::vector<StationFigure> stations;
    for (const ProductionStation& station : figures.Stations) {
        stations.push_back({station.Type, station.Quantity});
    }
    DrawLine(picture, stations);
}

}  // namespace

std::string WriteProductionReport(StochRun& run) {
    MainForm& form = run.Form;
    const ProductionFigures figures = FiguresOf(run);
    WriteFile(form.InApplicationDirectory(kProductionReport), ReportText(figures));
    MarkDesign(form, figures);
    form.picGraph[0].Clear();
    PictureLines picture_lines(form.picGraph[0]);
    LinePrinter picture(picture_lines);
    TextLines text_lines;
    LinePrinter text(text_lines);
    for (LinePrinter* printer : {&picture, &text}) {
        PrintHead(*printer, figures);
        PrintStations(*printer, figures);
        PrintClosing(*printer, figures);
    }
    DrawLinks(form);
    DrawChosenLine(form.picGraph[2], figures);
    NoteDesign(form, "Capacity " + CapacityText(figures) + " units a year");
    mnuViewLast(form);
    return text_lines.Text();
}

}  // namespace quarnel02
