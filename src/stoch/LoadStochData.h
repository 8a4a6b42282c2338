#pragma once

#include "stoch/StochRun.h"

namespace quarnel02 {

/// Reads the numbers of tasks and resources from Gen, and every task-resource pair and resource
/// from the model. A pair without a row or a time is kept with time, tool and cost 0. False when a
/// resource has no row. Throws Overflow for more than 4,095 resources.
bool LoadStochData(StochRun& run);

}  // namespace quarnel02
