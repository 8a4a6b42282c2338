#pragma once

#include "stoch/StochRun.h"

namespace quarnel02 {

/// Merges the candidate tables of the end task in hand, of which there are `counter` - 1, into
/// "Final..": the cheapest design of all tasks up to it at every volume. Throws FileAccess.
void BuildFinalTable(StochRun& run, int counter);

/// The value by which the cost of a design is compared: a cost of exactly 0 counts as 10000. That
/// is meant; the cost itself stays 0.
double ComparedCost(double cost);

}  // namespace quarnel02
