#pragma once

#include "stoch/StochRun.h"

namespace quarnel02 {

/// Expected cost of the best designs over capacity on picGraph 3, with the chosen capacity marked
/// and the volumes that save a shift as light lines. Reads "Final.." and "EShift".
void DrawStochasticCosts(const StochRun& run);

}  // namespace quarnel02
