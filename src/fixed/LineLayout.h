#pragma once

#include <vector>

#include "picture/Figures.h"

namespace quarnel02 {

inline constexpr double kCardPadding = 120;  ///< of the texts on a card, twips

/// Widths that the texts of the widest card need, twips.
struct CardTexts {
    double Full;  ///< on a card with the icon over its texts
    double Flat;  ///< beside the icon
};

/// Where the cards of a line stand on the paper, twips.
struct LineLayout {
    bool IsFlat = false;  ///< the icon stands beside the texts
    double Icon = 0;      ///< side of an icon
    int PerRow = 1;       ///< cards in a full row
    double Right = 0;     ///< of all cards
    double Bottom = 0;
    std::vector<Extent> Cards;  ///< in line order
};

/// The largest cards with which so many stations fit into the area, in rows of the same length,
/// centred; flat ones where full ones would be too small, beyond the area where that does not hold
/// them. `line` is the height of a line of text.
LineLayout LayOutLine(int stations, const Extent& area, const CardTexts& texts, double line);

}  // namespace quarnel02
