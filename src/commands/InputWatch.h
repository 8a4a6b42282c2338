#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace quarnel02 {

/// The InputDigest of a model that may be asked for after every event: it is worked out anew only
/// when the file may have been written since.
class InputWatch {
  public:
    explicit InputWatch(std::filesystem::path model);

    /// Throws what the store reports, or std::filesystem::filesystem_error. Not to be called inside
    /// a transaction on the model.
    std::uint64_t Digest();

  private:
    struct Stamp {
        std::filesystem::file_time_type Time;
        std::uintmax_t Size = 0;
        bool operator==(const Stamp&) const = default;
    };
    [[nodiscard]] Stamp StampNow() const;

    std::filesystem::path m_model;
    std::optional<std::uint64_t> m_digest;
    Stamp m_stamp;
    bool m_settled = false;  ///< a later write would have given the file another stamp
};

}  // namespace quarnel02
