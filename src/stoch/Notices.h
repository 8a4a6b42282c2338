#pragma once

#include <filesystem>
#include <optional>

#include "stoch/StochRun.h"

namespace quarnel02 {

/// Tells the user, by the status text, that a table was full and its curve ends early; does
/// nothing without a volume.
void NoticeEarlyEnd(StochRun& run, const std::filesystem::path& table, std::optional<float> volume);

/// The same of the table of a resource whose curve ends where more than 4,095 parallel stations
/// would be needed.
void NoticeStationsEnd(StochRun& run, const std::filesystem::path& table,
                       std::optional<float> volume);

/// Tells the user that a resource gets no table, because the lowest volume already needs more.
void NoticeNoTable(StochRun& run, const std::filesystem::path& table);

}  // namespace quarnel02
