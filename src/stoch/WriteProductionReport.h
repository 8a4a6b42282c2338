#pragma once

#include <string>

#include "stoch/StochRun.h"

namespace quarnel02 {

/// Shows the chosen design on picGraph 0, marks it in Pathways with state 4 (all other rows get
/// 1), redraws the network, writes "ProdRpt.txt", opens it, and draws the line on picGraph 2.
/// Returns the summary's lines as text. Throws what the store reports, FileAccess.
std::string WriteProductionReport(StochRun& run);

}  // namespace quarnel02
