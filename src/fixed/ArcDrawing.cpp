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

void DrawArc(Picture& picture, const Arc& arc, Colour colour) {
    constexpr double aspect = 0.25;
    picture.Circle(arc.Midpoint, kNetworkAxis, arc.Radius, colour, arc.Start, arc.End, aspect);
}

}  // namespace quarnel02
