#pragma once

// Internal to model/: what marks a file as a model of this program.

#include <cstdint>

namespace quarnel02 {

/// PRAGMA application_id of a model file, "Qn02". Files of the first versions have 0.
inline constexpr std::int64_t kApplicationId = 0x516E3032;

/// PRAGMA user_version of a model file: the newest format that this program reads, and the one it
/// writes. schema.sql says the same.
inline constexpr std::int64_t kFormatVersion = 1;

}  // namespace quarnel02
