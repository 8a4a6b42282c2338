#pragma once

#include <optional>
#include <vector>

#include "line/CheapestLine.h"
#include "line/FixedDemand.h"
#include "line/Pathways.h"
#include "study/LineTable.h"

namespace quarnel02 {

/// How many lines and capacities a study of alternatives shows.
inline constexpr int kShownAlternatives = 10;

/// One of the cheapest lines for a request.
struct Alternative {
    Line Design;
    CostFigures Figures;    ///< of the whole line
    double Difference = 0;  ///< its cost less that of the cheapest line, dollars per year
};

/// The cheapest lines, at most `count`, in ascending cost; the order of CheapestLines. None when
/// there is no line. Throws as CostAll does.
std::vector<Alternative> AlternativesFor(const PreparedLine& line,
                                         const FixedDemandRequest& request,
                                         int count = kShownAlternatives);

/// What would replace a station group at the same tasks.
struct Replacement {
    LineGroup Group;
    double Difference = 0;  ///< its cost less that of the group, dollars per year; may be negative
};

/// For each group of a line of the request the cheapest other resource that can do its tasks
/// within the limit; of equal costs the lower number. None where there is no other one.
std::vector<std::optional<Replacement>> Replacements(const PreparedLine& line,
                                                     const FixedDemandRequest& request,
                                                     const Line& design);

}  // namespace quarnel02
