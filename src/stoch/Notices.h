#pragma once

#include <filesystem>
#include <optional>

#include "stoch/StochRun.h"

namespace quarnel02 {

/// Tells the user, by the status text, that a table was full and its curve ends early; does
/// nothing without a volume.
void NoticeEarlyEnd(StochRun& run, const std::filesystem::path& table, std::optional<float> volume);

}  // namespace quarnel02
