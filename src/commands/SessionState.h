#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace quarnel02 {

/// What one run of the program leaves on the disk for the next.
struct SessionState {
    /// InputDigest of the working copy when it was last loaded or saved; none when no file is known
    /// to hold its contents.
    std::optional<std::uint64_t> Saved;
    bool Orderly = false;    ///< the program was ended by its Exit command
    bool OfferKept = false;  ///< kept work has not been offered to the user yet
};

/// The state in `file`; none when there is no such file. A damaged file gives a state of which
/// nothing is known and which did not end orderly. Never throws.
std::optional<SessionState> ReadSessionState(const std::filesystem::path& file) noexcept;

/// Replaces the file, whole or not at all. Throws FileAccess or FileNotFound.
void WriteSessionState(const std::filesystem::path& file, const SessionState& state);

}  // namespace quarnel02
