#pragma once

// Internal to jet/.

#include <span>
#include <string>

#include "jet/WrittenPages.h"

namespace quarnel02::jet {

/// A row that marks those pages, ascending. Where they lie too far apart for its own bits, the bits
/// go to a page of their own.
std::string EncodeUsageMap(WrittenPages& pages, std::span<const std::size_t> marked);

/// Page 1, which marks the pages that are free: those beyond the end of the file. Adds a page for
/// them where the file is large.
void WriteFreePages(WrittenPages& pages);

}  // namespace quarnel02::jet
