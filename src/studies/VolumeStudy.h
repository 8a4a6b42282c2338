#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "charts/VolumeChart.h"
#include "studies/ShownTable.h"
#include "studies/StudyInput.h"
#include "study/VolumeDesigns.h"
#include "study/VolumeRanges.h"

namespace quarnel02 {

/// A round span of volumes on both sides of a volume of the planner's; some span for 0.
VolumeSpan SpanAround(double volume);

/// What a study of volumes finds.
struct VolumeStudy {
    std::vector<VolumeRange> Ranges;
    std::vector<TypeRanges> ByType;  ///< of lines of one equipment class alone
    std::string WhyNone;             ///< why there are no ranges, with what would have a line
};

/// Looks at `watch`. Throws as VolumeRanges and ExplainNoLine do.
VolumeStudy StudyVolumes(const PreparedLine& line, const VolumeSpan& span,
                         const StudyWatch& watch = {});

inline constexpr std::size_t kEquipmentClasses = 4;

/// Which ranges of a study of volumes are shown.
struct VolumeFilter {
    std::array<bool, 3> Shifts = {true, true, true};  ///< for 1, 2 and 3 shifts
    bool OnlyBest = false;                            ///< where no other shifts are cheaper
    std::array<bool, kEquipmentClasses> Types = {};   ///< of lines of one class alone
};

/// Those of the filter's shifts.
std::vector<VolumeRange> Filtered(const std::vector<VolumeRange>& ranges,
                                  const VolumeFilter& filter);

/// "manual", "fixed", "programmable", "automated"
std::string ClassName(int type);

/// The curves of the filter.
std::vector<VolumeCurve> CurvesOf(const LineModel& model, const VolumeStudy& study,
                                  const VolumeFilter& filter);

/// A row for each range of the filter.
ShownTable TableOf(const LineModel& model, const VolumeStudy& study, const VolumeFilter& filter);

}  // namespace quarnel02
