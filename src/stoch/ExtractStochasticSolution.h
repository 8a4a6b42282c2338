#pragma once

#include "stoch/StochRun.h"

namespace quarnel02 {

/// Takes the volume of lowest expected cost as the line's capacity, and traces the design that
/// gives it back through the final tables. Throws NoCurrentRecord when the table of the last task
/// is empty, FileAccess.
void ExtractStochasticSolution(StochRun& run);

}  // namespace quarnel02
