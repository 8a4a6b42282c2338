#pragma once

#include "line/StochasticDesign.h"

namespace quarnel02 {

/// The line at the volume of lowest expected cost, its capacity. Throws NoCurrentRecord when no
/// line is possible at any volume.
const StochasticLine& ExtractStochasticSolution(const StochasticResult& result);

}  // namespace quarnel02
