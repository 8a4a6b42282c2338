#pragma once

#include "stoch/StochRun.h"

namespace quarnel02 {

/// Writes the candidate tables "Temp1", "Temp2", ... of the end task in hand: for each start task
/// whose arc has a table, the best designs of the tasks before it followed by that arc. Returns
/// the number of tables plus 1. When there is none, says "Error creating intermediate task
/// table" and which task no resource can do, closes the model and ends the program. Throws
/// FileAccess.
int BuildIntermediateTable(StochRun& run);

}  // namespace quarnel02
