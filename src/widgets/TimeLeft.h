#pragma once

#include <QString>
#include <chrono>

namespace quarnel02 {

/// What a piece of work will still take, judged by the share that is done (0 to 1) and the time
/// that it took: "About 12 s left", "About 3 min left". Empty while that is a mere guess: in the
/// first second, and before a fiftieth is done.
QString TimeLeftText(double share, std::chrono::milliseconds elapsed);

}  // namespace quarnel02
