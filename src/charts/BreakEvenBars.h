#pragma once

#include <vector>

#include "picture/Picture.h"
#include "study/Sensitivity.h"

namespace quarnel02 {

/// Rows of a chart of break-evens.
inline constexpr int kBreakEvenRows = 12;

/// How far figures are from the values at which the line changes, in percent of today's: a bar for
/// each of those with a break-even within 100 percent, the nearest first, at most kBreakEvenRows.
/// Every bar tells the value.
void DrawBreakEvens(Picture& picture, const std::vector<SensitivityRow>& rows);

}  // namespace quarnel02
