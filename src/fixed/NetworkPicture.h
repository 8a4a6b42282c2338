#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "fixed/Arcs.h"
#include "picture/Picture.h"

namespace quarnel02 {

/// All that the picture of a network shows.
struct NetworkValues {
    static constexpr std::size_t kStates = 5;  ///< of pathways, with 0, which is none

    std::vector<Arc> Arcs;
    std::vector<std::string> Words;  ///< what each arc stands for, in their order
    /// Places in Arcs by the states of their pathways, each in the order of its first pathway.
    std::array<std::vector<std::size_t>, kStates> InState;
    /// Places in Arcs of those by which the cheapest chain comes to each node; empty before a
    /// search.
    std::vector<std::size_t> Reaching;
    std::int16_t Nodes = 1;
    /// Distance of nodes, as NodeSpacing has it.
    double Spacing = 0;
};

/// Tasks from which on arcs with a resource fade, the longer the more, until they are enlarged; but
/// for the chosen ones and those by which the cheapest chain comes to a node.
inline constexpr int kVeilFromTasks = 18;
/// Tasks from which on arcs without a resource fade.
inline constexpr int kFadeFromTasks = 30;

/// Composes the network so that it fills the page, with the legend of its colours in the upper left
/// corner: all arcs grey, then the possible ones blue, those over the limit red, the chosen ones on
/// top; the nodes, and the numbers of the tasks between them on light chips, as many as have room.
/// It can be enlarged. `Sheet` says where a figure of the network stands.
void ComposeNetwork(Picture& picture, NetworkValues values);

}  // namespace quarnel02
