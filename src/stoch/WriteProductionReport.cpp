#include "stoch/WriteProductionReport.h"

#include <string>
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

void PrintHead(LinePrinter& printer, const ProductionFigures& figures) {
    printer.Print("Final Solution");
    printer.Print("-------------------");
    // Meant: two fixed texts, whatever the design. A capacity is one of three shifts.
    printer.Print("Station Limit: ---");
    printer.Print("# of Shifts: 3");
    printer.Print("Capacity: ", Format(static_cast<double>(figures.Capacity), "#,###"));
    printer.Print();
    printer.Print("Sta.  Resource  Qty     Cost      Time    Tasks    Tools");
}

void PrintStations(LinePrinter& printer, const ProductionFigures& figures) {
    for (const ProductionStation& station : figures.Stations) {
        printer.Print(station.Number, Tab{7}, station.ShortName, Tab{17}, station.Quantity, Tab{25},
                      Format(station.Cost, "$###"), Tab{35},
                      Format(static_cast<double>(station.Time), "###.##"), Tab{43},
                      NumberText(station.FirstTask) + "-" + NumberText(station.LastTask), Tab{51},
                      station.Tools);
    }
}

void PrintClosing(LinePrinter& printer, const ProductionFigures& figures) {
    const auto seconds = [](float time) {
        return Format(static_cast<double>(time), "###.##") + " sec";
    };
    printer.Print("Cycle Time: ", seconds(figures.CycleTime));
    printer.Print("Max. Cycle Time: ", seconds(figures.MaximumCycleTime));
    printer.Print("Expected Penalty Cost: ",
                  figures.ExpectedPenalty == 0 ? "$0" : Format(figures.ExpectedPenalty, "$#,###"));
    printer.Print("Expected Annualized System Costs: ", Format(figures.SystemCosts, "$#,###"));
    printer.Print("Expected Annualized Fixed Costs: ", Format(figures.FixedCosts, "$#,###"));
}

/// A number without exponent; from 10 million on, where a single has no more digits, a whole one.
std::string PlainText(double value) {
    constexpr double whole_from = 1e7;
    return value < whole_from ? NumberText(static_cast<float>(value)) : Format(value, "###0");
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
        printer.Print("Demand:     ", PlainText(static_cast<double>(outcome.Volume)));
        printer.Print("Shifts:     ", NumberText(outcome.Shifts));
        printer.Print("Total Cost: ", Format(outcome.TotalCost, "$#,###"));
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
    mnuViewLast(form);
    return text_lines.Text();
}

}  // namespace quarnel02
