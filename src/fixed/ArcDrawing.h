#pragma once

#include <cstdint>

#include "fixed/Arcs.h"
#include "picture/Picture.h"

namespace quarnel02 {

/// Width of the node row and height of its axis in the network picture, twips.
inline constexpr double kNetworkWidth = 15000;
inline constexpr double kNetworkAxis = 1500;
/// Height of an arc over its width.
inline constexpr double kArcAspect = 0.25;

/// Distance of neighbouring nodes of a row of `nodes` nodes, twips; a margin as wide stands at
/// either end. Throws DivisionByZero or Overflow for an impossible number.
double NodeSpacing(std::int16_t nodes);

/// Height of the chip of a task's number, twips.
double ChipHeight(const Picture& picture);
/// How much higher every arc is drawn so that the lowest, those of a single task, stand clear of
/// the chips; `lowest` is their height on the paper, twips.
double ArcLift(const Picture& picture, double lowest);

/// Draws an arc with the picture's line width where its sheet lies: a half-ellipse on the axis,
/// four times as wide as it is high where the sheet is not stretched.
void DrawArc(Picture& picture, const Arc& arc, Colour colour, double opacity = 1);

}  // namespace quarnel02
