#include "sheets/XlsxText.h"

#include <charconv>
#include <optional>
#include <string_view>

#include "sheets/SheetFill.h"

namespace quarnel02 {

namespace {

constexpr std::size_t kEscapeLength = 7;  // _x005F_

/// The character of the escape at that place, if one stands there.
std::optional<unsigned> EscapeAt(std::string_view text, std::size_t place) {
    constexpr int hexadecimal = 16;
    const std::string_view escape = text.substr(place, kEscapeLength);
    if (escape.size() < kEscapeLength || !escape.starts_with("_x") || !escape.ends_with('_')) {
        return std::nullopt;
    }
    unsigned character = 0;
    const char* const end = escape.data() + kEscapeLength - 1;
    const auto read = std::from_chars(escape.data() + 2, end, character, hexadecimal);
    return read.ptr == end ? std::optional(character) : std::nullopt;
}

}  // namespace

std::string WithEscapes(const std::string& text) {
    std::string escaped;
    for (std::size_t place = 0; place < text.size(); ++place) {
        escaped += EscapeAt(text, place) ? std::string("_x005F_") : std::string(1, text[place]);
    }
    return escaped;
}

/// Characters beyond ASCII need no escape, and none of ours makes one.
std::string WithoutEscapes(const std::string& text) {
    constexpr unsigned ascii = 0x80;
    std::string plain;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const auto character = EscapeAt(text, place);
        if (character && *character < ascii) {
            plain += static_cast<char>(*character);
            place += kEscapeLength - 1;
        } else {
            plain += text[place];
        }
    }
    return plain;
}

std::string XlsxText(const pugi::xml_node& item) {
    std::string text;
    for (const pugi::xml_node& part : item.children()) {
        if (LocalName(part.name()) == "t") {
            text += part.text().get();
        } else if (LocalName(part.name()) == "r") {
            text += Child(part, "t").text().get();
        }
    }
    return WithoutEscapes(text);
}

}  // namespace quarnel02
