#include "fixed/WriteSolutionSummary.h"

#include <string>
#include <vector>

#include "basic/Files.h"
#include "basic/LinePrinter.h"
#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "fixed/LinePicture.h"
#include "fixed/ToolsText.h"
#include "shell/Reports.h"

namespace quarnel02 {

namespace {

/// A row of the station query.
struct Station {
    int TaskStart;
    int TaskEnd;
    int Resource;
    std::string ShortName;
    std::string Cost;
    std::string Time;
    int Quantity;
};

/// Columns of a station line.
struct StationColumns {
    int Cost;
    int Time;
    int Tasks;
    int Tools;
};

// File and picture differ in their columns; that is meant.
constexpr StationColumns kFileColumns{24, 35, 44, 53};
constexpr StationColumns kPictureColumns{21, 32, 40, 47};
constexpr int kFileTotalColumn = 21;
constexpr int kPictureTotalColumn = 18;

std::vector<Station> FetchStations(const Database& database) {
    RecordSet rows = database.OpenRecordSet(
        "SELECT Arcs.TaskStart, Arcs.TaskEnd, Pathways.ResourceId, Resources.ShortName, "
        "Pathways.Cost, Pathways.Time, Pathways.Stations FROM (Pathways INNER JOIN Arcs ON "
        "Pathways.ArcId = Arcs.ArcId) INNER JOIN Resources ON Pathways.ResourceId = "
        "Resources.ResourceId Where (((Pathways.Feasible) = 4)) ORDER BY Arcs.TaskStart;");
    std::vector<Station> stations;
    for (; !rows.Eof(); rows.MoveNext()) {
        stations.push_back({rows.Integer(0), rows.Integer(1), rows.Integer(2), rows.Text(3),
                            Format(rows.Number(4), "$#,###"), Format(rows.Number(5), "#,###.00"),
                            rows.Integer(6)});
    }
    return stations;
}

double FetchMaximumTime(const Database& database) {
    return database
        .OpenRecordSet(
            "SELECT Max(Pathways.Time) AS MaxOfTime FROM Pathways WHERE (((Pathways.Feasible)=4));")
        .Number(0);
}

double FetchTotalCost(const Database& database) {
    return database
        .OpenRecordSet(
            "SELECT Sum(Pathways.Cost) AS SumOfCost FROM Pathways WHERE (((Pathways.Feasible)=4));")
        .Number(0);
}

void PrintStation(LinePrinter& printer, const StationColumns& columns, int number,
                  const Station& station, const SplitText& tools) {
    printer.PrintOpen(number, Column{6}, station.Resource, Column{10}, station.ShortName,
                      Column{17}, station.Quantity, Column{columns.Cost}, station.Cost,
                      Column{columns.Time}, station.Time, Column{columns.Tasks},
                      TasksText(station.TaskStart, station.TaskEnd));
    printer.Print(Column{columns.Tools}, tools.First);
    if (tools.Split) {
        printer.Print(Column{columns.Tools}, tools.Rest);
    }
}

/// Adds up the chain of labels from the highest node back to the start of the line.
struct ChainSums {
    double Investment = 0;
    double AnnualLabor = 0;
};

ChainSums SumChain(const Database& database) {
    constexpr int this_path = 0;
    constexpr int path_id = 1;
    constexpr int sub_path = 2;
    RecordSet labels = database.OpenRecordSet("SELECT * FROM BestPaths ORDER BY ThisPath DESC;");
    ChainSums sums;
    for (;;) {
        const RecordSet pathway =
            database.OpenRecordSet("SELECT Investment, AnnualLabor FROM Pathways WHERE PathId = " +
                                   NumberText(int{labels.Integer(path_id)}) + ";");
        sums.Investment += pathway.Number(0);
        sums.AnnualLabor += pathway.Number(1);
        const std::int16_t start = labels.Integer(sub_path);
        if (start == 1) {
            return sums;
        }
        while (labels.Integer(this_path) != start) {
            labels.MoveNext();
        }
    }
}

/// Writes the summary to the file and, in parallel, onto the picture.
class SummaryWriter {
  public:
    explicit SummaryWriter(MainForm& form)
        : m_state(form.FixedDemandSolve),
          m_database(form.OpenWorkingCopy()),
          m_pictureLines(form.picGraph[0]),
          m_file(m_fileLines),
          m_picture(m_pictureLines) {}

