#pragma once

#include "fixed/ArcWords.h"
#include "model/Database.h"
#include "picture/Picture.h"
#include "shell/TextBoxes.h"

namespace quarnel02 {

/// Draws the arc network: every arc in the colours of the states of its pathways, the chosen line
/// on top, and the row of nodes for as many tasks as txtTasks says. `costs` says whether the words
/// behind the arcs may name the costs of their rows. Throws TypeMismatch when txtTasks is no
/// number, and what the store reports.
void DrawLinks(const Database& database, const TextBoxes& boxes, Picture& network,
               PathwayCosts costs = PathwayCosts::Known);

}  // namespace quarnel02
