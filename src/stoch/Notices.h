#pragma once

#include <string>

#include "line/CurveListener.h"
#include "line/LineModel.h"

namespace quarnel02 {

/// Tells the user that a table is full and its curve ends early, or that a resource gets none
/// because the lowest volume already needs too many stations.
std::string NoticeOf(const EarlyEnd& end);

/// Of how many rows of the demand distribution are no demand points.
std::string NoticeOfRowsLeftOut(int rows);

/// Why no line can do a task: `firstVolume` (units per year) is the lowest one asked for.
std::string ImpossibleTaskText(const LineModel& model, int task, float firstVolume);

}  // namespace quarnel02
