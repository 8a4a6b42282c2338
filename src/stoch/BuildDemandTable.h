#pragma once

#include "stoch/StochRun.h"

namespace quarnel02 {

/// Reads the demand points, writes "EProd", the expected production over capacity, and draws the
/// distribution on picGraph 1. Sets the range of volumes that all curves cover. Rows that are no
/// demand points (IsDemandPoint) are left out with a notice.
/// Throws SubscriptOutOfRange for an eleventh point, TypeMismatch when no volume is above
/// 0, FileAccess.
void BuildDemandTable(StochRun& run);

}  // namespace quarnel02
