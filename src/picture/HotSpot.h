#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "picture/Figures.h"

namespace quarnel02 {

/// What the ends of a line stand for, so that any point between them can be read.
struct Reading {
    double XStart = 0;
    double XEnd = 0;
    double YStart = 0;
    double YEnd = 0;
    bool operator==(const Reading&) const = default;
};

/// The words behind a figure of a picture. With a reading, "{x}" in the text stands for the value
/// of x as a number with thousands separators, "{y}" for that of y in dollars; amounts below 100
/// dollars carry cents.
struct HotSpot {
    std::size_t Figure = 0;  ///< place in Picture::Figures
    std::string Text;
    std::optional<Reading> Ends;
    bool operator==(const HotSpot&) const = default;
};

/// The words for the whole figure; readings as ranges: "100 to 200".
std::string WordsOf(const HotSpot& spot);

/// The words for the point of the figure that is nearest to (x, y).
std::string WordsAt(const HotSpot& spot, const PictureFigure& figure, double x, double y);

}  // namespace quarnel02
