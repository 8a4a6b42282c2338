#pragma once

#include "stoch/StochRun.h"

namespace quarnel02 {

/// Bars of the demand distribution over volume, on picGraph 1.
void DrawDemandDistribution(const StochRun& run);

/// Expected shifts over capacity as steps, on picGraph 3. Reads "EShift".
void DrawShiftTable(const StochRun& run);

}  // namespace quarnel02
