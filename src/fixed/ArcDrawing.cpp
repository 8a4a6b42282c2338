#include "fixed/ArcDrawing.h"

#include <algorithm>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

double NodeSpacing(std::int16_t nodes) {
    if (nodes == -1) {
        throw RunTimeError(ErrorKind::DivisionByZero,
                           "The number of tasks is -2. Enter the tasks in the task editor.");
    }
    return ToInteger(kNetworkWidth / (nodes + 1), "Spacing");
}

double ChipHeight(const Picture& picture) {
    constexpr double share_of_line = 0.86;
    return share_of_line * LineHeight(picture.PageFont());
}

double ArcLift(const Picture& picture, double lowest) {
    constexpr double clear = 45;
    return std::max(0.0, ChipHeight(picture) / 2 + clear - lowest);
}

void DrawArc(Picture& picture, const Arc& arc, Colour colour, double opacity) {
    const auto& [scale, left, top, stretch] = picture.Sheet;
    const double radius = scale * arc.Radius;
    const double height = stretch * kArcAspect * radius;
    const double lift = ArcLift(picture, height / std::max(1, arc.TaskEnd - arc.TaskStart));
    const double aspect = radius > 0 ? (height + lift) / radius : stretch * kArcAspect;
    picture.Add(CircleFigure{left + scale * arc.Midpoint, top + scale * stretch * kNetworkAxis,
                             radius, arc.Start, arc.End, aspect, picture.DrawWidth, colour, false,
                             opacity});
}

}  // namespace quarnel02
