#pragma once

#include <algorithm>
#include <vector>

#include "line/LineModel.h"
#include "line/RandomLine.h"

namespace quarnel02::test {

/// 1 to 6 demand points, in half of the cases with probabilities that add up to 100; now and then
/// two of one volume, or one of volume 0.
inline std::vector<DemandPoint> RandomDemand() {
    const int points = Roll(1, 6);
    const bool complete = Roll(0, 1) == 1;
    std::vector<DemandPoint> demand;
    int left = 100;
    for (int point = 1; point <= points; ++point) {
        const bool again = point > 1 && Roll(1, 8) == 1;
        const float volume =
            again ? demand.back().Volume : static_cast<float>(Roll(1, 400)) * 1000.3F;
        const int share = point == points ? left : Roll(0, std::min(left, 60));
        left -= share;
        const float some = static_cast<float>(Roll(1, 400)) / 10;
        demand.push_back({volume, complete ? static_cast<float>(share) : some});
    }
    if (points > 1 && Roll(1, 6) == 1) {
        demand.front().Volume = 0;
        demand.back().Volume += 1000;
    }
    return demand;
}

}  // namespace quarnel02::test
