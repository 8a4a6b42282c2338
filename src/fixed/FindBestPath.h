#pragma once

#include <cstdint>

#include "shell/MainForm.h"

namespace quarnel02 {

/// Finds the cheapest chain of pathways in state 1 from node 1 to the last node that any of them
/// reaches, keeps the label of every node in BestPaths and marks the chain with state 4. Then
/// draws the network, writes the solution summary and notes the design; where the line ends before
/// the last task, says afterwards which tasks it leaves out.
/// Where the search runs into a dead end, a start node without a label, it draws the network, says
/// so and stops; labels and marks made so far stay.
void FindBestPath(MainForm& form);

/// Cheapest known cost of reaching a node, dollars per year; 0 when the node has no label. Leaves
/// the form's shared handle newly opened.
float GetPathCost(MainForm& form, std::int16_t node);

}  // namespace quarnel02
