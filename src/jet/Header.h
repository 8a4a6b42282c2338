#pragma once

// Internal to jet/: what a file's first page says.

#include <cstddef>
#include <string_view>

#include "jet/Bytes.h"
#include "jet/Format.h"

namespace quarnel02::jet {

struct Header {
    const Format* Layout;  ///< one of those in Format.h
    unsigned CodePage;     ///< of the texts of a Jet 3 file; 0 when it does not say
};

/// Throws Refusal for what is no Access database, for a file of an unknown version and for one that
/// is encrypted or has a password.
Header ReadHeader(Bytes file);

// Places in the first page.
inline constexpr std::size_t kEngineAt = 4;
inline constexpr std::size_t kVersionAt = 0x14;
inline constexpr std::size_t kCodePageAt = 0x3C;
inline constexpr std::size_t kKeyAt = 0x3E;
inline constexpr std::size_t kPasswordAt = 0x42;
inline constexpr std::size_t kCreatedAt = 0x72;
inline constexpr std::size_t kPasswordBytesJet3 = 20;
inline constexpr std::size_t kPasswordBytesJet4 = 40;

}  // namespace quarnel02::jet
