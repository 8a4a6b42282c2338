#include "stoch/BuildInitialTable.h"

#include "stoch/MergeCurves.h"
#include "stoch/Notices.h"
#include "stoch/Records.h"

namespace quarnel02 {

void BuildInitialTable(StochRun& run) {
    const int resources = run.Form.Model.OpenRecordSet("SELECT Resources FROM Gen;").Integer(0);
    const auto merged = run.Files.Path("TempA");
    const auto output = run.Files.Path("TempC");
    const auto table = run.Files.Initial(run.StartTask, run.EndTask);
    bool found = false;
    for (int resource = 1; resource <= resources; ++resource) {
        const auto file = run.Files.Resource(run.StartTask, run.EndTask, resource);
        if (!IsRunFile(file)) {
            continue;
        }
        if (!found) {
            RenameRunFile(file, merged);
            found = true;
            continue;
        }
        const auto plain = [](double cost) { return cost; };
        NoticeEarlyEnd(run, table, MergeCurves<ArcSegment>(merged, file, output, plain));
        RenameRunFile(output, merged);
        DeleteRunFile(file);
    }
    DeleteRunFile(table);
    if (found) {
        RenameRunFile(merged, table);
    }
}

}  // namespace quarnel02
