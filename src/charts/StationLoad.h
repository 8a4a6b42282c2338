#pragma once

#include "line/LineModel.h"
#include "picture/Picture.h"
#include "study/LineTable.h"

namespace quarnel02 {

/// The seconds of each station as a bar: its tasks on one another, then tool changes, transport
/// and uptime loss, against the available cycle time. Every part says what it is.
void DrawStationLoad(Picture& picture, const LineModel& model, const LineTable& table);

}  // namespace quarnel02
