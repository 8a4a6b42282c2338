#pragma once

// Internal to jet/.

#include <cstddef>
#include <string>

namespace quarnel02::jet {

/// Lays the fixed key stream over the masked part of a file's first page, or takes it off again.
/// `page` holds at least that part.
void ApplyHeaderMask(std::string& page, bool wide);

inline constexpr std::size_t kMaskedAt = 0x18;
inline constexpr std::size_t kMaskedBytesJet3 = 126;
inline constexpr std::size_t kMaskedBytesJet4 = 128;

}  // namespace quarnel02::jet
