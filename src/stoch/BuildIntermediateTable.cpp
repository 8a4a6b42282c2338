#include "stoch/BuildIntermediateTable.h"

#include <string>

#include "basic/LinePrinter.h"
#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
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

/// "task 7 (Screw cover)"; by its number alone when it has no text.
std::string NameOfTask(const StochRun& run, int task) {
    const std::string name = "task " + NumberText(task);
    const RecordSet row = run.Form.Model.OpenRecordSet(
        "SELECT Description FROM Tasks WHERE TaskId = " + NumberText(task) + ";");
    const std::string text = row.Eof() ? "" : WithoutControls(row.Text(0));
    const auto first = text.find_first_not_of(' ');
    return first == std::string::npos
               ? name
               : name + " (" + text.substr(first, text.find_last_not_of(' ') - first + 1) + ")";
}

bool HasTime(const StochRun& run, int task) {
    for (int resource = 1; resource <= run.Resources; ++resource) {
        if (run.Pair(resource, task).TaskTime > 0) {
            return true;
        }
    }
    return false;
}

/// Why no arc ends at the task: an arc takes the times of all its tasks, so not even the task alone
/// can be done.
std::string ReasonFor(const StochRun& run, int task) {
    const std::string name = NameOfTask(run, task);
    if (!HasTime(run, task)) {
        return "No resource can do " + name +
               ": none has a time for it. Enter one in the task-resource matrix.";
    }
    return "No resource can do " + name + " within " + Format(kMostInChoice, "#,###") +
           " parallel stations, even for the lowest volume of " +
           Format(static_cast<double>(run.FirstVolume), "#,##0") +
           " units a year. Check its times, the working days and the demand.";
}

void EndWithoutTable(StochRun& run) {
    run.Form.ShowMessage("Error creating intermediate task table\n\n" + ReasonFor(run, run.EndTask),
                         MessageIcon::Critical);
    run.Form.CloseModel();
    run.Form.EndProgram();
}

}  // namespace

int BuildIntermediateTable(StochRun& run) {
    int counter = 1;
    for (int start = 1; start <= run.EndTask; ++start) {
        const auto arcs = run.Files.Initial(start, run.EndTask);
        if (!IsRunFile(arcs)) {
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
        EndWithoutTable(run);
    }
    return counter;
}

}  // namespace quarnel02
