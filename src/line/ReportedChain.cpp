#include "line/ReportedChain.h"

#include <algorithm>
#include <utility>

namespace quarnel02 {

namespace {

/// The labels written so far and the label of the node in hand.
class ReportedSearch {
  public:
    DeadEnd LabelNodes(std::span<const Way> ways);
    DeadEnd FollowChain();

    ReportedChain Take() && { return std::move(m_chain); }

  private:
    DeadEnd BeginNode(const Way& way);
    DeadEnd TryOtherWayIn(const Way& way);
    /// Label of a node, null when it has none.
    [[nodiscard]] const NodeLabel* LabelOf(int node) const;
    /// Cost by way of a start that costs nothing when it has no label.
    [[nodiscard]] float CostThrough(const Way& way) const;

    ReportedChain m_chain;
    NodeLabel m_label;
};

const NodeLabel* ReportedSearch::LabelOf(int node) const {
    const auto label =
        std::lower_bound(m_chain.Labels.begin(), m_chain.Labels.end(), node,
                         [](const NodeLabel& each, int number) { return each.Node < number; });
    return label != m_chain.Labels.end() && label->Node == node ? &*label : nullptr;
}

float ReportedSearch::CostThrough(const Way& way) const {
    const NodeLabel* start = LabelOf(way.Start);
    return CostOver(start != nullptr ? start->Cost : 0.0F, way);
}

DeadEnd ReportedSearch::LabelNodes(std::span<const Way> ways) {
    const Way& first = ways.front();
    m_label = {first.End, first.Pathway, first.Start, CostOver(0, first)};
    for (const Way& way : ways.subspan(1)) {
        const DeadEnd end = way.End != m_label.Node ? BeginNode(way) : TryOtherWayIn(way);
        if (end != DeadEnd::None) {
            return end;
        }
    }
    m_chain.Labels.push_back(m_label);
    return DeadEnd::None;
}

DeadEnd ReportedSearch::BeginNode(const Way& way) {
    m_chain.Labels.push_back(m_label);
    if (way.Start != 1 && LabelOf(way.Start) == nullptr) {
        return DeadEnd::UnreachedStart;
    }
    m_label = {way.End, way.Pathway, way.Start, CostThrough(way)};
    return DeadEnd::None;
}

DeadEnd ReportedSearch::TryOtherWayIn(const Way& way) {
    const float cost = CostThrough(way);
    if (!(cost < m_label.Cost)) {
        return DeadEnd::None;
    }
    if (LabelOf(way.Start) == nullptr) {
        return DeadEnd::UnlabelledWayIn;
    }
    m_label = {way.End, way.Pathway, way.Start, cost};
    return DeadEnd::None;
}

DeadEnd ReportedSearch::FollowChain() {
    const NodeLabel* label = &m_chain.Labels.back();
    for (; label != nullptr; label = LabelOf(label->Start)) {
        m_chain.Pathways.push_back(label->Pathway);
        if (label->Start == 1) {
            return DeadEnd::None;
        }
    }
    return DeadEnd::BrokenChain;
}

}  // namespace

ReportedChain SearchReportedChain(std::span<const Way> ways) {
    ReportedSearch search;
    DeadEnd end = search.LabelNodes(ways);
    if (end == DeadEnd::None) {
        end = search.FollowChain();
    }
    ReportedChain chain = std::move(search).Take();
    chain.End = end;
    return chain;
}

}  // namespace quarnel02
