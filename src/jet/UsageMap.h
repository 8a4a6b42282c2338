#pragma once

// Internal to jet/.

#include <cstdint>
#include <vector>

#include "jet/Pages.h"

namespace quarnel02::jet {

/// Numbers of the pages that the usage map at `pointer` marks, ascending; those beyond the end of
/// the file, which a map may reserve, are left out. Throws Damage.
std::vector<std::uint32_t> MarkedPages(const Pages& pages, std::uint32_t pointer);

}  // namespace quarnel02::jet
