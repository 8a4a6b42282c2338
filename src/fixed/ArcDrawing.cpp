#include "fixed/ArcDrawing.h"

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

void DrawArc(Picture& picture, const Arc& arc, Colour colour, double opacity) {
    const auto& [scale, left, top] = picture.Sheet;
    picture.Add(CircleFigure{left + scale * arc.Midpoint, top + scale * kNetworkAxis,
                             scale * arc.Radius, arc.Start, arc.End, kArcAspect, picture.DrawWidth,
                             colour, false, opacity});
}

}  // namespace quarnel02
