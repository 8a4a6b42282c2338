#pragma once

#include "stoch/StochRun.h"

namespace quarnel02 {

/// Writes the cost curve of every resource that can do all tasks of the arc in hand: one file
/// "F.. T.. .R.." per resource. A curve bends where the expected production does, jumps up just
/// above a volume that needs one more station, and down at a volume that saves a shift; it ends
/// where more than 4095 stations would be needed, with a notice.
/// Throws DivisionByZero for an uptime or stations per worker of 0, Overflow, FileAccess.
void BuildResourceTables(StochRun& run);

}  // namespace quarnel02
