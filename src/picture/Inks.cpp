#include "picture/Inks.h"

#include <algorithm>
#include <cmath>

namespace quarnel02 {

namespace {

constexpr double kMost = 255;

std::uint8_t ToByte(double share) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(share, 0.0, 1.0) * kMost));
}

double LinearOf(std::uint8_t byte) {
    const double share = byte / kMost;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double LuminanceOf(Colour colour) {
    return 0.2126 * LinearOf(colour.Red) + 0.7152 * LinearOf(colour.Green) +
           0.0722 * LinearOf(colour.Blue);
}

}  // namespace

/// Turns the lightness of the colour round and keeps hue and, as far as it can be, its distance
/// from grey: each channel moves by the same amount.
Colour OnDark(Colour colour) {
    constexpr double darkest = 0.13;
    constexpr double lightest = 0.93;
    constexpr double lift = 0.75;  // blue and purple look darker than their lightness
    const double red = colour.Red / kMost;
    const double green = colour.Green / kMost;
    const double blue = colour.Blue / kMost;
    const double lightness = (std::max({red, green, blue}) + std::min({red, green, blue})) / 2;
    const double turned = darkest + (lightest - darkest) * std::pow(1 - lightness, lift);
    const double most = std::max({red, green, blue}) - lightness;
    const double room = std::min(turned, 1 - turned);
    const double strength = most > room ? room / most : 1;
    const auto channel = [&](double value) {
        return ToByte(turned + (value - lightness) * strength);
    };
    return {channel(red), channel(green), channel(blue)};
}

double ContrastOf(Colour a, Colour b) {
    constexpr double flare = 0.05;
    const auto [darker, lighter] = std::minmax({LuminanceOf(a), LuminanceOf(b)});
    return (lighter + flare) / (darker + flare);
}

}  // namespace quarnel02
