#pragma once

#include <span>
#include <string>
#include <vector>

#include "line/LineModel.h"
#include "picture/Picture.h"
#include "study/VolumeRanges.h"

namespace quarnel02 {

/// A curve of costs over volume.
struct VolumeCurve {
    std::string Name;  ///< "2 shifts", "only manual"
    Colour Pen;
    bool Dashed = false;
    /// By volume; where a range is the best of all it is drawn thick.
    std::vector<VolumeRange> Ranges;
    std::vector<std::string> Lines;  ///< the lines of the ranges as text
};

/// What a volume chart shows.
enum class VolumeCost { Total, PerUnit };

/// A curve for each number of shifts among the ranges: blue, green and purple.
std::vector<VolumeCurve> CurvesOf(const LineModel& model, std::span<const VolumeRange> ranges);

/// The curve of lines of one class of resources, best of all shifts: dashed, in the colour of the
/// class.
VolumeCurve CurveOfClass(const LineModel& model, ResourceType type,
                         std::span<const VolumeRange> ranges);

/// Cheapest cost over annual volume. Every stretch tells volume, cost and line. Volumes that are
/// `asked` for are marked where the curves reach them.
void DrawVolumes(Picture& picture, std::vector<VolumeCurve> curves, VolumeCost shown,
                 std::vector<double> asked = {});

}  // namespace quarnel02
