#pragma once

// Internal to jet/.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "jet/Damage.h"

namespace quarnel02::jet {

/// A stretch of the file, of which nothing is trusted. Numbers are stored lowest byte first.
/// Whatever is asked beyond its end throws Damage.
class Bytes {
  public:
    Bytes() = default;
    explicit Bytes(std::string_view bytes) : m_data(bytes.data()), m_size(bytes.size()) {}

    [[nodiscard]] std::size_t Size() const { return m_size; }
    [[nodiscard]] std::string_view Text() const { return {m_data, m_size}; }

    [[nodiscard]] Bytes Part(std::size_t at, std::size_t length) const {
        if (at > m_size || length > m_size - at) {
            throw Damage();
        }
        return Bytes(Text().substr(at, length));
    }
    [[nodiscard]] Bytes From(std::size_t at) const {
        return Part(at, at > m_size ? 0 : m_size - at);
    }

    [[nodiscard]] std::uint8_t U8(std::size_t at) const { return Number<std::uint8_t>(at); }
    [[nodiscard]] std::uint16_t U16(std::size_t at) const { return Number<std::uint16_t>(at); }
    [[nodiscard]] std::uint32_t U32(std::size_t at) const { return Number<std::uint32_t>(at); }
    [[nodiscard]] std::uint64_t U64(std::size_t at) const { return Number<std::uint64_t>(at); }

  private:
    template <class Unsigned>
    [[nodiscard]] Unsigned Number(std::size_t at) const {
        const std::string_view bytes = Part(at, sizeof(Unsigned)).Text();
        std::uint64_t number = 0;
        for (std::size_t i = sizeof(Unsigned); i-- > 0;) {
            number = number << 8U | static_cast<std::uint8_t>(bytes[i]);
        }
        return static_cast<Unsigned>(number);
    }

    const char* m_data = nullptr;
    std::size_t m_size = 0;
};

/// Less than `from`, counted from the end: what stands before `size` bytes there. Throws Damage.
[[nodiscard]] inline std::size_t Before(std::size_t from, std::size_t size) {
    if (size > from) {
        throw Damage();
    }
    return from - size;
}

}  // namespace quarnel02::jet
