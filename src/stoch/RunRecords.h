#pragma once

#include <cstddef>
#include <string>

#include "line/CostCurve.h"
#include "line/Demand.h"

namespace quarnel02 {

// The records of the run files: fields one behind the other, without padding, singles and 16-bit
// integers in the machine's layout, which is little-endian. Volumes are units per year, costs
// dollars per year.

/// Capacity from and to, or -1 in the last record; expected production at both.
std::string ProductionRecords(const ProductionCurve& production);
inline constexpr std::size_t kProductionRecord = 16;  ///< bytes

/// Capacity from and to (not included), or -1 in the last record; expected shifts worked per day.
std::string ShiftRecords(const ShiftCurve& shifts);
inline constexpr std::size_t kShiftRecord = 12;

/// Segments of the curve of an arc: volume from and to (included), cost at both, and resource
/// number x 4096 + parallel stations as a single.
std::string ArcRecords(const CostCurve& curve);
inline constexpr std::size_t kArcRecord = 20;

/// Segments of the curve of the best designs of a task prefix: volume from and to (included), cost
/// at both, resource of the last arc, last task before it (0 when it starts the line), and its
/// parallel stations.
std::string DesignRecords(const CostCurve& curve);
inline constexpr std::size_t kDesignRecord = 22;

}  // namespace quarnel02
