#pragma once

#include "line/Demand.h"
#include "picture/Picture.h"
#include "stoch/RunFiles.h"

namespace quarnel02 {

/// Writes "EShift", the expected shifts worked per day over capacity, and draws its steps. A demand
/// v is met in one shift from capacity 3 v on, in two from 1.5 v on, else in three.
/// Throws FileAccess.
void BuildShiftTable(const DemandDistribution& demand, const RunFiles& files, Picture& picture);

}  // namespace quarnel02
