#pragma once

#include <span>
#include <vector>

#include "picture/Picture.h"

namespace quarnel02 {

struct IconPoint {
    double X;
    double Y;
};

/// A shape of an icon in the unit square, y downwards: a polygon, or a disc when it has a radius
/// (round its only point)
struct IconShape {
    std::vector<IconPoint> Points;
    Colour Fill;
    double Radius = 0;
};

/// The drawing of an equipment class, in painting order: a person at a bench, a press, a machine
/// tool, a robot arm. Readable at 16 pixels.
std::span<const IconShape> IconShapes(ResourceType type);

}  // namespace quarnel02
