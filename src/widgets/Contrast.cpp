#include "widgets/Contrast.h"

#include <algorithm>
#include <cmath>

namespace quarnel02 {

namespace {

/// Of a part of a colour in sRGB.
double Linear(double part) {
    constexpr double straight_up_to = 0.03928;
    constexpr double slope = 12.92;
    constexpr double offset = 0.055;
    constexpr double gamma = 2.4;
    return part <= straight_up_to ? part / slope : std::pow((part + offset) / (1 + offset), gamma);
}

double Luminance(const QColor& colour) {
    constexpr double red = 0.2126;
    constexpr double green = 0.7152;
    constexpr double blue = 0.0722;
    return red * Linear(colour.redF()) + green * Linear(colour.greenF()) +
           blue * Linear(colour.blueF());
}

}  // namespace

double Contrast(const QColor& a, const QColor& b) {
    constexpr double flare = 0.05;
    const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
    return (lighter + flare) / (darker + flare);
}

QColor ReadableOn(const QColor& paper, const QColor& ink) {
    constexpr double readable = 4.5;
    constexpr float step = 0.02F;
    const bool dark = Contrast(paper, Qt::white) > Contrast(paper, Qt::black);
    QColor shown = ink;
    float lightness = ink.lightnessF();
    while (Contrast(shown, paper) < readable && lightness > 0 && lightness < 1) {
        lightness = std::clamp(lightness + (dark ? step : -step), 0.0F, 1.0F);
        shown.setHslF(std::max(ink.hslHueF(), 0.0F), ink.hslSaturationF(), lightness);
    }
    return shown;
}

}  // namespace quarnel02
