#include "jet/HeaderMask.h"

#include <array>
#include <numeric>
#include <utility>

namespace quarnel02::jet {

namespace {

/// The key stream of the RC4 cipher.
class KeyStream {
  public:
    template <std::size_t size>
    explicit KeyStream(const std::array<unsigned char, size>& key) {
        std::iota(m_state.begin(), m_state.end(), static_cast<unsigned char>(0));
        unsigned char other = 0;
        for (std::size_t i = 0; i < m_state.size(); ++i) {
            other = static_cast<unsigned char>(other + m_state[i] + key[i % size]);
            std::swap(m_state[i], m_state[other]);
        }
    }

    unsigned char Next() {
        ++m_at;
        m_other = static_cast<unsigned char>(m_other + m_state[m_at]);
        std::swap(m_state[m_at], m_state[m_other]);
        return m_state[static_cast<unsigned char>(m_state[m_at] + m_state[m_other])];
    }

  private:
    std::array<unsigned char, 256> m_state{};
    unsigned char m_at = 0;
    unsigned char m_other = 0;
};

}  // namespace

void ApplyHeaderMask(std::string& page, bool wide) {
    KeyStream stream(std::array<unsigned char, 4>{0xC7, 0xDA, 0x39, 0x6B});
    const std::size_t size = wide ? kMaskedBytesJet4 : kMaskedBytesJet3;
    for (std::size_t i = 0; i < size; ++i) {
        char& byte = page.at(kMaskedAt + i);
        byte = static_cast<char>(static_cast<unsigned char>(byte) ^ stream.Next());
    }
}

}  // namespace quarnel02::jet
