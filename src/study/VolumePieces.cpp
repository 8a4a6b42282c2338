#include "study/VolumePieces.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace quarnel02 {

namespace {

bool IsDesign(const VolumeDesigns& designs, int volume, const std::vector<StationGroup>& groups) {
    const auto line = designs.LineAt(volume);
    return line && GroupsOf(*line) == groups;
}

/// Over how many units two lines that cross at a volume cost the same up to rounding; more than
/// `most` when they hardly cross.
int UnitsOfDoubt(const LinePiece& left, const LinePiece& right, double rounding, int most) {
    const double slope = std::fabs(right.Slope - left.Slope);
    const double gap = std::fabs(right.CostAt(right.From) - left.CostAt(right.From));
    if (gap > rounding + slope) {
        return 0;  // the cost jumps: the left line needs another station
    }
    return rounding < slope * most ? static_cast<int>(std::ceil(rounding / slope)) : most + 1;
}

/// Moves the border of two pieces to where the fixed design leaves the left line.
void Settle(const VolumeDesigns& designs, LinePiece& left, LinePiece& right) {
    constexpr int most_doubt = 100000;
    if (IsDesign(designs, left.To, left.Line) && !IsDesign(designs, right.From, left.Line)) {
        return;
    }
    const double rounding = designs.Rounding(left.CostAt(left.To));
    const int doubt = UnitsOfDoubt(left, right, rounding, most_doubt);
    if (doubt == 0 || doubt > most_doubt) {
        return;
    }
    const auto in_doubt = [&](int volume) {
        return std::fabs(right.CostAt(volume) - left.CostAt(volume)) <= rounding;
    };
    int low = std::max(left.From, left.To - doubt);
    int high = std::min(right.To, right.From + doubt);
    while (low < left.To && !in_doubt(low + 1)) {
        ++low;
    }
    while (high > right.From && !in_doubt(high - 1)) {
        --high;
    }
    if (!IsDesign(designs, low, left.Line) || IsDesign(designs, high, left.Line)) {
        return;
    }
    while (high - low > 1) {
        const int middle = low + (high - low) / 2;
        (IsDesign(designs, middle, left.Line) ? low : high) = middle;
    }
    left.To = low;
    right.From = high;
}

}  // namespace

std::vector<StationGroup> GroupsOf(const Line& line) {
    std::vector<StationGroup> groups;
    for (const LineGroup& each : line.Groups) {
        groups.push_back(each.Group);
    }
    return groups;
}

std::vector<LinePiece> PiecesOf(const VolumeDesigns& designs, const StudyWatch& watch) {
    std::vector<LinePiece> pieces;
    for (const GridSegment& segment : designs.Costs()) {
        std::vector<StationGroup> groups = designs.GroupsAt(segment.From);
        if (!pieces.empty() && pieces.back().Line == groups) {
            pieces.back().To = segment.To;
        } else {
            pieces.push_back(
                {segment.From, segment.To, segment.Base, segment.Slope, std::move(groups)});
        }
    }
    for (std::size_t next = 1; next < pieces.size(); ++next) {
        watch.Look();
        Settle(designs, pieces[next - 1], pieces[next]);
    }
    return pieces;
}

}  // namespace quarnel02
