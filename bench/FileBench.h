#pragma once

#include <filesystem>

namespace quarnel02::bench {

/// Prints how long a model of 50 tasks and 25 resources with all its 31,875 pathways takes from a
/// file of either format into the working copy, and back.
void TimeModelFiles(const std::filesystem::path& directory, int runs);

}  // namespace quarnel02::bench
