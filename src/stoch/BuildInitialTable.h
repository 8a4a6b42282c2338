#pragma once

#include "stoch/StochRun.h"

namespace quarnel02 {

/// Merges the resource tables of the arc in hand into "IT..", the cheapest resource at every
/// volume; the resource tables are used up. An arc without any resource table gets no file: one
/// that another arc left under the same name is deleted first. Throws FileAccess.
void BuildInitialTable(StochRun& run);

}  // namespace quarnel02
