#include "stoch/Notices.h"

#include <algorithm>

#include "basic/LinePrinter.h"
#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "line/ResourceCurve.h"
#include "stoch/RunFiles.h"

namespace quarnel02 {

namespace {

std::string VolumeText(float volume) {
    return Format(static_cast<double>(volume), "#,##0");
}

/// "task 7 (Screw cover)"; by its number alone when it has no text.
std::string NameOf(const Task& task) {
    const std::string name = "task " + NumberText(task.Number);
    const std::string text = WithoutControls(task.Description);
    const auto first = text.find_first_not_of(' ');
    return first == std::string::npos
               ? name
               : name + " (" + text.substr(first, text.find_last_not_of(' ') - first + 1) + ")";
}

bool HasTime(const LineModel& model, int task) {
    const auto resources = model.Resources();
    return std::any_of(resources.begin(), resources.end(), [&](const Resource& resource) {
        return model.CanDo(resource.Number, task);
    });
}

/// An arc takes the times of all its tasks, so where none ends at a task, not even the task alone
/// can be done.
std::string ReasonFor(const LineModel& model, int task, float firstVolume) {
    const std::string name = NameOf(model.Tasks()[static_cast<std::size_t>(task) - 1]);
    if (!HasTime(model, task)) {
        return "No resource can do " + name +
               ": none has a time for it. Enter one in the task-resource matrix.";
    }
    return "No resource can do " + name + " within " + Format(kMostInCurve, "#,###") +
           " parallel stations, even for the lowest volume of " + VolumeText(firstVolume) +
           " units a year. Check its times, the working days and the demand.";
}

}  // namespace

std::string NoticeOf(const EarlyEnd& end) {
    const std::string table = "Table " + RunFileName(end.Curve);
    if (end.Empty) {
        return table + " is not made: " + NumberText(kMostInCurve) +
               " parallel stations are not enough for a volume of " + VolumeText(end.Volume) + ".";
    }
    const std::string limit = end.Reason == CurveEnd::TooLong
                                  ? NumberText(static_cast<int>(kMostSegments)) + " records"
                                  : NumberText(kMostInCurve) + " parallel stations";
    return table + " is full at " + limit + ": its cost curve ends at a volume of " +
           VolumeText(end.Volume) + ".";
}

std::string NoticeOfRowsLeftOut(int rows) {
    return (rows == 1 ? "1 demand row" : NumberText(rows) + " demand rows") +
           " without a number left out.";
}

std::string ImpossibleTaskText(const LineModel& model, int task, float firstVolume) {
    return "Error creating intermediate task table\n\n" + ReasonFor(model, task, firstVolume);
}

}  // namespace quarnel02
