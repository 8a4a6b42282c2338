#include "fixed/FindBestPath.h"

#include <string>
#include <vector>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "fixed/DrawLinks.h"
#include "fixed/WriteSolutionSummary.h"
#include "line/CheapestLine.h"
#include "line/ReportedChain.h"
#include "model/RowWriter.h"
#include "shell/DesignMade.h"

namespace quarnel02 {

namespace {

/// The ways in of the network, by end node and start node. Throws NoCurrentRecord without any.
std::vector<Way> ReadWays(const Database& database) {
    RecordSet rows = database.OpenRecordSet(
        "SELECT Pathways.PathId, Arcs.TaskEnd, Arcs.TaskStart, Pathways.Cost FROM Arcs INNER JOIN "
        "Pathways ON Arcs.ArcId = Pathways.ArcId Where ((Pathways.Feasible = 1)) ORDER BY "
        "Arcs.TaskEnd, Arcs.TaskStart;");
    std::vector<Way> ways;
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
        ways.push_back({rows.Integer(0), rows.Integer(2), rows.Integer(1), rows.Number(3)});
    }
    return ways;
}

/// The line of an earlier search is feasible again.
void ForgetChoice(const Database& database) {
    constexpr int feasible = static_cast<int>(PathwayState::Feasible);
    constexpr int chosen = static_cast<int>(PathwayState::Chosen);
    RowWriter::Changing(database, "Pathways", {"Feasible"}, "Feasible").Write({feasible, chosen});
}

void WriteLabels(const Database& database, const std::vector<NodeLabel>& labels) {
    DeleteAllRows(database, "BestPaths");
    RowWriter rows =
        RowWriter::Adding(database, "BestPaths", {"ThisPath", "PathId", "SubPath", "PathCost"});
    for (const NodeLabel& label : labels) {
        rows.Write({label.Node, label.Pathway, label.Start, static_cast<double>(label.Cost)});
    }
}

void MarkChosen(const Database& database, const std::vector<int>& pathways) {
    RowWriter rows = RowWriter::Changing(database, "Pathways", {"Feasible"}, "PathId");
    for (const int pathway : pathways) {
        rows.Write({static_cast<int>(PathwayState::Chosen), pathway});
    }
}

DeadEnd Search(MainForm& form) {
    const Database database = form.OpenWorkingCopy();
    Transaction transaction(database);
    ForgetChoice(database);
    const ReportedChain chain = SearchReportedChain(ReadWays(database));
    WriteLabels(database, chain.Labels);
    MarkChosen(database, chain.Pathways);
    transaction.Commit();
    return chain.End;
}

void ShowDeadEnd(MainForm& form, DeadEnd end) {
    const bool broken = end == DeadEnd::BrokenChain;
    form.ShowMessage(
        broken ? "There is no feasible solution!" : "There is no feasible solution.",
        end == DeadEnd::UnreachedStart ? MessageIcon::Information : MessageIcon::Critical);
}

/// How far a line that was found goes.
struct LineEnd {
    int LastTask;  ///< of the line
    int Tasks;     ///< of the model

    [[nodiscard]] bool LeavesTasksOut() const { return LastTask < Tasks; }
};

LineEnd FetchLineEnd(MainForm& form) {
    const Database& database = form.OpenWorkingCopy();
    const RecordSet last = database.OpenRecordSet("SELECT Max(ThisPath) FROM BestPaths;");
    const RecordSet gen = database.OpenRecordSet("SELECT Tasks FROM Gen;");
    return {last.Integer(0) - 1, gen.Integer(0)};
}

/// "2 shifts, 60,000 units a year"
std::string DesignCaption(const FixedDemandState& state, LineEnd end) {
    const std::string shifts =
        NumberText(int{state.ShiftCount}) + (state.ShiftCount == 1 ? " shift" : " shifts");
    const std::string volume =
        Format(TextToDouble(state.FixedDemand, "Fixed Demand"), "#,##0") + " units a year";
    return shifts + ", " + volume +
           (end.LeavesTasksOut() ? ", ends after task " + NumberText(end.LastTask) : "");
}

std::string LeftOutText(LineEnd end) {
    return "This line ends after task " + NumberText(end.LastTask) + ": no resource can do tasks " +
           NumberText(end.LastTask + 1) + " to " + NumberText(end.Tasks) + " within the limits.";
}

}  // namespace

float GetPathCost(MainForm& form, std::int16_t node) {
    const RecordSet label = form.OpenWorkingCopy().OpenRecordSet(
        "SELECT PathCost FROM BestPaths WHERE ThisPath = " + NumberText(int{node}) + ";");
    return label.RecordCount() != 0 ? label.Single(0) : 0.0F;
}

void FindBestPath(MainForm& form) {
    const DeadEnd dead_end = Search(form);
    DrawLinks(form);
    if (dead_end != DeadEnd::None) {
        ShowDeadEnd(form, dead_end);
        return;
    }
    WriteSolutionSummary(form);
    const LineEnd end = FetchLineEnd(form);
    NoteDesign(form, DesignCaption(form.FixedDemandSolve, end));
    if (end.LeavesTasksOut()) {
        form.ShowMessage(LeftOutText(end), MessageIcon::Critical);
    }
}

}  // namespace quarnel02
