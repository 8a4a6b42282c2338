#pragma once

#include "shell/MainForm.h"

namespace quarnel02 {

/// Costs every pathway in state 1 under the form's fixed-demand state and writes stations, time
/// and costs into its row; state 2 marks those over the station limit or beyond 32,767 stations,
/// state 3 those that are not the cheapest of their arc (of equal ones the lower PathId, which
/// comes first in the table, is kept). Then searches the best path. Says so, and stops, when there
/// is no pathway or none within the limit; in the latter case the costs stay written. A run-time
/// error leaves Pathways as it was. However it ends, the network shows the states of the pathways.
void CostPathways(MainForm& form);

}  // namespace quarnel02
