#include "jet/LongValue.h"

namespace quarnel02::jet {

namespace {

constexpr std::size_t kHeaderSize = 12;
constexpr std::size_t kPointerAt = 4;
constexpr std::size_t kPointerSize = 4;
constexpr std::uint32_t kInRow = 0x80000000U;
constexpr std::uint32_t kInOnePlace = 0x40000000U;
constexpr std::uint32_t kLengthBits = 0x3FFFFFFFU;

/// Every link brings at least one byte, so the chain ends.
std::string ReadChain(const Pages& pages, std::uint32_t pointer, std::size_t length) {
    std::string value;
    while (value.size() < length) {
        const Bytes link = pages.RowAt(pointer);
        const Bytes part = link.From(kPointerSize);
        if (part.Size() == 0) {
            throw Damage();
        }
        value += part.Text().substr(0, length - value.size());
        pointer = link.U32(0);
    }
    return value;
}

}  // namespace

std::string ReadLongValue(const Pages& pages, Bytes field) {
    if (field.Size() == 0) {
        return {};
    }
    const std::uint32_t mark = field.U32(0);
    const std::size_t length = mark & kLengthBits;
    if (length > kMostLongValue) {
        throw Refusal("holds a text of more than 1 MB. Shorten it in Access.");
    }
    if ((mark & kInRow) != 0) {
        return std::string(field.Part(kHeaderSize, length).Text());
    }
    const std::uint32_t pointer = field.Part(0, kHeaderSize).U32(kPointerAt);
    if ((mark & kInOnePlace) != 0) {
        return std::string(pages.RowAt(pointer).Part(0, length).Text());
    }
    return ReadChain(pages, pointer, length);
}

}  // namespace quarnel02::jet
