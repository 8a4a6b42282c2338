#pragma once

// Internal to jet/.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quarnel02::jet {

/// Half of a pair that stands alone becomes the replacement character.
std::string Utf8Of(std::u16string_view text);

/// Nothing for a text that is not UTF-8.
std::optional<std::u16string> Utf16Of(std::string_view text);

inline constexpr std::size_t kCodeUnit = sizeof(char16_t);  ///< bytes
inline constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";

}  // namespace quarnel02::jet
