#pragma once

#include <concepts>
#include <string>

namespace quarnel02 {

/// "1 task", "12 tasks".
template <std::integral Count>
std::string Counted(Count count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace quarnel02
