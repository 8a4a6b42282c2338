#pragma once

namespace quarnel02 {

/// Twips per inch, per point of 72 and per screen pixel of 96 to the inch: the unit of all picture
/// coordinates.
constexpr double kTwipsPerInch = 1440.0;
constexpr double kTwipsPerPoint = 20.0;
constexpr double kTwipsPerPixel = 15.0;

}  // namespace quarnel02
