#pragma once

#include <optional>
#include <vector>

#include "line/Pathways.h"
#include "line/StationGroup.h"
#include "study/VolumeDesigns.h"

namespace quarnel02 {

/// Whole volumes for which one line is the cheapest in so many shifts.
struct VolumeRange {
    int Shifts = 0;  ///< per day, 1 to 3
    int From = 0;    ///< units per year
    int To = 0;
    std::vector<StationGroup> Line;
    float CostFrom = 0;     ///< dollars per year, of the fixed design at From
    float CostTo = 0;       ///< and at To
    double Investment = 0;  ///< dollars
    bool Best = false;      ///< no other number of shifts is cheaper at any of its volumes
};

/// The cheapest lines over volume for 1, 2 and 3 shifts, by shifts and volume, without gaps where
/// there is a line. Ranges are cut so that Best holds for all of their volumes or for none; so
/// neighbours may have the same line. Lines that cost the same up to the rounding of singles are
/// told apart as PiecesOf does. Looks at `watch`. Throws as VolumeDesigns does.
std::vector<VolumeRange> VolumeRanges(const PreparedLine& line, const VolumeSpan& span,
                                      const StudyWatch& watch = {});

/// The ranges of lines that are made of one type of equipment alone.
struct TypeRanges {
    int Type = 0;  ///< of Resource
    std::vector<VolumeRange> Ranges;
};

/// What every type of equipment can do alone, by type; types that no line can be made of alone,
/// and the only type of a model, have no entry. Throws as VolumeRanges does.
std::vector<TypeRanges> RangesByType(const LineModel& model, const VolumeSpan& span,
                                     const StudyWatch& watch = {});

/// The model with the resources of one type only: the others can do nothing. None when no resource
/// of the type can do anything, or when it has no other resources.
std::optional<LineModel> OfOneType(const LineModel& model, int type);

}  // namespace quarnel02
