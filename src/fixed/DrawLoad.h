#pragma once

#include "line/FixedDemand.h"
#include "line/LineModel.h"
#include "model/Database.h"
#include "picture/Picture.h"

namespace quarnel02 {

/// Draws how full the stations of the chosen line are, that whose pathways are in state 4, against
/// the cycle time that the request leaves them. Throws as CostOfGroup does.
void DrawLoad(const Database& database, const LineModel& model, const FixedDemandRequest& request,
              Picture& picture);

}  // namespace quarnel02
