#pragma once

#include "picture/Figures.h"

namespace quarnel02 {

// The colours that drawings share, on white paper. Those of texts have a contrast of 4.5 to 1 and
// more there and, as OnDark has them, on dark paper.
inline constexpr Colour kPaper{255, 255, 255};
inline constexpr Colour kInk{40, 40, 40};
inline constexpr Colour kSoftInk{90, 98, 108};
inline constexpr Colour kGridLine{225, 225, 225};
inline constexpr Colour kCard{247, 249, 251};
inline constexpr Colour kCardFrame{208, 215, 222};
inline constexpr Colour kBlueInk{21, 101, 192};
inline constexpr Colour kGreenInk{30, 125, 40};
inline constexpr Colour kPurpleInk{110, 65, 150};
inline constexpr Colour kOrangeInk{190, 90, 0};
inline constexpr Colour kRedInk{200, 0, 0};
inline constexpr Colour kGuideInk{74, 96, 150};

/// The colour that stands for another one on dark paper: as light as that is dark, in its own hue.
Colour OnDark(Colour colour);

/// Contrast of two colours, 1 to 21, as the guidelines for accessible web content count it.
double ContrastOf(Colour a, Colour b);

}  // namespace quarnel02
