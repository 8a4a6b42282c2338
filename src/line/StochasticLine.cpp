#include "line/StochasticLine.h"

#include <algorithm>

#include "basic/RunTimeError.h"
#include "line/AnnualCost.h"
#include "line/CostModel.h"
#include "line/WorkContent.h"

namespace quarnel02 {

namespace {

/// A point of a curve and the segment that it is on.
struct CurvePoint {
    float Volume = 0;
    float Cost = 0;
    CurveTag Tag;
};

std::optional<CurvePoint> LowestPoint(const CostCurve& curve) {
    std::optional<CurvePoint> lowest;
    for (const CurveSegment& segment : curve.Segments()) {
        for (const CurvePoint& point : {CurvePoint{segment.Start, segment.CostStart, segment.Tag},
                                        CurvePoint{segment.End, segment.CostEnd, segment.Tag}}) {
            if (!lowest || point.Cost < lowest->Cost) {
                lowest = point;
            }
        }
    }
    return lowest;
}

CurveTag TagAt(const CostCurve& curve, float volume) {
    const CurveSegment* const segment = curve.At(volume);
    if (segment == nullptr) {
        throw RunTimeError(ErrorKind::NoCurrentRecord,
                           "The final table of a task ends before the chosen capacity.");
    }
    return segment->Tag;
}

class LineTrace {
  public:
    LineTrace(const LineModel& model, const DemandDistribution& demand)
        : m_model(model), m_demand(demand) {}

    [[nodiscard]] std::vector<ExpectedGroup> Groups(std::span<const CostCurve> prefixes,
                                                    const CurvePoint& lowest) const {
        std::vector<ExpectedGroup> groups;
        CurveTag tag = lowest.Tag;
        int last = m_model.TaskCount();
        groups.push_back(GroupOf(tag, last, lowest.Volume));
        while (tag.PreviousTask != 0) {
            last = tag.PreviousTask;
            tag = TagAt(prefixes[static_cast<std::size_t>(last) - 1], lowest.Volume);
            groups.push_back(GroupOf(tag, last, lowest.Volume));
        }
        std::reverse(groups.begin(), groups.end());
        return groups;
    }

    /// Annual parts of a whole line.
    [[nodiscard]] AnnualParts PartsOf(std::span<const ExpectedGroup> groups, double units,
                                      double shifts) const {
        AnnualParts line;
        // From the last group backwards: sums of doubles depend on their order.
        for (std::size_t place = groups.size(); place-- > 0;) {
            const AnnualParts parts = PartsOf(groups[place].Group, units, shifts);
            line.Capital += parts.Capital;
            line.Machine += parts.Machine;
            line.Labour += parts.Labour;
        }
        return line;
    }

  private:
    [[nodiscard]] WorkContent ContentOfGroup(const StationGroup& group) const {
        return ContentOf(m_model.Entries(group.Resource, group.FirstTask, group.LastTask),
                         m_model.ResourceOf(group.Resource), m_model.Parameters().TransportTime);
    }

    [[nodiscard]] AnnualParts PartsOf(const StationGroup& group, double units,
                                      double shifts) const {
        return AnnualPartsOf(ContentOfGroup(group), group.Stations,
                             m_model.ResourceOf(group.Resource), m_model.Parameters(), units,
                             shifts);
    }

    [[nodiscard]] ExpectedGroup GroupOf(const CurveTag& tag, int last, float capacity) const {
        const StationGroup group{tag.Resource, tag.PreviousTask + 1, last, tag.Stations};
        return {group, SharedTime(ContentOfGroup(group).WorkTime, group.Stations),
                AnnualCost(PartsOf(group, m_demand.Production().At(capacity),
                                   m_demand.Shifts().At(capacity)))};
    }

    const LineModel& m_model;
    const DemandDistribution& m_demand;
};

DemandOutcome OutcomeAt(const LineTrace& trace, const StochasticLine& line,
                        const DemandPoint& point, double penaltyPerUnit) {
    const auto demand = static_cast<double>(point.Volume);
    const auto capacity = static_cast<double>(line.Capacity);
    const int shifts = ShiftsAt(point.Volume, line.Capacity);
    const double penalty = std::max(0.0, demand - capacity) * penaltyPerUnit;
    const AnnualParts parts = trace.PartsOf(line.Groups, std::min(demand, capacity), shifts);
    return {point, shifts, parts.Capital + parts.Machine + parts.Labour + penalty, penalty};
}

}  // namespace

std::optional<StochasticLine> CheapestLineOf(const LineModel& model,
                                             const DemandDistribution& demand, float penaltyPerUnit,
                                             std::span<const CostCurve> prefixes,
                                             const CostCurve& withPenalties) {
    const auto lowest = LowestPoint(withPenalties);
    if (!lowest) {
        return std::nullopt;
    }
    const LineTrace trace(model, demand);
    const auto penalty = static_cast<double>(penaltyPerUnit);
    StochasticLine line;
    line.Groups = trace.Groups(prefixes, *lowest);
    line.Capacity = lowest->Volume;
    line.ExpectedCost = lowest->Cost;
    for (const ExpectedGroup& each : line.Groups) {
        line.CycleTime = std::max(line.CycleTime, each.Time);
    }
    line.MaximumCycleTime = CycleTimeAt(model.Parameters(), line.Capacity);
    line.ExpectedPenalty = demand.Production().ShortfallAt(line.Capacity) * penalty;
    line.FixedCosts = trace.PartsOf(line.Groups, 0, 0).Capital;
    for (const DemandPoint& point : demand.Points()) {
        line.Outcomes.push_back(OutcomeAt(trace, line, point, penalty));
    }
    return line;
}

}  // namespace quarnel02
