#pragma once

#include <span>
#include <vector>

#include "line/Network.h"

namespace quarnel02 {

/// Where the search for the reported line ends without a line.
enum class DeadEnd {
    None,
    UnreachedStart,   ///< the first way into a node starts at a node without a label
    UnlabelledWayIn,  ///< a later, cheaper way into a node starts at a node without a label
    BrokenChain       ///< the chain leads back to a node without a label
};

/// Outcome of the search, complete up to its dead end if it runs into one.
struct ReportedChain {
    std::vector<NodeLabel> Labels;  ///< of the labelled nodes, by node
    std::vector<int> Pathways;      ///< chosen, the last of the line first
    DeadEnd End = DeadEnd::None;
};

/// The search whose outcome the fixed-demand design stores and reports: from node 1 to the last
/// node that any way reaches. It is stricter than CheapestLabels:
/// - the very first way counts as a start of the line, wherever it starts;
/// - the first way into any further node must start at node 1 or at a node with a label, else the
///   search ends, even if a later way in would do;
/// - so must a later way in that is cheaper, and node 1 has no label.
/// Where it finds a line, it is the cheapest to that node, with the same tie-break.
/// `ways` stand by end node, start node, pathway, and are not empty. Throws Overflow.
ReportedChain SearchReportedChain(std::span<const Way> ways);

}  // namespace quarnel02
