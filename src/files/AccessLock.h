#pragma once

// Internal to files/: the lock files of Access.

#include <filesystem>
#include <string_view>

namespace quarnel02 {

/// Throws DatabaseLocked when a lock file stands beside the Access database: "line.ldb", or
/// "line.laccdb" of later versions, which is there as long as somebody has the database open, and
/// stays when Access was killed.
void RequireNotOpenInAccess(const std::filesystem::path& file, std::string_view name);

}  // namespace quarnel02
