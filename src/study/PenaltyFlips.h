#pragma once

#include <optional>

#include "study/ExpectedDesigns.h"

namespace quarnel02 {

/// A penalty from which on another capacity is the cheapest.
struct PenaltyFlip {
    double Penalty = 0;  ///< dollars per unit of unmet demand
    float Capacity = 0;  ///< units per year, then
};

/// Where the capacity of a stochastic design changes when nothing but the penalty does.
struct PenaltyFlips {
    std::optional<PenaltyFlip> Below;  ///< the nearest lower penalty, at least 0
    std::optional<PenaltyFlip> Above;  ///< the nearest higher penalty
};

/// None of both when there is no line.
PenaltyFlips PenaltyFlipsOf(const ExpectedDesigns& designs);

}  // namespace quarnel02
