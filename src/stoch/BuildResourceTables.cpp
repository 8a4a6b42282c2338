#include "stoch/BuildResourceTables.h"

#include "stoch/CurveFile.h"
#include "stoch/ExpectedProduction.h"
#include "stoch/ExpectedShifts.h"
#include "stoch/Notices.h"
#include "stoch/ResourceCurve.h"

namespace quarnel02 {

void BuildResourceTables(StochRun& run) {
    const RecordSet gen = run.Form.Model.OpenRecordSet("SELECT * FROM Gen;");
    run.Parameters.Days = gen.Number("Days");
    run.Parameters.ACF = gen.Number("ACF");
    run.Parameters.LaborCost = gen.Number("LaborCost");
    run.Parameters.TransportTime = gen.Number("TransportTime");
    const ExpectedProduction production(run.Files);
    const ExpectedShifts shifts(run.Files);
    for (int resource = 1; resource <= run.Resources; ++resource) {
        const auto path = run.Files.Resource(run.StartTask, run.EndTask, resource);
        const auto content = ContentOfArc(run, resource, run.StartTask, run.EndTask);
        if (!content) {
            continue;
        }
        const ResourceCurve curve(run, production, shifts, resource, *content);
        if (!curve.IsPossible()) {
            NoticeNoTable(run, path);
            continue;
        }
        CurveWriter<ArcSegment> file(path);
        const auto end = curve.Write(file);
        file.Close();  // never full: a segment per number of stations, a few per demand point
        NoticeStationsEnd(run, path, end);
    }
}

}  // namespace quarnel02
