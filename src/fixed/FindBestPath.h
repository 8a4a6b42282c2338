#pragma once

#include "line/ReportedChain.h"
#include "model/Database.h"

namespace quarnel02 {

/// Finds the cheapest chain of pathways in state 1 from node 1 to the last node that any of them
/// reaches, keeps the label of every node in BestPaths and marks the chain with state 4; the marks
/// of an earlier search are taken back first. Where it runs into a dead end, the labels and marks
/// made so far are written. Throws NoCurrentRecord without a pathway in state 1 or 4, and what the
/// store reports; the tables are then as they were.
ReportedChain FindBestPath(const Database& database);

}  // namespace quarnel02
