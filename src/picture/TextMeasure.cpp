#include "picture/TextMeasure.h"

#include <array>
#include <cmath>

#include "basic/LinePrinter.h"
#include "picture/Units.h"

namespace quarnel02 {

namespace {

constexpr int kUnitsPerEm = 2048;
constexpr char32_t kFirst = 32;
constexpr char32_t kLatinFirst = 160;
constexpr char32_t kLatinLast = 255;
constexpr std::size_t kAscii = 95;
constexpr std::size_t kLetters = kAscii + kLatinLast - kLatinFirst + 1;

/// Advance widths from the blank to "~" and from U+00A0 to U+00FF.
using Advances = std::array<std::uint16_t, kLetters>;

// clang-format off
constexpr Advances kRegular = {
    569, 569, 727, 1139, 1139, 1821, 1366, 391, 682, 682, 797, 1196, 569, 682, 569, 569, 1139,
    1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 569, 569, 1196, 1196, 1196, 1139,
    2079, 1366, 1366, 1479, 1479, 1366, 1251, 1593, 1479, 569, 1024, 1366, 1139, 1706, 1479,
    1593, 1366, 1593, 1479, 1366, 1251, 1479, 1366, 1933, 1366, 1366, 1251, 569, 569, 569, 961,
    1139, 682, 1139, 1139, 1024, 1139, 1139, 569, 1139, 1139, 455, 455, 1024, 455, 1706, 1139,
    1139, 1139, 1139, 682, 1024, 569, 1139, 1024, 1479, 1024, 1024, 1024, 684, 532, 684, 1196,
    569, 682, 1139, 1139, 1139, 1139, 532, 1139, 682, 1509, 758, 1139, 1196, 682, 1509, 1131,
    819, 1124, 682, 682, 682, 1180, 1100, 569, 682, 682, 748, 1139, 1708, 1708, 1708, 1251,
    1366, 1366, 1366, 1366, 1366, 1366, 2048, 1479, 1366, 1366, 1366, 1366, 569, 569, 569, 569,
    1479, 1479, 1593, 1593, 1593, 1593, 1593, 1196, 1593, 1479, 1479, 1479, 1479, 1366, 1366,
    1251, 1139, 1139, 1139, 1139, 1139, 1139, 1821, 1024, 1139, 1139, 1139, 1139, 569, 569, 569,
    569, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 1124, 1251, 1139, 1139, 1139, 1139, 1024,
    1139, 1024};

constexpr Advances kBold = {
    569, 682, 971, 1139, 1139, 1821, 1479, 487, 682, 682, 797, 1196, 569, 682, 569, 569, 1139,
    1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 1139, 682, 682, 1196, 1196, 1196, 1251,
    1997, 1479, 1479, 1479, 1479, 1366, 1251, 1593, 1479, 569, 1139, 1479, 1251, 1706, 1479,
    1593, 1366, 1593, 1479, 1366, 1251, 1479, 1366, 1933, 1366, 1366, 1251, 682, 569, 682, 1196,
    1139, 682, 1139, 1251, 1139, 1251, 1139, 682, 1251, 1251, 569, 569, 1139, 569, 1821, 1251,
    1251, 1251, 1251, 797, 1139, 682, 1251, 1139, 1593, 1139, 1139, 1024, 797, 573, 797, 1196,
    569, 682, 1139, 1139, 1139, 1139, 573, 1139, 682, 1509, 758, 1139, 1196, 682, 1509, 1131,
    819, 1124, 682, 682, 682, 1180, 1139, 569, 682, 682, 748, 1139, 1708, 1708, 1708, 1251,
    1479, 1479, 1479, 1479, 1479, 1479, 2048, 1479, 1366, 1366, 1366, 1366, 569, 569, 569, 569,
    1479, 1479, 1593, 1593, 1593, 1593, 1593, 1196, 1593, 1479, 1479, 1479, 1479, 1366, 1366,
    1251, 1139, 1139, 1139, 1139, 1139, 1139, 1821, 1139, 1139, 1139, 1139, 1139, 569, 569, 569,
    569, 1251, 1251, 1251, 1251, 1251, 1251, 1251, 1124, 1251, 1251, 1251, 1251, 1251, 1139,
    1251, 1139};
// clang-format on

/// The next code point of UTF-8 text that is known to be whole; a stray byte counts as one.
char32_t NextCodePoint(std::string_view text, std::size_t& place) {
    constexpr unsigned tail_bits = 6;
    constexpr unsigned tail_mask = 0x3F;
    const auto lead = static_cast<unsigned char>(text[place]);
    const unsigned length = lead < 0xC0 ? 1U : lead < 0xE0 ? 2U : lead < 0xF0 ? 3U : 4U;
    char32_t code = length == 1 ? lead : lead & (0x7FU >> length);
    for (++place; place < text.size() && (static_cast<unsigned char>(text[place]) & 0xC0U) == 0x80U;
         ++place) {
        code = (code << tail_bits) | (static_cast<unsigned char>(text[place]) & tail_mask);
    }
    return code;
}

/// Letters outside the table count as wide as an "M", ideographs as a whole em.
int AdvanceOf(char32_t code, const Advances& advances) {
    constexpr char32_t ascii_last = kFirst + kAscii - 1;
    constexpr int wide = 1706;
    constexpr char32_t whole_em_from = 0x2000;
    if (code >= kFirst && code <= ascii_last) {
        return advances.at(code - kFirst);
    }
    if (code >= kLatinFirst && code <= kLatinLast) {
        return advances.at(kAscii + code - kLatinFirst);
    }
    return code >= whole_em_from ? kUnitsPerEm : wide;
}

class LiberationMeasure : public TextMeasure {
  public:
    [[nodiscard]] double Width(std::string_view text, const Font& font) const override {
        if (font.Family == FontFamily::FixedPitch) {
            return CharacterCount(text) * CharacterWidth(font);
        }
        const Advances& advances = font.Bold ? kBold : kRegular;
        int units = 0;
        for (std::size_t place = 0; place < text.size();) {
            units += AdvanceOf(NextCodePoint(text, place), advances);
        }
        return units * font.Points * kTwipsPerPoint / kUnitsPerEm;
    }
};

}  // namespace

const TextMeasure& FileMeasure() {
    static const LiberationMeasure measure;
    return measure;
}

double LineHeight(const Font& font) {
    return std::round(font.Points * kTwipsPerPoint * 1.25);
}

double CharacterWidth(const Font& font) {
    return font.Points * kTwipsPerPoint * 0.6;
}

double Baseline(const Font& font) {
    return font.Points * kTwipsPerPoint * 0.95;
}

double TextWidth(std::string_view text, const Font& font) {
    return FileMeasure().Width(text, font);
}

std::string Elided(std::string_view text, double width, const Font& font,
                   const TextMeasure& measure) {
    static constexpr std::string_view dots = "…";
    if (measure.Width(text, font) <= width) {
        return std::string(text);
    }
    std::string kept(text);
    while (!kept.empty()) {
        while (!kept.empty() && (static_cast<unsigned char>(kept.back()) & 0xC0U) == 0x80U) {
            kept.pop_back();
        }
        kept.pop_back();
        kept.erase(kept.find_last_not_of(' ') + 1);
        if (measure.Width(kept + std::string(dots), font) <= width) {
            return kept + std::string(dots);
        }
    }
    return {};
}

}  // namespace quarnel02
