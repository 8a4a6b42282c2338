#include "Target.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace quarnel02::fuzz {

void Require(bool holds, std::string_view promise) {
    if (!holds) {
        std::cerr << "Broken promise: " << promise << std::endl;
        std::abort();
    }
}

std::string_view TakeUpTo(std::string_view& text, char separator) {
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return taken;
}

}  // namespace quarnel02::fuzz
