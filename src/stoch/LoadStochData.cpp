#include "stoch/LoadStochData.h"

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "stoch/Records.h"

namespace quarnel02 {

namespace {

MatrixEntry FetchPair(const Database& database, int resource, int task) {
    const RecordSet pair = database.OpenRecordSet(
        "SELECT TaskTime, ToolNum, ToolCost FROM Matrix WHERE ResourceId = " +
        NumberText(resource) + " AND TaskId = " + NumberText(task) + ";");
    const bool can = pair.RecordCount() > 0 && !IsNull(pair.Field(0)) && pair.Number(0) > 0;
    if (!can) {
        return {0, 0, 0};
    }
    return {pair.Number(0), pair.Integer(1), pair.Number(2)};
}

/// False when there is no such resource.
bool FetchResource(const Database& database, int resource, Resource& data) {
    const RecordSet row = database.OpenRecordSet(
        "SELECT ShortName, FixedCost, UpTime, ToolChange, VarCost, ICF, StatPerWrk, Type FROM "
        "Resources WHERE ResourceId = " +
        NumberText(resource) + ";");
    if (row.RecordCount() == 0) {
        return false;
    }
    data.ShortName = row.Text(0);
    data.Number = resource;
    data.FixedCost = row.Number(1);
    data.VarCost = row.Number(4);
    data.UpTime = row.Number(2);
    data.ICF = row.Number(5);
    data.ToolChange = row.Number(3);
    data.StatPerWrk = row.Number(6);
    data.Type = row.Integer(7);
    return true;
}

/// A larger number of resources does not fit into the records of the run files.
void RequireFitting(int resources) {
    if (resources > kMostInChoice) {
        throw RunTimeError(ErrorKind::Overflow,
                           "Number of resources is " + Format(resources, "#,###") +
                               "; the stochastic design takes at most 4,095 of them. Delete some "
                               "in the resource editor.");
    }
}

}  // namespace

bool LoadStochData(StochRun& run) {
    const Database& database = run.Form.Model;
    const RecordSet gen = database.OpenRecordSet("SELECT * FROM GEN;");
    run.Tasks = gen.Integer("Tasks");
    run.Resources = gen.Integer("Resources");
    RequireFitting(run.Resources);
    run.Matrix.clear();
    run.ResourceData.clear();
    const Transaction reading(database);
    for (int resource = 1; resource <= run.Resources; ++resource) {
        for (int task = 1; task <= run.Tasks; ++task) {
            run.Matrix.push_back(FetchPair(database, resource, task));
        }
        if (!FetchResource(database, resource, run.ResourceData.emplace_back())) {
            return false;
        }
    }
    return true;
}

}  // namespace quarnel02
