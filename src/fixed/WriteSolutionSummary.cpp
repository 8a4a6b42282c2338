#include "fixed/WriteSolutionSummary.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "basic/Files.h"
#include "basic/LinePrinter.h"
#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "fixed/LinePicture.h"
#include "fixed/ToolsText.h"

namespace quarnel02 {

namespace {

/// A station of the line as its pathway's row has it.
struct Station {
    int TaskStart;
    int TaskEnd;  ///< node behind the last task
    int Resource;
    int Quantity;
    double Cost;
    double Time;
    double Investment;
    double AnnualLabor;
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

/// In the order of the line.
std::vector<Station> ReadStations(const Database& database) {
    RecordSet rows = database.OpenRecordSet(
        "SELECT Arcs.TaskStart, Arcs.TaskEnd, Pathways.ResourceId, Pathways.Stations, "
        "Pathways.Cost, Pathways.Time, Pathways.Investment, Pathways.AnnualLabor FROM Pathways "
        "INNER JOIN Arcs ON Pathways.ArcId = Arcs.ArcId WHERE Pathways.Feasible = 4 ORDER BY "
        "Arcs.TaskStart;");
    std::vector<Station> stations;
    for (; !rows.Eof(); rows.MoveNext()) {
        stations.push_back({rows.Integer(0), rows.Integer(1), rows.Integer(2), rows.Integer(3),
                            rows.Number(4), rows.Number(5), rows.Number(6), rows.Number(7)});
    }
    return stations;
}

/// Of singles: a line has too few for a rounding, whatever their order.
double Sum(const std::vector<Station>& stations, double Station::*amount) {
    double sum = 0;
    for (const Station& station : stations) {
        sum += station.*amount;
    }
    return sum;
}

std::string TotalText(const std::vector<Station>& stations) {
    return Format(Sum(stations, &Station::Cost), "$#,###");
}

double LongestTime(const std::vector<Station>& stations) {
    double longest = 0;
    for (const Station& station : stations) {
        longest = std::max(longest, station.Time);
    }
    return longest;
}

/// Writes the summary to the file and, in parallel, onto the picture.
class SummaryWriter {
  public:
    SummaryWriter(const LineModel& model, const FixedDemandOrder& order,
                  const std::vector<Station>& stations, Picture& picture)
        : m_model(model),
          m_order(order),
          m_stations(stations),
          m_pictureLines(picture),
          m_file(m_fileLines),
          m_picture(m_pictureLines) {}

    void PrintHead();
    void PrintStations();
    void PrintTimes();
    void PrintTotal();
    /// In the file alone.
    void PrintSums();
    [[nodiscard]] const std::string& FileText() const { return m_fileLines.Text(); }

  private:
    template <class... Items>
    void PrintBoth(const Items&... items) {
        m_picture.Print(items...);
        m_file.Print(items...);
    }
    void PrintGap();
    void PrintStation(LinePrinter& printer, const StationColumns& columns, int number,
                      const Station& station) const;

    const LineModel& m_model;
    const FixedDemandOrder& m_order;
    const std::vector<Station>& m_stations;
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
    const std::string shifts = "# of Shifts: " + NumberText(int{m_order.Request.Shifts});
    const std::string limit = "Station Limit: " + m_order.LimitText;
    const std::string volume = "Annual Volume: " + Format(m_order.Request.Volume, "#,###");
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

void SummaryWriter::PrintStation(LinePrinter& printer, const StationColumns& columns, int number,
                                 const Station& station) const {
    const SplitText tools = SplitToolsText(
        ToolsText(m_model.Entries(station.Resource, station.TaskStart, station.TaskEnd - 1)));
    printer.PrintOpen(number, Column{6}, station.Resource, Column{10},
                      m_model.ResourceOf(station.Resource).ShortName, Column{17}, station.Quantity,
                      Column{columns.Cost}, Format(station.Cost, "$#,###"), Column{columns.Time},
                      Format(station.Time, "#,###.00"), Column{columns.Tasks},
                      TasksText(station.TaskStart, station.TaskEnd));
    printer.Print(Column{columns.Tools}, tools.First);
    if (tools.Split) {
        printer.Print(Column{columns.Tools}, tools.Rest);
    }
}

void SummaryWriter::PrintStations() {
    int number = 0;
    for (const Station& station : m_stations) {
        ++number;
        PrintStation(m_file, kFileColumns, number, station);
        PrintStation(m_picture, kPictureColumns, number, station);
    }
    PrintGap();
}

void SummaryWriter::PrintTimes() {
    const Workload workload = WorkloadOf(m_order.Request, m_model.Parameters());
    PrintBoth("Cycle Time: ", Tab{18}, Format(LongestTime(m_stations), "#.00"));
    PrintBoth("Max Cycle Time: ", Tab{18}, Format(workload.AvailableCycleTime, "#.00"));
    PrintGap();
}

void SummaryWriter::PrintTotal() {
    const std::string total = TotalText(m_stations);
    m_picture.Print("Total Cost: ", Tab{kPictureTotalColumn}, total);
    m_file.Print("Total Cost: ", Tab{kFileTotalColumn}, total);
}

void SummaryWriter::PrintSums() {
    m_file.Print("Initial Investment: ", Tab{kFileTotalColumn},
                 Format(Sum(m_stations, &Station::Investment), "$#,###"));
    m_file.Print("Annualized Labor: ", Tab{kFileTotalColumn},
                 Format(Sum(m_stations, &Station::AnnualLabor), "$#,###"));
}

void DrawChosenLine(Picture& picture, const LineModel& model,
                    const std::vector<Station>& stations) {
    std::vector<StationFigure> figures;
    figures.reserve(stations.size());
    for (const Station& station : stations) {
        const Resource& resource = model.ResourceOf(station.Resource);
        figures.push_back({resource.Type, station.Quantity, resource.ShortName, station.TaskStart,
                           station.TaskEnd - 1, station.Cost});
    }
    DrawLine(picture, std::move(figures));
}

}  // namespace

std::string WriteSolutionSummary(const Database& database, const LineModel& model,
                                 const FixedDemandOrder& order, PictureBoxes& boxes,
                                 const std::filesystem::path& report) {
    const std::vector<Station> stations = ReadStations(database);
    boxes.picGraph[0].Clear();
    SummaryWriter writer(model, order, stations, boxes.picGraph[0]);
    writer.PrintHead();
    writer.PrintStations();
    writer.PrintTimes();
    writer.PrintTotal();
    DrawChosenLine(boxes.picGraph[2], model, stations);
    boxes.picGraph[1].Clear();
    boxes.picGraph[3].Clear();
    writer.PrintSums();
    WriteFile(report, writer.FileText());
    return TotalText(stations);
}

}  // namespace quarnel02
