#pragma once

#include "line/LineModel.h"
#include "report/Document.h"
#include "study/LineTable.h"

namespace quarnel02 {

/// What the stations of a line do: tasks with their texts, tools, and how full they are.
TablePart StationWorkTable(const LineModel& model, const LineTable& line);

/// What they cost, dollars per year; the last row is the sum of all stations.
TablePart StationCostTable(const LineTable& line);

}  // namespace quarnel02
