#include "fixed/DrawLoad.h"

#include <vector>

#include "charts/StationLoad.h"
#include "study/LineTable.h"

namespace quarnel02 {

namespace {

/// In the order of the line.
std::vector<StationGroup> ChosenGroups(const Database& database) {
    RecordSet rows = database.OpenRecordSet(
        "SELECT Pathways.ResourceId, Arcs.TaskStart, Arcs.TaskEnd, Pathways.Stations FROM Pathways "
        "INNER JOIN Arcs ON Pathways.ArcId = Arcs.ArcId WHERE Pathways.Feasible = 4 ORDER BY "
        "Arcs.TaskStart;");
    std::vector<StationGroup> groups;
    for (; !rows.Eof(); rows.MoveNext()) {
        groups.push_back({rows.Integer(0), rows.Integer(1), rows.Integer(2) - 1, rows.Integer(3)});
    }
    return groups;
}

}  // namespace

void DrawLoad(const Database& database, const LineModel& model, const FixedDemandRequest& request,
              Picture& picture) {
    DrawStationLoad(picture, model,
                    TableOf(model, ChosenGroups(database), BasisOf(request, model.Parameters())));
}

}  // namespace quarnel02