    void PrintHead();
    void PrintStations();
    void PrintTimes();
    void PrintTotal();
    void PrintChainSums();
    [[nodiscard]] const std::string& FileText() const { return m_fileLines.Text(); }

  private:
    template <class... Items>
    void PrintBoth(const Items&... items) {
        m_picture.Print(items...);
        m_file.Print(items...);
    }
    void PrintGap();

    const FixedDemandState& m_state;
    const Database m_database;
    TextLines m_fileLines;
    PictureLines m_pictureLines;
    LinePrinter m_file;
    LinePrinter m_picture;
};

void SummaryWriter::PrintGap() {
    m_picture.Print();
    m_file.Print(" ");
}

void SummaryWriter::PrintHead() {
    const std::string shifts = "# of Shifts: " + NumberText(int{m_state.ShiftCount});
    const std::string limit = "Station Limit: " + m_state.StationLimitText;
    const std::string volume =
        "Annual Volume: " + Format(TextToDouble(m_state.FixedDemand, "Fixed Demand"), "#,###");
    m_picture.Print("Solution Summary");
    m_file.Print("Solution");
    PrintBoth("-------------------");
    m_picture.Print(shifts, Column{17}, limit, Column{35}, volume);
    m_file.Print(shifts);
    m_file.Print(limit);
    m_file.Print(volume);
    PrintGap();
    PrintBoth("Sta.  Resource  Qty     Cost      Time    Tasks    Tools");
}

void SummaryWriter::PrintStations() {
    int number = 0;
    for (const Station& station : FetchStations(m_database)) {
        ++number;
        const SplitText tools = SplitToolsText(
            ToolsText(m_database, station.Resource, station.TaskStart, station.TaskEnd - 1));
        PrintStation(m_file, kFileColumns, number, station, tools);
        PrintStation(m_picture, kPictureColumns, number, station, tools);
    }
    PrintGap();
}

void SummaryWriter::PrintTimes() {
    PrintBoth("Cycle Time: ", Tab{18}, Format(FetchMaximumTime(m_database), "#.00"));
    PrintBoth("Max Cycle Time: ", Tab{18}, Format(m_state.AvailableCycleTime, "#.00"));
    PrintGap();
}

void SummaryWriter::PrintTotal() {
    const std::string total = Format(FetchTotalCost(m_database), "$#,###");
    m_picture.Print("Total Cost: ", Tab{kPictureTotalColumn}, total);
    m_file.Print("Total Cost: ", Tab{kFileTotalColumn}, total);
}

void SummaryWriter::PrintChainSums() {
    const ChainSums sums = SumChain(m_database);
    m_file.Print("Initial Investment: ", Tab{kFileTotalColumn}, Format(sums.Investment, "$#,###"));
    m_file.Print("Annualized Labor: ", Tab{kFileTotalColumn}, Format(sums.AnnualLabor, "$#,###"));
}

void DrawChosenLine(MainForm& form) {
    RecordSet rows = form.Model.OpenRecordSet(
        "SELECT Arcs.TaskStart, Arcs.TaskEnd, Pathways.ResourceId, Resources.Type, "
        "Pathways.Stations FROM (Pathways INNER JOIN Arcs ON Pathways.ArcId = Arcs.ArcId) INNER "
        "JOIN Resources ON Pathways.ResourceId = Resources.ResourceId Where (((Pathways.Feasible) "
        "= 4)) ORDER BY Arcs.TaskStart;");
    constexpr int no_type = -1;  // is drawn without an icon
    std::vector<StationFigure> stations;
    for (; !rows.Eof(); rows.MoveNext()) {
        const int type = IsNull(rows.Field(3)) ? no_type : rows.Integer(3);
        stations.push_back({type, rows.Integer(4)});
    }
    DrawLine(form.picGraph[2], stations);
}

}  // namespace

void WriteSolutionSummary(MainForm& form) {
    form.picGraph[0].Clear();
    SummaryWriter writer(form);
    writer.PrintHead();
    writer.PrintStations();
    writer.PrintTimes();
    writer.PrintTotal();
    DrawChosenLine(form);
    form.picGraph[1].Clear();
    form.picGraph[3].Clear();
    writer.PrintChainSums();
    WriteFile(form.InApplicationDirectory(kRunReport), writer.FileText());
    mnuViewLastCont(form);
}

}  // namespace quarnel02
