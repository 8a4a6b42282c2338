#include "fixed/CreateLinks.h"

#include <cmath>

#include "basic/Limits.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "fixed/ArcDrawing.h"
#include "fixed/GeneratePathways.h"
#include "model/RowWriter.h"

namespace quarnel02 {

namespace {

// Five decimals are meant: stored angles and drawings stay the same.
constexpr double kPi = 3.14159;
constexpr double kTwoPi = 6.28318;

std::int16_t NodeCount(const TextBoxes& boxes) {
    const double tasks = TextToDouble(boxes.Text(TextBox::txtTasks), "Number of tasks");
    if (tasks > limits::kTasks) {
        throw RunTimeError(ErrorKind::Overflow,
                           "Tasks: the model has " + NumberText(tasks) +
                               " tasks, and at most 255 are possible. Join or remove tasks.");
    }
    return ToInteger(tasks + 1, "Number of tasks");
}

void AppendArcs(const Database& database, std::int16_t nodes, double spacing) {
    RowWriter arcs = RowWriter::Adding(
        database, "Arcs", {"ArcId", "TaskStart", "TaskEnd", "Midpoint", "Radius", "Start", "End"});
    int counter = 0;
    for (int level = nodes - 1; level >= 1; --level) {
        const int span = nodes - level;
        const bool below = level % 2 != 0;
        const auto radius = static_cast<double>(ToSingle(0.5 * span * spacing, "Radius"));
        for (int start = 1; start <= level; ++start) {
            const int midpoint = ToInteger(0.5 * span * spacing + start * spacing, "Midpoint");
            arcs.Write({counter, start, start + span, midpoint, radius, below ? kPi : 0.0,
                        below ? kTwoPi : kPi});
            ++counter;
        }
    }
}

/// Whether the file has failed, and not a row: a full disk, a lock, a damaged database.
bool IsFailureOfFile(const RunTimeError& error) {
    return error.Kind() == ErrorKind::FileAccess || error.Kind() == ErrorKind::FileNotFound ||
           error.Kind() == ErrorKind::DatabaseLocked || error.Kind() == ErrorKind::NotAModel;
}

/// Pathways name arcs by numbers that mean others in a network of another size: they go with
/// theirs, even where the matrix then turns out to allow no new ones.
void DropPathwaysOfOtherNetwork(const Database& database, std::int16_t nodes) {
    const RecordSet arcs = database.OpenRecordSet("SELECT COUNT(*) FROM Arcs;");
    if (arcs.Number(0) != nodes * (nodes - 1) / 2.0) {
        DeleteAllRows(database, "Pathways");
    }
}

void RebuildArcs(const Database& database, std::int16_t nodes, double spacing) {
    Transaction transaction(database);
    DropPathwaysOfOtherNetwork(database, nodes);
    DeleteAllRows(database, "Arcs");
    AppendArcs(database, nodes, spacing);
    transaction.Commit();
}

}  // namespace

void CreateLinks(const Database& database, const TextBoxes& boxes, Picture& network) {
    const std::int16_t nodes = NodeCount(boxes);
    const double spacing = NodeSpacing(nodes);
    try {
        RebuildArcs(database, nodes, spacing);
    } catch (const RunTimeError& error) {
        // Meant: the rebuild reports nothing of its own. But a full disk would come out in
        // GeneratePathways as missing arcs, and so as the planner's fault.
        if (IsFailureOfFile(error)) {
            throw;
        }
    }
    GeneratePathways(database, boxes, network);
}

}  // namespace quarnel02
