#pragma once

#include "stoch/StochRun.h"

namespace quarnel02 {

/// The penalty that txtPenalty holds, dollars per unit of unmet demand. Throws TypeMismatch when
/// that is no number, Overflow when it cannot be one.
float PenaltyPerUnit(const MainForm& form);

/// Adds the expected penalty for unmet demand, (mean demand - expected production) x penalty per
/// unit, to the final table of the last task. Throws as PenaltyPerUnit does, and FileAccess.
void AddExpectedPenalties(StochRun& run);

}  // namespace quarnel02
