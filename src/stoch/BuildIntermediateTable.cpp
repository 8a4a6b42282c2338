#include "stoch/BuildIntermediateTable.h"

#include "stoch/AddCurves.h"
#include "stoch/CurveFile.h"
#include "stoch/Notices.h"
#include "stoch/Records.h"

namespace quarnel02 {

namespace {

void CopyArcCurve(const std::filesystem::path& arcs, CurveWriter<DesignSegment>& output) {
    for (CurveReader<ArcSegment> arc(arcs); !arc.AtEnd(); arc.Advance()) {
        output.Write(WithArc(arc.Current(), 0));
    }
}

void AddArcCurve(const std::filesystem::path& arcs, const std::filesystem::path& prefixes,
                 int previousTask, CurveWriter<DesignSegment>& output) {
    CurveReader<ArcSegment> arc(arcs);
    CurveReader<DesignSegment> prefix(prefixes);
    AddCurves(arc, prefix, previousTask, output);
}

}  // namespace

int BuildIntermediateTable(StochRun& run) {
    int counter = 1;
    for (int start = 1; start <= run.EndTask; ++start) {
        const auto arcs = run.Files.Initial(start, run.EndTask);
        if (!std::filesystem::exists(arcs)) {
            continue;
        }
        const auto table = run.Files.Candidate(counter);
        CurveWriter<DesignSegment> output(table);
        if (start == 1) {
            CopyArcCurve(arcs, output);
        } else {
            AddArcCurve(arcs, run.Files.Final(start - 1), start - 1, output);
        }
        NoticeEarlyEnd(run, table, output.Close());
        ++counter;
    }
    if (counter == 1) {
        run.Form.ShowMessage("Error creating intermediate task table", MessageIcon::Critical);
        run.Form.EndProgram();
    }
    return counter;
}

}  // namespace quarnel02
