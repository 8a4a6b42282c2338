#pragma once

#include <vector>

#include "picture/Picture.h"
#include "study/Sensitivity.h"

namespace quarnel02 {

/// How many figures a tornado chart shows.
inline constexpr int kTornadoRows = 12;

/// What the strongest figures do to the cost of the cheapest line, as bars to both sides of today's
/// cost: the figure lower and higher by its share. A figure with which the line changes bears a
/// star; where there is no line at one end its words say so. `cost` is today's, dollars per year.
void DrawTornado(Picture& picture, std::vector<SensitivityRow> rows, double cost);

}  // namespace quarnel02
