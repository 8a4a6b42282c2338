#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace quarnel02 {

/// By which a file is known to be the one that was seen before, with what it held then.
struct FileMark {
    std::uint64_t Device = 0;
    std::uint64_t Inode = 0;
    std::int64_t Size = 0;         ///< bytes
    std::int64_t Nanoseconds = 0;  ///< of the last change, since 1970
    bool operator==(const FileMark&) const = default;
};

/// Nothing when there is no file at that place, or when it cannot be looked at. Follows links.
std::optional<FileMark> MarkOf(const std::filesystem::path& file) noexcept;

}  // namespace quarnel02
