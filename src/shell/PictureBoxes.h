#pragma once

#include <array>
#include <optional>

#include "picture/Picture.h"
#include "shell/DesignMade.h"

namespace quarnel02 {

/// What the picture boxes of the main form show.
struct PictureBoxes {
    PictureBoxes();

    Picture picArc;                        ///< the arc network, 15000 twips wide
    std::array<Picture, 4> picGraph;       ///< results
    std::optional<DesignMade> LastDesign;  ///< what picGraph shows; none without results
};

}  // namespace quarnel02
