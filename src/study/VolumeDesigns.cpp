#include "study/VolumeDesigns.h"

#include <algorithm>
#include <limits>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "study/CostedDesign.h"
#include "study/GroupCurve.h"
#include "study/LargestVolume.h"

namespace quarnel02 {

namespace {

constexpr double kNoLine = std::numeric_limits<double>::infinity();

void RequireSoundRange(const VolumeSpan& span) {
    if (span.From < 1 || span.To < span.From || span.To > kMostVolume) {
        throw RunTimeError(ErrorKind::Overflow,
                           "Volumes from " + NumberText(span.From) + " to " + NumberText(span.To) +
                               ": the first one must be at least 1, the last one at least the "
                               "first, and at most " +
                               Format(kMostVolume, "#,###") + ".");
    }
}

/// Ends a study that nobody would wait for, nor read.
void RequireFew(std::size_t segments, const VolumeSpan& span) {
    constexpr std::size_t most = 5000000;
    if (segments > most) {
        throw RunTimeError(ErrorKind::Overflow,
                           "Volumes from " + Format(span.From, "#,###") + " to " +
                               Format(span.To, "#,###") +
                               ": too many numbers of parallel stations come into question. Choose "
                               "a smaller range or a station limit.");
    }
}

/// Cheapest costs over the nodes of a line; node k stands before task k.
struct NodeCosts {
    std::vector<double> FromStart;  ///< by node
    std::vector<double> ToEnd;      ///< by node
};

NodeCosts CheapestNodes(const OfArcs<double>& arcs) {
    const int tasks = arcs.TaskCount();
    const auto nodes = static_cast<std::size_t>(tasks) + 2;
    NodeCosts costs{std::vector<double>(nodes, kNoLine), std::vector<double>(nodes, kNoLine)};
    costs.FromStart[1] = 0;
    costs.ToEnd[nodes - 1] = 0;
    for (int last = 1; last <= tasks; ++last) {
        double& to = costs.FromStart[static_cast<std::size_t>(last) + 1];
        for (int first = 1; first <= last; ++first) {
            to = std::min(to,
                          costs.FromStart[static_cast<std::size_t>(first)] + arcs.At(first, last));
        }
    }
    for (int last = tasks; last >= 1; --last) {
        const double behind = costs.ToEnd[static_cast<std::size_t>(last) + 1];
        for (int first = 1; first <= last; ++first) {
            double& from = costs.ToEnd[static_cast<std::size_t>(first)];
            from = std::min(from, arcs.At(first, last) + behind);
        }
    }
    return costs;
}

OfArcs<double> CostsAt(const ArcCurves& arcs, int volume) {
    OfArcs<double> costs(arcs.TaskCount());
    ForEachArc(arcs.TaskCount(), [&](int first, int last) {
        const GridSegment* const segment = SegmentAt(arcs.At(first, last), volume);
        costs.At(first, last) = segment == nullptr ? kNoLine : segment->CostAt(volume);
    });
    return costs;
}

/// Arcs with lines through them that cost no more than `most`.
std::vector<Pathway> ArcsWithin(const OfArcs<double>& arcs, const NodeCosts& nodes, double most) {
    std::vector<Pathway> within;
    ForEachArc(arcs.TaskCount(), [&](int first, int last) {
        const double through = nodes.FromStart[static_cast<std::size_t>(first)] +
                               arcs.At(first, last) +
                               nodes.ToEnd[static_cast<std::size_t>(last) + 1];
        if (through != kNoLine && through <= most) {
            within.push_back(
                {0, static_cast<std::int16_t>(first), static_cast<std::int16_t>(last)});
        }
    });
    return within;
}

}  // namespace

VolumeDesigns::VolumeDesigns(const PreparedLine& line, std::int16_t shifts, const VolumeSpan& span,
                             const StudyWatch& watch)
    : m_line(line),
      m_shifts(shifts),
      m_stationLimit(span.StationLimit),
      m_places(line),
      m_arcs(line.Model.TaskCount()) {
    RequireSoundRange(span);
    MakeCurves(span, watch);
    m_prefixes = CheapestPrefixes(m_arcs, watch);
}

void VolumeDesigns::MakeCurves(const VolumeSpan& span, const StudyWatch& watch) {
    constexpr std::size_t between_shares = 256;
    std::size_t segments = 0;
    for (std::size_t place = 0; place < m_line.Pathways.size(); ++place) {
        watch.Look();
        if (place % between_shares == 0) {
            watch.Look(static_cast<double>(place) / static_cast<double>(m_line.Pathways.size()));
        }
        const auto& [resource, first, last] = m_line.Pathways[place];
        const GridCurve group =
            GroupCurve(m_line.Contents[place], m_line.Model.ResourceOf(resource),
                       m_line.Model.Parameters(), m_shifts, m_stationLimit, span.From, span.To);
        segments += group.size();
        RequireFew(segments, span);
        GridCurve& arc = m_arcs.At(first, last);
        arc = Cheaper(arc, group);
    }
}

std::span<const GridSegment> VolumeDesigns::Costs() const {
    if (m_prefixes.empty()) {
        return {};
    }
    return m_prefixes.back();
}

std::vector<StationGroup> VolumeDesigns::GroupsAt(int volume) const {
    return quarnel02::GroupsAt(m_prefixes, volume);
}

double VolumeDesigns::Rounding(double cost) const {
    return RoundingOf(cost, m_line.Model.TaskCount());
}

std::optional<Line> VolumeDesigns::LineAt(int volume) const {
    std::vector<LineGroup> groups;
    const std::vector<Way> ways = WaysNearBest(volume, groups);
    const int last_node = m_line.Model.TaskCount() + 1;
    const std::vector<NodeLabel> labels = CheapestLabels(ways, last_node);
    if (labels.empty() || !labels.back().IsReached()) {
        return std::nullopt;
    }
    Line line{{}, labels.back().Cost};
    for (const int number : ChainTo(labels, last_node)) {
        line.Groups.push_back(
            *std::find_if(groups.begin(), groups.end(),
                          [&](const LineGroup& group) { return group.Pathway == number; }));
    }
    return line;
}

std::vector<Way> VolumeDesigns::WaysNearBest(int volume, std::vector<LineGroup>& groups) const {
    const OfArcs<double> arcs = CostsAt(m_arcs, volume);
    const NodeCosts nodes = CheapestNodes(arcs);
    const double best = nodes.FromStart.back();
    const double most = best + Rounding(best);
    const Workload workload = WorkloadOf({static_cast<double>(volume), m_shifts, m_stationLimit},
                                         m_line.Model.Parameters());
    std::vector<Way> ways;
    for (const Pathway& arc : ArcsWithin(arcs, nodes, most)) {
        if (const auto group = CheapestGroup(arc.FirstTask, arc.LastTask, workload)) {
            ways.push_back({group->Pathway, arc.FirstTask, arc.LastTask + 1,
                            static_cast<double>(group->Cost.Cost)});
            groups.push_back(*group);
        }
    }
    return ways;
}

std::optional<LineGroup> VolumeDesigns::CheapestGroup(int first, int last,
                                                      const Workload& workload) const {
    std::optional<LineGroup> cheapest;
    for (const Resource& resource : m_line.Model.Resources()) {
        const auto place = m_places.Of(resource.Number, first, last);
        if (!place) {
            continue;
        }
        const PathwayCost cost =
            CostOfGroup(m_line.Contents[*place], resource, m_line.Model.Parameters(), workload);
        if (!IsOverLimit(cost, m_stationLimit) && (!cheapest || cost.Cost < cheapest->Cost.Cost)) {
            cheapest = {
                static_cast<int>(*place) + 1, {resource.Number, first, last, cost.Stations}, cost};
        }
    }
    return cheapest;
}

}  // namespace quarnel02
