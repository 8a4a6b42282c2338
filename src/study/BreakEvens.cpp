#include "study/BreakEvens.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace quarnel02 {

namespace {

std::vector<PathwayParts> AllParts(const PreparedLine& line) {
    std::vector<PathwayParts> all;
    PathwayParts parts;
    int first_tool = 0;
    for (std::size_t place = 0; place < line.Pathways.size(); ++place) {
        const auto& [resource, first, last] = line.Pathways[place];
        const MatrixEntry& entry = line.Model.Entry(resource, last);
        if (first == last) {
            parts = PathwayParts();
            first_tool = entry.ToolNum;
        } else {
            parts.ToolChanges +=
                entry.ToolNum != line.Model.Entry(resource, last - 1).ToolNum ? 1 : 0;
        }
        parts.TaskTime += entry.TaskTime;
        parts.OtherTool = entry.ToolNum != first_tool;
        parts.ToolCost = static_cast<double>(line.Contents[place].ToolCostSum);
        all.push_back(parts);
    }
    return all;
}

constexpr StepSpan kToday{kStepsOfToday, kStepsOfToday};
constexpr GridSegment kNoGroup{0, 0, kClosed, 0, {}};

GridSegment Over(GridSegment segment, const StepSpan& steps) {
    segment.From = steps.From;
    segment.To = steps.To;
    return segment;
}

/// The cheaper one at every step; of equal ones that of the resource with the lower number, as far
/// as the cheapest so far starts with it.
GridCurve CheaperGroup(const GridCurve& cheapest, const GridCurve& next) {
    return next.front().Tag.Resource < cheapest.front().Tag.Resource ? Cheaper(next, cheapest)
                                                                     : Cheaper(cheapest, next);
}

/// The step farthest from `today`, towards `end`, up to which `holds`; it holds today.
template <typename Holds>
int LastHolding(int today, int end, const Holds& holds) {
    if (holds(end)) {
        return end;
    }
    while (std::abs(end - today) > 1) {
        const int middle = today + (end - today) / 2;
        (holds(middle) ? today : end) = middle;
    }
    return today;
}

}  // namespace

BreakEvens::BreakEvens(const PreparedLine& line, const FixedDemandRequest& request)
    : m_line(line),
      m_units(request.Volume),
      m_shifts(static_cast<double>(request.Shifts)),
      m_mostStations(request.StationLimit.value_or(std::numeric_limits<std::int16_t>::max())),
      m_places(line),
      m_parts(AllParts(line)),
      m_today(line.Model.TaskCount()) {
    EnterToday();
}

FigureSweep BreakEvens::SweepOf(const ModelFigure& figure, int resource) const {
    return {m_line.Model, resource,       figure.Kind, m_units,
            m_shifts,     m_mostStations, kClosed,     kToday};
}

void BreakEvens::EnterToday() {
    const int tasks = m_line.Model.TaskCount();
    const GridSegment closed = Over(kNoGroup, kToday);
    ForEachArc(tasks, [&](int first, int last) { m_today.At(first, last) = {closed, closed}; });
    for (std::size_t place = 0; place < m_parts.size(); ++place) {
        const auto& [resource, first, last] = m_line.Pathways[place];
        const FigureSweep sweep = SweepOf({}, resource);
        EnterArc(m_today.At(first, last), FigureCurve(sweep, m_parts[place]).front());
    }
    if (tasks > 0) {
        SetTodaysLine();
    }
}

void BreakEvens::SetTodaysLine() {
    ArcCurves arcs(m_line.Model.TaskCount());
    ForEachArc(arcs.TaskCount(), [&](int first, int last) {
        arcs.At(first, last) = {m_today.At(first, last).Cheapest};
    });
    const std::vector<GridCurve> prefixes = CheapestPrefixes(arcs);
    if (prefixes.back().front().CostAt(kStepsOfToday) < kClosed) {
        m_groups = GroupsAt(prefixes, kStepsOfToday);
    }
}

void BreakEvens::EnterArc(ArcBest& arc, const GridSegment& group) {
    if (group.CostAt(kStepsOfToday) < arc.Cheapest.CostAt(kStepsOfToday)) {
        arc.OfOtherResource = arc.Cheapest;
        arc.Cheapest = group;
    } else if (group.CostAt(kStepsOfToday) < arc.OfOtherResource.CostAt(kStepsOfToday)) {
        arc.OfOtherResource = group;
    }
}

