#pragma once

#include <QColor>

namespace quarnel02 {

/// Ratio of luminances, 1 to 21; text is readable from 4.5 on.
double Contrast(const QColor& a, const QColor& b);

/// `ink`, or that hue in the nearest lightness that is readable on `paper`.
QColor ReadableOn(const QColor& paper, const QColor& ink);

}  // namespace quarnel02
