#pragma once

#include "line/Demand.h"
#include "picture/Picture.h"

namespace quarnel02 {

/// The demand points as bars at their volumes, labelled with their probabilities. Points so near
/// that their bars would touch share one bar, which says how many they are and their sum.
void DrawDemand(const DemandDistribution& demand, Picture& picture);

}  // namespace quarnel02
