#include "widgets/TimeLeft.h"

#include <algorithm>
#include <cmath>

namespace quarnel02 {

QString TimeLeftText(double share, std::chrono::milliseconds elapsed) {
    constexpr double least_share = 0.02;
    constexpr double minute = 60;
    constexpr double seconds_up_to = 2 * minute;
    if (share < least_share || elapsed < std::chrono::seconds(1)) {
        return {};
    }
    const double seconds = std::chrono::duration<double>(elapsed).count();
    const double left = std::max(0.0, seconds / share * (1 - share));
    if (left < seconds_up_to) {
        return QStringLiteral("About %1 s left").arg(std::ceil(left));
    }
    return QStringLiteral("About %1 min left").arg(std::round(left / minute));
}

}  // namespace quarnel02
