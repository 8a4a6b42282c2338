#include "jet/Utf16.h"

#include <cstdint>

namespace quarnel02::jet {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstPaired = 0x10000;
constexpr char32_t kLast = 0x10FFFF;
constexpr unsigned kPairBits = 10;
constexpr char32_t kPairMask = 0x3FF;
constexpr char32_t kHighHalf = 0xD800;
constexpr char32_t kLowHalf = 0xDC00;
constexpr unsigned kTailBits = 6;
constexpr char32_t kTailMask = 0x3F;
constexpr unsigned kTailMark = 0x80;

bool IsHighHalf(char32_t unit) {
    return (unit & ~kPairMask) == kHighHalf;
}

bool IsLowHalf(char32_t unit) {
    return (unit & ~kPairMask) == kLowHalf;
}

/// How a character of so many bytes starts, and the first character that needs them.
struct Length {
    unsigned Mark;
    unsigned Mask;  ///< bits of the first byte that tell
    char32_t First;
};
constexpr Length kLengths[] = {
    {0x00, 0x80, 0}, {0xC0, 0xE0, 0x80}, {0xE0, 0xF0, 0x800}, {0xF0, 0xF8, kFirstPaired}};
constexpr std::size_t kMostBytes = std::size(kLengths);

void AppendUtf8(std::string& text, char32_t character) {
    std::size_t tails = kMostBytes - 1;
    while (character < kLengths[tails].First) {
        --tails;
    }
    text += static_cast<char>(kLengths[tails].Mark | character >> kTailBits * tails);
    while (tails-- > 0) {
        text += static_cast<char>(kTailMark | (character >> kTailBits * tails & kTailMask));
    }
}

/// Takes the first character off `text`.
std::optional<char32_t> TakeCharacter(std::string_view& text) {
    const unsigned lead = static_cast<std::uint8_t>(text.front());
    std::size_t tails = 0;
    while (tails < kMostBytes && (lead & kLengths[tails].Mask) != kLengths[tails].Mark) {
        ++tails;
    }
    if (tails == kMostBytes || text.size() <= tails) {
        return {};
    }
    char32_t character = lead & ~kLengths[tails].Mask;
    for (std::size_t i = 1; i <= tails; ++i) {
        const unsigned tail = static_cast<std::uint8_t>(text[i]);
        if ((tail & ~kTailMask) != kTailMark) {
            return {};
        }
        character = character << kTailBits | (tail & kTailMask);
    }
    const bool half = IsHighHalf(character) || IsLowHalf(character);
    if (character < kLengths[tails].First || character > kLast || half) {
        return {};
    }
    text.remove_prefix(tails + 1);
    return character;
}

}  // namespace

std::string Utf8Of(std::u16string_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        if (IsHighHalf(character) && i + 1 < text.size() && IsLowHalf(text[i + 1])) {
            character =
                kFirstPaired + ((character & kPairMask) << kPairBits) + (text[++i] & kPairMask);
        } else if (IsHighHalf(character) || IsLowHalf(character)) {
            character = kReplacement;
        }
        AppendUtf8(utf8, character);
    }
    return utf8;
}

std::optional<std::u16string> Utf16Of(std::string_view text) {
    std::u16string utf16;
    utf16.reserve(text.size());
    while (!text.empty()) {
        const auto character = TakeCharacter(text);
        if (!character) {
            return {};
        }
        if (*character < kFirstPaired) {
            utf16 += static_cast<char16_t>(*character);
        } else {
            const char32_t offset = *character - kFirstPaired;
            utf16 += static_cast<char16_t>(kHighHalf + (offset >> kPairBits));
            utf16 += static_cast<char16_t>(kLowHalf + (offset & kPairMask));
        }
    }
    return utf16;
}

}  // namespace quarnel02::jet
