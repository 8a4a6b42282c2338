#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Takes any bytes as what a user, or somebody else, hands to one part of the program. Whatever it
/// is, the part ends in a result or in a RunTimeError; anything else ends the process, and is a
/// finding.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace quarnel02::fuzz {

/// Small inputs that lead deep into the part, one of every kind.
std::vector<std::string> Seeds();

/// Ends the process unless a promise of the part holds.
void Require(bool holds, std::string_view promise);

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// The text in front of the next `separator`, which goes too; all of it when there is none.
std::string_view TakeUpTo(std::string_view& text, char separator);

}  // namespace quarnel02::fuzz
