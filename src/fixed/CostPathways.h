#pragma once

#include "line/FixedDemand.h"
#include "line/LineModel.h"
#include "model/Database.h"
#include "picture/Picture.h"

namespace quarnel02 {

/// What came of costing the pathways.
enum class Costing {
    NoPathway,        ///< there is none in state 1; nothing was done
    NothingFeasible,  ///< none is within the limit; the costs are written
    Feasible
};

/// Costs every pathway in state 1 for a request and writes stations, time and costs into its row;
/// state 2 marks those over the station limit or beyond 32,767 stations, state 3 those that are not
/// the cheapest of their arc (of equal ones the lower PathId, which comes first in the table, is
/// kept). Draws their arcs in the colour of progress over the network as it goes.
/// `model` is that of the database. Throws what WorkloadOf and CostAll throw, NoCurrentRecord for
/// a pathway that the model cannot have, and what the store reports; Pathways is then as it was.
Costing CostPathways(const Database& database, const LineModel& model,
                     const FixedDemandRequest& request, Picture& network);

}  // namespace quarnel02
