#include "fixed/FindBestPath.h"

#include <vector>

#include "line/CheapestLine.h"
#include "model/RowWriter.h"

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

}  // namespace

ReportedChain FindBestPath(const Database& database) {
    Transaction transaction(database);
    ForgetChoice(database);
    ReportedChain chain = SearchReportedChain(ReadWays(database));
    WriteLabels(database, chain.Labels);
    MarkChosen(database, chain.Pathways);
    transaction.Commit();
    return chain;
}

}  // namespace quarnel02