const PathwayParts& BreakEvens::PartsOf(const StationGroup& group) const {
    return m_parts[*m_places.Of(group.Resource, group.FirstTask, group.LastTask)];
}

StepSpan BreakEvens::StepsWithTodaysStations(const ModelFigure& figure) const {
    StepSpan steps = StepsOf(m_line.Model, figure);
    for (const StationGroup& group : m_groups) {
        if (figure.Resource != 0 && figure.Resource != group.Resource) {
            continue;
        }
        const FigureSweep sweep = SweepOf(figure, group.Resource);
        const auto same = [&](int step) {
            return sweep.At(step).Stations(PartsOf(group)) == group.Stations;
        };
        steps = {LastHolding(kStepsOfToday, steps.From, same),
                 LastHolding(kStepsOfToday, steps.To, same)};
    }
    return steps;
}

double BreakEvens::CostOfTodaysLine(const ModelFigure& figure, int step) const {
    double sum = 0;
    for (const StationGroup& group : m_groups) {
        const bool varies = figure.Resource == 0 || figure.Resource == group.Resource;
        sum += SweepOf(figure, group.Resource)
                   .At(varies ? step : kStepsOfToday)
                   .Cost(PartsOf(group), group.Stations);
    }
    return sum;
}

ArcCurves BreakEvens::ConstantCurves(const ModelFigure& figure, const StepSpan& steps) const {
    ArcCurves curves(m_line.Model.TaskCount());
    ForEachArc(curves.TaskCount(), [&](int first, int last) {
        const ArcBest& arc = m_today.At(first, last);
        const bool varies = arc.Cheapest.Tag.Resource == figure.Resource;
        const GridSegment& constant = varies ? arc.OfOtherResource : arc.Cheapest;
        curves.At(first, last) = {Over(figure.Resource == 0 ? kNoGroup : constant, steps)};
    });
    return curves;
}

ArcCurves BreakEvens::CurvesOf(const ModelFigure& figure, const StepSpan& steps,
                               const StudyWatch& watch) const {
    constexpr double margin = 1 + 1e-9;
    ArcCurves curves = ConstantCurves(figure, steps);
    FigureSweep sweep = SweepOf(figure, 0);
    sweep.Steps = steps;
    sweep.MostCost =
        margin * std::max(CostOfTodaysLine(figure, steps.From), CostOfTodaysLine(figure, steps.To));
    for (std::size_t place = 0; place < m_parts.size(); ++place) {
        watch.Look();
        const auto& [resource, first, last] = m_line.Pathways[place];
        if (figure.Resource == 0 || figure.Resource == resource) {
            sweep.Resource = resource;
            GridCurve& arc = curves.At(first, last);
            arc = CheaperGroup(arc, FigureCurve(sweep, m_parts[place]));
        }
    }
    return curves;
}

std::vector<int> BreakEvens::Changes(const ModelFigure& figure, const StudyWatch& watch) const {
    const StepSpan all = StepsOf(m_line.Model, figure);
    const StepSpan steps = StepsWithTodaysStations(figure);
    std::vector<int> changes;
    if (steps.From > all.From) {
        changes.push_back(steps.From - 1);
    }
    if (steps.To < all.To) {
        changes.push_back(steps.To + 1);
    }
    const std::vector<GridCurve> prefixes = CheapestPrefixes(CurvesOf(figure, steps, watch), watch);
    const std::vector<StationGroup> today = GroupsAt(prefixes, kStepsOfToday);
    for (const GridSegment& segment : prefixes.back()) {
        if (GroupsAt(prefixes, segment.From) != today) {
            changes.push_back(segment.From > kStepsOfToday ? segment.From : segment.To);
        }
    }
    return changes;
}

std::optional<double> BreakEvens::NearestTo(const ModelFigure& figure,
                                            const StudyWatch& watch) const {
    const double value = ValueOf(m_line.Model, figure);
    if (value == 0 || m_groups.empty()) {
        return std::nullopt;
    }
    const std::vector<int> changes = Changes(figure, watch);
    const auto distance = [&](int step) { return std::fabs(ShareAt(figure.Kind, step) - 1); };
    const auto nearest = std::min_element(changes.begin(), changes.end(),
                                          [&](int a, int b) { return distance(a) < distance(b); });
    return nearest == changes.end() ? std::nullopt
                                    : std::optional(value * ShareAt(figure.Kind, *nearest));
}

}  // namespace quarnel02
