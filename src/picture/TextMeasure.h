#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "basic/Immovable.h"

namespace quarnel02 {

/// A fixed-pitch font puts the columns of a line printer under one another.
enum class FontFamily : std::int8_t { Proportional, FixedPitch };

struct Font {
    FontFamily Family = FontFamily::Proportional;
    double Points = 8;
    bool Bold = false;
    bool operator==(const Font&) const = default;
};

/// Tells how wide texts are in the fonts that will show them.
class TextMeasure : Immovable {
  public:
    virtual ~TextMeasure() = default;

    /// Width of a text, twips. In fixed pitch every character counts CharacterWidth.
    [[nodiscard]] virtual double Width(std::string_view text, const Font& font) const = 0;
};

/// The measure of files: the widths of Liberation Sans, by which a document names its letters too.
const TextMeasure& FileMeasure();

/// Height of a line of text and width of a fixed-pitch character, twips.
double LineHeight(const Font& font);
double CharacterWidth(const Font& font);
/// Distance from the top of a line of text to its base line, twips.
double Baseline(const Font& font);
/// Width of a text in a file, twips.
double TextWidth(std::string_view text, const Font& font);

/// The text, or as much of it as fits with "…" behind it; empty where not even that does.
std::string Elided(std::string_view text, double width, const Font& font,
                   const TextMeasure& measure);

}  // namespace quarnel02
