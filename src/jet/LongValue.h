#pragma once

// Internal to jet/.

#include <string>

#include "jet/Pages.h"

namespace quarnel02::jet {

inline constexpr std::size_t kMostLongValue = 1024UL * 1024UL;

/// The bytes of a Memo, of which the row holds only `field`: its length and either the bytes
/// themselves or a pointer to one row or to a chain of them. Throws Damage; Refusal for more than
/// kMostLongValue.
std::string ReadLongValue(const Pages& pages, Bytes field);

}  // namespace quarnel02::jet
