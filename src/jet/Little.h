#pragma once

// Internal to jet/: numbers as a file holds them, lowest byte first.

#include <cstddef>
#include <cstdint>
#include <string>

namespace quarnel02::jet {

inline void AppendNumber(std::string& bytes, std::uint64_t number, std::size_t size) {
    constexpr unsigned byte_bits = 8;
    for (std::size_t i = 0; i < size; ++i) {
        bytes += static_cast<char>(static_cast<unsigned char>(number));
        number >>= byte_bits;
    }
}

/// `bytes` reaches that far.
inline void PutNumber(std::string& bytes, std::size_t at, std::uint64_t number, std::size_t size) {
    constexpr unsigned byte_bits = 8;
    for (std::size_t i = 0; i < size; ++i) {
        bytes[at + i] = static_cast<char>(static_cast<unsigned char>(number));
        number >>= byte_bits;
    }
}

}  // namespace quarnel02::jet
