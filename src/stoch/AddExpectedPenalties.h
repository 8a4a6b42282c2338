#pragma once

#include "stoch/StochRun.h"

namespace quarnel02 {

/// Adds the expected penalty for unmet demand, (mean demand - expected production) x penalty per
/// unit, to the final table of the last task. The penalty is the text of txtPenalty, dollars per
/// unit. Throws TypeMismatch when that is no number, FileAccess.
void AddExpectedPenalties(StochRun& run);

}  // namespace quarnel02
