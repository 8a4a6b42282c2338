#include "line/Network.h"

#include <algorithm>
#include <cstddef>

#include "basic/Numbers.h"

namespace quarnel02 {

namespace {

constexpr int kFirstLabelled = 2;

std::size_t PlaceOf(int node) {
    return static_cast<std::size_t>(node - kFirstLabelled);
}

}  // namespace

float CostOver(float costOfStart, const Way& way) {
    return ToSingle(static_cast<double>(costOfStart) + way.Cost, "PathCost");
}

std::vector<NodeLabel> CheapestLabels(std::span<const Way> ways, int lastNode) {
    std::vector<NodeLabel> labels;
    for (int node = kFirstLabelled; node <= lastNode; ++node) {
        labels.push_back({.Node = node});
    }
    for (const Way& way : ways) {
        const bool from_start = way.Start == 1;
        if (!from_start && !labels[PlaceOf(way.Start)].IsReached()) {
            continue;
        }
        const float cost = CostOver(from_start ? 0.0F : labels[PlaceOf(way.Start)].Cost, way);
        NodeLabel& label = labels[PlaceOf(way.End)];
        if (!label.IsReached() || cost < label.Cost) {
            label = {way.End, way.Pathway, way.Start, cost};
        }
    }
    return labels;
}

std::vector<int> ChainTo(std::span<const NodeLabel> labels, int node) {
    std::vector<int> chain;
    while (node != 1) {
        const NodeLabel& label = labels[PlaceOf(node)];
        if (!label.IsReached()) {
            return {};
        }
        chain.push_back(label.Pathway);
        node = label.Start;
    }
    std::reverse(chain.begin(), chain.end());
    return chain;
}

}  // namespace quarnel02
