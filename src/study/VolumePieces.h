#pragma once

#include <vector>

#include "line/StationGroup.h"
#include "study/VolumeDesigns.h"

namespace quarnel02 {

/// Volumes for which one line is the cheapest.
struct LinePiece {
    int From = 0;  ///< units per year
    int To = 0;
    double Base = 0;   ///< dollars per year at volume 0
    double Slope = 0;  ///< dollars per unit
    std::vector<StationGroup> Line;

    [[nodiscard]] double CostAt(int volume) const { return Base + Slope * volume; }
};

/// The station groups of a line.
std::vector<StationGroup> GroupsOf(const Line& line);

/// The cheapest lines over volume, one behind the other without gaps; neighbours differ. Where the
/// costs of two lines cross, the piece of the first ends at a volume at which the fixed design
/// still finds it, and the other's starts where it no longer does. Near a crossing, and where
/// lines cost the same, the fixed design may choose by the rounding of singles: there a piece has
/// one of the lines that are the cheapest up to that. Looks at `watch`.
std::vector<LinePiece> PiecesOf(const VolumeDesigns& designs, const StudyWatch& watch = {});

}  // namespace quarnel02
