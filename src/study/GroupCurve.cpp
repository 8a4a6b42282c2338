#include "study/GroupCurve.h"

#include <algorithm>
#include <limits>

#include "basic/Numbers.h"
#include "line/AnnualCost.h"
#include "line/CostModel.h"
#include "line/FixedDemand.h"
#include "study/LargestVolume.h"

namespace quarnel02 {

namespace {

/// Cost of so many stations, without the volumes that it is for.
GridSegment SegmentOf(const WorkContent& content, const Resource& resource,
                      const Production& production, std::int16_t shifts, int stations) {
    const AnnualParts of_a_unit = AnnualPartsOf(content, stations, resource, production, 1, shifts);
    return {.Base = of_a_unit.Capital + of_a_unit.Labour,
            .Slope = of_a_unit.Machine,
            .Tag = {static_cast<std::int16_t>(resource.Number), static_cast<std::int16_t>(stations),
                    0}};
}

}  // namespace

GridCurve GroupCurve(const WorkContent& content, const Resource& resource,
                     const Production& production, std::int16_t shifts,
                     std::optional<std::int16_t> stationLimit, int from, int to) {
    const int most = stationLimit.value_or(std::numeric_limits<std::int16_t>::max());
    const Workload first = WorkloadOf({static_cast<double>(from), shifts, {}}, production);
    const auto count =
        TryFitStations(content.WorkTime, ToSingle(first.AvailableCycleTime, "Max cycle time"));
    GridCurve curve;
    if (!count) {
        return curve;
    }
    for (int stations = count->Stations; stations <= most && from <= to; ++stations) {
        GridSegment segment = SegmentOf(content, resource, production, shifts, stations);
        segment.From = from;
        segment.To = std::min(to, LargestVolume(production, shifts, content.WorkTime, stations));
        if (segment.To >= from) {
            curve.push_back(segment);
            from = segment.To + 1;
        }
    }
    return curve;
}

}  // namespace quarnel02
