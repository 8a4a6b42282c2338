#pragma once

#include <array>

namespace quarnel02 {

/// Families that stand for a picture's fonts on paper and screen, the first that there is; the last
/// is the generic one.
inline constexpr std::array kFixedPitchFamilies = {"Liberation Mono", "DejaVu Sans Mono",
                                                   "monospace"};
inline constexpr std::array kProportionalFamilies = {"Liberation Sans", "DejaVu Sans", "Arial",
                                                     "sans-serif"};

}  // namespace quarnel02
