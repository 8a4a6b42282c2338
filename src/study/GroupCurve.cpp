#include "study/GroupCurve.h"

#include <algorithm>
#include <limits>

#include "basic/Numbers.h"
#include "line/CostModel.h"
#include "line/FixedDemand.h"
#include "study/LargestVolume.h"

namespace quarnel02 {

namespace {

constexpr double kHoursPerShift = 8;

/// Cost of so many stations from one volume to another.
GridSegment SegmentOf(const WorkContent& content, const Resource& resource,
                      const Production& production, std::int16_t shifts, int stations) {
    const auto count = static_cast<std::int16_t>(stations);
    const double capital =
        static_cast<double>(Investment(count, content.ToolCostSum, resource)) * production.ACF;
    const double labour = LabourCost(count, shifts * kHoursPerShift, production, resource);
    return {.Base = capital + labour,
            .Slope = MachineCost(1, SharedTime(content.WorkTime, stations), resource),
            .Tag = {static_cast<std::int16_t>(resource.Number), count, 0}};
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
