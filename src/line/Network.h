#pragma once

#include <span>
#include <vector>

namespace quarnel02 {

// The network of a line: node k stands before task k, node 1 is the start of the line and the node
// after the last task its end.

/// A pathway as the search sees it: a way from one node to another at a cost.
struct Way {
    int Pathway = 0;  ///< number, from 1
    int Start = 0;
    int End = 0;      ///< above Start
    double Cost = 0;  ///< dollars per year

    bool operator==(const Way&) const = default;
};

/// The cheapest known way of reaching a node.
struct NodeLabel {
    int Node = 0;
    int Pathway = 0;  ///< the last step; 0 for a node that is not reached
    int Start = 0;    ///< node that the last step comes from
    float Cost = 0;   ///< dollars per year, from node 1

    [[nodiscard]] bool IsReached() const { return Pathway != 0; }
    bool operator==(const NodeLabel&) const = default;
};

/// Cost of a way behind what it cost to reach its start: a single. Throws Overflow.
float CostOver(float costOfStart, const Way& way);

/// Cheapest labels of the nodes 2 to `lastNode`, in this order. Of equal ones the way counts that
/// comes first in `ways`, which stand in ascending order of end node. Throws Overflow.
std::vector<NodeLabel> CheapestLabels(std::span<const Way> ways, int lastNode);

/// Pathways of the chain that the labels hold from node 1 to `node`, in the order of the line;
/// empty when it is not reached. `labels` as CheapestLabels returns them.
std::vector<int> ChainTo(std::span<const NodeLabel> labels, int node);

}  // namespace quarnel02
