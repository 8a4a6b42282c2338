#include "picture/Icons.h"

#include <array>

namespace quarnel02 {

namespace {

using Shapes = std::vector<IconShape>;

constexpr Colour kSteel{72, 85, 99};
constexpr Colour kLight{176, 190, 204};
constexpr Colour kBlue{21, 101, 192};
constexpr Colour kOrange{230, 126, 16};
constexpr Colour kGreen{46, 125, 50};
constexpr Colour kSkin{224, 172, 130};
constexpr Colour kWood{150, 106, 62};
constexpr Colour kWhite{250, 250, 250};

IconShape Box(double left, double top, double right, double bottom, Colour fill) {
    return {{{left, top}, {right, top}, {right, bottom}, {left, bottom}}, fill, 0};
}

IconShape Disc(double x, double y, double radius, Colour fill) {
    return {{{x, y}}, fill, radius};
}

/// A bar of the given half thickness between two points, for arms.
IconShape Bar(IconPoint from, IconPoint to, double dx, double dy, Colour fill) {
    return {{{from.X - dx, from.Y - dy},
             {from.X + dx, from.Y + dy},
             {to.X + dx, to.Y + dy},
             {to.X - dx, to.Y - dy}},
            fill,
            0};
}

Shapes PersonAtBench() {
    return {Disc(0.30, 0.20, 0.13, kSkin),
            {{{0.14, 0.84}, {0.14, 0.44}, {0.20, 0.36}, {0.40, 0.36}, {0.46, 0.44}, {0.46, 0.84}},
             kBlue,
             0},
            Bar({0.40, 0.44}, {0.70, 0.56}, 0.0, 0.05, kBlue),
            Disc(0.71, 0.56, 0.055, kSkin),
            Box(0.62, 0.44, 0.88, 0.52, kOrange),
            Box(0.50, 0.62, 0.98, 0.70, kWood),
            Box(0.56, 0.70, 0.63, 0.95, kWood),
            Box(0.88, 0.70, 0.95, 0.95, kWood),
            Box(0.18, 0.84, 0.27, 0.95, kSteel),
            Box(0.33, 0.84, 0.42, 0.95, kSteel)};
}

Shapes Press() {
    return {Box(0.08, 0.06, 0.92, 0.22, kSteel),  Box(0.10, 0.22, 0.22, 0.80, kSteel),
            Box(0.78, 0.22, 0.90, 0.80, kSteel),  Box(0.44, 0.22, 0.56, 0.40, kLight),
            Box(0.30, 0.40, 0.70, 0.52, kOrange), Box(0.38, 0.62, 0.62, 0.72, kLight),
            Box(0.26, 0.72, 0.74, 0.80, kWhite),  Box(0.04, 0.80, 0.96, 0.95, kSteel)};
}

Shapes MachineTool() {
    return {Box(0.06, 0.12, 0.94, 0.86, kLight),
            Box(0.12, 0.20, 0.64, 0.72, kWhite),
            Box(0.30, 0.20, 0.46, 0.38, kSteel),
            {{{0.33, 0.38}, {0.43, 0.38}, {0.38, 0.54}}, kOrange, 0},
            Box(0.22, 0.58, 0.54, 0.66, kBlue),
            Box(0.70, 0.20, 0.88, 0.40, kGreen),
            Disc(0.74, 0.50, 0.035, kOrange),
            Disc(0.84, 0.50, 0.035, kBlue),
            Box(0.06, 0.86, 0.94, 0.95, kSteel)};
}

Shapes RobotArm() {
    return {Box(0.14, 0.86, 0.66, 0.95, kSteel),
            {{{0.24, 0.86}, {0.30, 0.68}, {0.50, 0.68}, {0.56, 0.86}}, kSteel, 0},
            Bar({0.40, 0.68}, {0.24, 0.32}, 0.07, 0.0, kOrange),
            Bar({0.24, 0.30}, {0.74, 0.16}, 0.0, 0.065, kOrange),
            Bar({0.74, 0.16}, {0.80, 0.42}, 0.05, 0.0, kOrange),
            Disc(0.40, 0.68, 0.09, kLight),
            Disc(0.24, 0.30, 0.09, kLight),
            Disc(0.74, 0.17, 0.08, kLight),
            {{{0.66, 0.42},
              {0.92, 0.42},
              {0.92, 0.60},
              {0.85, 0.60},
              {0.85, 0.49},
              {0.73, 0.49},
              {0.73, 0.60},
              {0.66, 0.60}},
             kSteel,
             0}};
}

}  // namespace

std::span<const IconShape> IconShapes(ResourceType type) {
    static const std::array<Shapes, 4> shapes = {PersonAtBench(), Press(), MachineTool(),
                                                 RobotArm()};
    return shapes.at(static_cast<std::size_t>(type));
}

}  // namespace quarnel02
