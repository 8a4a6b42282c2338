#include "fixed/ArcDrawing.h"

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

// Positions in table Arcs.
constexpr int kMidpoint = 3;
constexpr int kRadius = 4;
constexpr int kStart = 5;
constexpr int kEnd = 6;

}  // namespace

double NodeSpacing(std::int16_t nodes) {
    if (nodes == -1) {
        throw RunTimeError(ErrorKind::DivisionByZero,
                           "The number of tasks is -2. Enter the tasks in the task editor.");
    }
    return ToInteger(kNetworkWidth / (nodes + 1), "Spacing");
}

void DrawArc(Picture& picture, const RecordSet& arc, Colour colour) {
    constexpr double aspect = 0.25;
    picture.Circle(arc.Number(kMidpoint), kNetworkAxis, arc.Number(kRadius), colour,
                   arc.Number(kStart), arc.Number(kEnd), aspect);
}

}  // namespace quarnel02
