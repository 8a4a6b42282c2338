#include "picture/Figures.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "picture/Units.h"

namespace quarnel02 {

namespace {

constexpr double kAngleTolerance = 0.001;

Extent Covered(const LineFigure& line, const TextMeasure& /*measure*/) {
    return {std::min(line.X1, line.X2), std::min(line.Y1, line.Y2), std::max(line.X1, line.X2),
            std::max(line.Y1, line.Y2)};
}

bool IsLowerHalf(const CircleFigure& circle) {
    return circle.Start >= std::numbers::pi - kAngleTolerance;
}

bool IsUpperHalf(const CircleFigure& circle) {
    return circle.Start >= 0 && circle.End <= std::numbers::pi + kAngleTolerance;
}

/// The half of an ellipse that is not drawn does not count.
Extent Covered(const CircleFigure& circle, const TextMeasure& /*measure*/) {
    const double height = circle.Radius * circle.Aspect;
    const double pen = circle.Width * kTwipsPerPixel / 2;
    return {circle.X - circle.Radius - pen, circle.Y - (IsLowerHalf(circle) ? 0 : height) - pen,
            circle.X + circle.Radius + pen, circle.Y + (IsUpperHalf(circle) ? 0 : height) + pen};
}

Extent Covered(const BoxFigure& box, const TextMeasure& /*measure*/) {
    return {box.X, box.Y, box.X + box.Width, box.Y + box.Height};
}

Extent Covered(const TextFigure& text, const TextMeasure& measure) {
    const double along = measure.Width(text.Text, text.Face);
    const double across = LineHeight(text.Face);
    return {text.X, text.Y, text.X + (text.Turned ? across : along),
            text.Y + (text.Turned ? along : across)};
}

Extent Covered(const IconFigure& icon, const TextMeasure& /*measure*/) {
    return {icon.X, icon.Y, icon.X + icon.Size, icon.Y + icon.Size};
}

double DistanceToExtent(const Extent& extent, double x, double y) {
    return std::hypot(std::max({extent.Left - x, 0.0, x - extent.Right}),
                      std::max({extent.Top - y, 0.0, y - extent.Bottom}));
}

double DistanceToLine(const LineFigure& line, double x, double y) {
    const double dx = line.X2 - line.X1;
    const double dy = line.Y2 - line.Y1;
    const double square = dx * dx + dy * dy;
    const double along =
        square > 0 ? std::clamp(((x - line.X1) * dx + (y - line.Y1) * dy) / square, 0.0, 1.0) : 0;
    return std::hypot(x - line.X1 - along * dx, y - line.Y1 - along * dy);
}

/// Distance to the nearer of the two points of an ellipse that lie in the direction of the point
/// seen flat and seen steep: exact on the ellipse, and close enough beside it.
double DistanceToArc(const CircleFigure& circle, double x, double y) {
    const double height = circle.Radius * circle.Aspect;
    const double dx = x - circle.X;
    const double dy = circle.Y - y;
    const bool on_other_side = (IsUpperHalf(circle) && dy < 0) || (IsLowerHalf(circle) && dy > 0);
    if (on_other_side) {
        return std::min(std::hypot(dx - circle.Radius, dy), std::hypot(dx + circle.Radius, dy));
    }
    const double flat = std::sqrt(std::max(0.0, 1 - dx * dx / (circle.Radius * circle.Radius)));
    const double steep = height > 0 ? std::sqrt(std::max(0.0, 1 - dy * dy / (height * height))) : 0;
    const double above =
        std::hypot(std::max(0.0, std::fabs(dx) - circle.Radius), std::fabs(dy) - height * flat);
    const double beside =
        std::hypot(std::max(0.0, std::fabs(dy) - height), std::fabs(dx) - circle.Radius * steep);
    return std::min(above, beside);
}

double Distance(const LineFigure& line, double x, double y, const TextMeasure& /*measure*/) {
    return DistanceToLine(line, x, y);
}

double Distance(const CircleFigure& circle, double x, double y, const TextMeasure& /*measure*/) {
    const bool inside = circle.Filled && std::hypot(x - circle.X, y - circle.Y) <= circle.Radius;
    return inside ? 0 : DistanceToArc(circle, x, y);
}

template <class Figure>
double Distance(const Figure& figure, double x, double y, const TextMeasure& measure) {
    return DistanceToExtent(Covered(figure, measure), x, y);
}

}  // namespace

Extent ExtentOf(const PictureFigure& figure, const TextMeasure& measure) {
    return std::visit([&](const auto& each) { return Covered(each, measure); }, figure);
}

double DistanceTo(const PictureFigure& figure, double x, double y, const TextMeasure& measure) {
    return std::visit([&](const auto& each) { return Distance(each, x, y, measure); }, figure);
}

}  // namespace quarnel02
