#pragma once

#include <optional>
#include <span>
#include <vector>

#include "line/CheapestLine.h"
#include "line/StationGroup.h"

namespace quarnel02 {

/// The line of CheapestLine for costs and states that stand already.
std::optional<Line> DesignOf(const PreparedLine& line, const CostedPathways& costed);

/// By how much sums of singles for so many tasks may be off, for costs near `cost`, dollars.
double RoundingOf(double cost, int tasks);

/// Whether a line can still be built with the same stations and costs what the cheapest one does,
/// up to rounding.
bool StaysCheapest(const PreparedLine& line, const CostedPathways& costed, const Line& former,
                   float cheapest);

}  // namespace quarnel02
