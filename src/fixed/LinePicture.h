#pragma once

#include <string>
#include <vector>

#include "picture/Picture.h"

namespace quarnel02 {

/// A station of the drawn line.
struct StationFigure {
    int Type = 0;  ///< equipment class as Resources.Type stores it; others draw no icon
    int Quantity = 1;
    std::string Name;  ///< of the resource
    int FirstTask = 1;
    int LastTask = 1;
    double Cost = 0;  ///< dollars per year
};

/// Draws the line under the heading "Graphical Representation" as large as fits the paper: a card
/// per station in line order with number, icon, resource, "Qty: n" and tasks, and the flow from
/// card to card. Cards that would be too small for that are flat ones; for more of them than the
/// paper holds it grows downwards.
void DrawLine(Picture& picture, std::vector<StationFigure> stations);

}  // namespace quarnel02
