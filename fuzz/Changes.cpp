#include "Changes.h"

#include <cstdint>
#include <utility>

namespace quarnel02::fuzz {

ChangeableFile::ChangeableFile(std::string content) : Content(std::move(content)) {
    constexpr std::size_t reach = 4;
    std::size_t last = 0;
    for (std::size_t i = 0; i < Content.size(); ++i) {
        last = Content[i] != '\0' ? i : last;
        if (i - last <= reach) {
            Places.push_back(i);
        }
    }
}

std::string ChangeableFile::With(std::string_view changes) const {
    constexpr std::size_t change = 4;
    const auto byte = [&](std::size_t at) { return static_cast<std::uint8_t>(changes[at]); };
    std::string content = Content;
    for (std::size_t at = 0; at + change <= changes.size(); at += change) {
        const unsigned which = byte(at) | static_cast<unsigned>(byte(at + 1)) << 8U;
        const std::size_t place = Places[(which & 0x7FFFU) % Places.size()];
        content[place] = changes[at + 2];
        if ((which & 0x8000U) == 0 && place + 1 < content.size()) {
            content[place + 1] = changes[at + 3];
        }
    }
    return content;
}

}  // namespace quarnel02::fuzz
