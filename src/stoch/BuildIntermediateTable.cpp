#include "stoch/BuildIntermediateTable.h"

#include <algorithm>

#include "stoch/CurveFile.h"
#include "stoch/Notices.h"
#include "stoch/Records.h"

namespace quarnel02 {

namespace {

DesignSegment WithArc(const ArcSegment& arc, int previousTask) {
    DesignSegment design;
    design.SegStart = arc.SegStart;
    design.SegEnd = arc.SegEnd;
    design.CostStart = arc.CostStart;
    design.CostEnd = arc.CostEnd;
    design.ArcResource = static_cast<std::int16_t>(ResourceOf(arc.Choice));
    design.PrevTask = static_cast<std::int16_t>(previousTask);
    design.ArcInfo = static_cast<std::int16_t>(StationsOf(arc.Choice));
    return design;
}

void CopyArcCurve(const std::filesystem::path& arcs, CurveWriter<DesignSegment>& output) {
    for (CurveReader<ArcSegment> arc(arcs); !arc.AtEnd(); arc.Advance()) {
        output.Write(WithArc(arc.Current(), 0));
    }
}

float SumAt(const ArcSegment& arc, const DesignSegment& prefix, float volume) {
    return static_cast<float>(CostAt(arc, volume) + CostAt(prefix, volume));
}

/// Adds the two curves as far as both reach.
void AddCurves(const std::filesystem::path& arcs, const std::filesystem::path& prefixes,
               int previousTask, CurveWriter<DesignSegment>& output) {
    CurveReader<ArcSegment> arc(arcs);
    CurveReader<DesignSegment> prefix(prefixes);
    while (!arc.AtEnd() && !prefix.AtEnd()) {
        const float from = std::max(arc.Current().SegStart, prefix.Current().SegStart);
        const float to = std::min(arc.Current().SegEnd, prefix.Current().SegEnd);
        DesignSegment sum = WithArc(arc.Current(), previousTask);
        sum.SegStart = from;
        sum.SegEnd = to;
        sum.CostStart = SumAt(arc.Current(), prefix.Current(), from);
        sum.CostEnd = SumAt(arc.Current(), prefix.Current(), to);
        output.Write(sum);
        arc.AdvancePast(to);
        prefix.AdvancePast(to);
    }
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
            AddCurves(arcs, run.Files.Final(start - 1), start - 1, output);
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
