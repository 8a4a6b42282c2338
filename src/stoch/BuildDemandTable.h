#pragma once

#include "line/Demand.h"
#include "picture/Picture.h"
#include "stoch/RunFiles.h"

namespace quarnel02 {

/// Writes "EProd", the expected production over capacity, and draws bars of the distribution over
/// volume, equal volumes added up. Throws FileAccess.
void BuildDemandTable(const DemandDistribution& demand, const RunFiles& files, Picture& picture);

}  // namespace quarnel02
