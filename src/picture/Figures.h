#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "picture/TextMeasure.h"

namespace quarnel02 {

struct Colour {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;
    bool operator==(const Colour&) const = default;
};

/// Equipment classes, with the codes that Resources.Type stores.
enum class ResourceType : std::int8_t { Manual = 0, Fixed = 1, Programmable = 2, Automated = 3 };

// Figures of pictures. Coordinates and sizes are in twips, x to the right, y downwards; line widths
// in pixels of 15 twips. Colours are those on white paper.

struct LineFigure {
    double X1;
    double Y1;
    double X2;
    double Y2;
    int Width;
    Colour Pen;
    bool Dashed = false;
    bool operator==(const LineFigure&) const = default;
};

/// Part of an ellipse round (X, Y), from angle Start to angle End in radians, counter-clockwise
/// from the right. Radius is the half width, Radius x Aspect the half height. A filled one is
/// closed and filled with the colour of its line.
struct CircleFigure {
    double X;
    double Y;
    double Radius;
    double Start;
    double End;
    double Aspect;
    int Width;
    Colour Pen;
    bool Filled;
    double Opacity = 1;  ///< 0 to 1
    bool operator==(const CircleFigure&) const = default;
};

/// A filled rectangle with rounded corners; a frame of width 0 is none.
struct BoxFigure {
    double X;
    double Y;
    double Width;
    double Height;
    double Rounding;  ///< radius of the corners
    Colour Fill;
    int FrameWidth = 0;
    Colour Frame = {};
    bool operator==(const BoxFigure&) const = default;
};

/// A text whose upper left corner is at (X, Y). A turned one reads downwards; (X, Y) is then the
/// upper left corner of what it covers.
struct TextFigure {
    double X;
    double Y;
    std::string Text;
    Font Face;
    Colour Pen;
    bool Turned = false;
    bool operator==(const TextFigure&) const = default;
};

/// The drawing of an equipment class in the square of side Size whose upper left corner is at
/// (X, Y).
struct IconFigure {
    double X;
    double Y;
    double Size;
    ResourceType Type;
    bool operator==(const IconFigure&) const = default;
};

using PictureFigure = std::variant<LineFigure, CircleFigure, BoxFigure, TextFigure, IconFigure>;

/// Smallest upright rectangle round something.
struct Extent {
    double Left;
    double Top;
    double Right;
    double Bottom;
    bool operator==(const Extent&) const = default;
};

/// What a figure covers, half of its pen included.
Extent ExtentOf(const PictureFigure& figure, const TextMeasure& measure);

/// Shortest distance of a point to what a figure shows, twips: to a line or an arc; 0 inside a box,
/// a filled circle, a text or an icon.
double DistanceTo(const PictureFigure& figure, double x, double y, const TextMeasure& measure);

}  // namespace quarnel02
