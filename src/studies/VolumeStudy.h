#pragma once

#include <array>
#include <string>
#include <vector>

#include "studies/ShownTable.h"
#include "studies/StudyInput.h"
#include "study/VolumeDesigns.h"
#include "study/VolumeRanges.h"

namespace quarnel02 {

/// A round span of volumes on both sides of a volume of the planner's; some span for 0.
VolumeSpan SpanAround(double volume);

/// Which ranges of a study of volumes are shown.
struct VolumeFilter {
    std::array<bool, 3> Shifts = {true, true, true};  ///< for 1, 2 and 3 shifts
    bool OnlyBest = false;  ///< only where no other number of shifts is cheaper
};

std::vector<VolumeRange> Filtered(const std::vector<VolumeRange>& ranges,
                                  const VolumeFilter& filter);

/// Why not even the lowest volume has a line, in three shifts, and what would have one. Throws as
/// ExplainNoLine does.
std::string NoRangeText(const PreparedLine& line, const VolumeSpan& span);

/// A row for each range.
ShownTable TableOf(const LineModel& model, const std::vector<VolumeRange>& ranges);

}  // namespace quarnel02
