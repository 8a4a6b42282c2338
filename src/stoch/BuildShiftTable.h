#pragma once

#include "stoch/StochRun.h"

namespace quarnel02 {

/// Writes "EShift", the expected shifts worked per day over capacity, and draws it on picGraph 3.
/// A demand v is met in one shift from capacity 3 v on, in two from 1.5 v on, else in three.
/// Throws FileAccess.
void BuildShiftTable(StochRun& run);

}  // namespace quarnel02
