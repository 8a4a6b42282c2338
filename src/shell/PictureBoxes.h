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
    Picture picLoad;                       ///< how full the stations of a fixed design are
    std::optional<DesignMade> LastDesign;  ///< what these results are of; none without
};

}  // namespace quarnel02
