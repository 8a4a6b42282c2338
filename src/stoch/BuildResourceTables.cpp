#include "stoch/BuildResourceTables.h"

#include "stoch/CurveFile.h"
#include "stoch/ExpectedProduction.h"
#include "stoch/ExpectedShifts.h"
#include "stoch/Notices.h"
#include "stoch/ResourceCurve.h"

namespace quarnel02 {

void BuildResourceTables(StochRun& run) {
    const RecordSet gen = run.Form.Model.OpenRecordSet("SELECT * FROM Gen;");
    run.Parameters = {gen.Number("Days"), gen.Number("ACF"), gen.Number("LaborCost"),
                      gen.Number("TransportTime")};
    const ExpectedProduction production(run.Files);
    const ExpectedShifts shifts(run.Files);
    for (int resource = 1; resource <= run.Resources; ++resource) {
        const auto path = run.Files.Resource(run.StartTask, run.EndTask, resource);
        const auto load = LoadOfArc(run, resource, run.StartTask, run.EndTask);
        if (!load) {
            continue;
        }
        const ResourceCurve curve(run, production, shifts, resource, *load);
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
