#include "shell/PictureBoxes.h"

namespace quarnel02 {

namespace {

Picture GraphPicture() {
    constexpr double width = 7200;
    constexpr double height = 4200;
    return {width, height};
}

Picture ArcPicture() {
    constexpr double width = 15000;
    constexpr double height = 4400;
    return {width, height};
}

}  // namespace

PictureBoxes::PictureBoxes()
    : picArc(ArcPicture()),
      picGraph{GraphPicture(), GraphPicture(), GraphPicture(), GraphPicture()},
      picLoad(GraphPicture()) {}

}  // namespace quarnel02
