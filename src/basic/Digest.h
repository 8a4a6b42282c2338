#pragma once

#include <cstdint>
#include <string_view>

namespace quarnel02 {

/// A number that stands for the bytes and numbers added, in their order (FNV-1a, 64 bits). Not for
/// secrets.
class Digest {
  public:
    void Add(std::string_view bytes) {
        for (const char byte : bytes) {
            Add(static_cast<unsigned char>(byte));
        }
    }
    void Add(std::uint64_t number) {
        for (unsigned shift = 0; shift < 64; shift += 8) {
            Add(static_cast<unsigned char>(number >> shift));
        }
    }
    [[nodiscard]] std::uint64_t Result() const { return m_hash; }

  private:
    void Add(unsigned char byte) {
        constexpr std::uint64_t prime = 0x100000001B3;
        m_hash = (m_hash ^ byte) * prime;
    }

    std::uint64_t m_hash = 0xCBF29CE484222325;
};

}  // namespace quarnel02
