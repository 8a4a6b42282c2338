#include "jet/WriteUsageMap.h"

#include "jet/Format.h"
#include "jet/Little.h"

namespace quarnel02::jet {

namespace {

constexpr std::size_t kRowBytes = 69;
constexpr std::size_t kOwnBits = (kRowBytes - kBitmapAt) * kBitsOfByte;
constexpr char kRefersToPages = 1;
constexpr std::size_t kPageBits = (kJet4.PageSize - kUsageHeader) * kBitsOfByte;
constexpr std::size_t kFreePage = 1;

void SetBit(std::string& bytes, std::size_t bit) {
    char& byte = bytes[kBitmapAt + bit / kBitsOfByte];
    byte = static_cast<char>(static_cast<unsigned char>(byte) | 1U << bit % kBitsOfByte);
}

/// A page of bits; returns the map that refers to it. A written file has no pages beyond its reach.
std::string PageOfBits(WrittenPages& pages, std::size_t& page) {
    constexpr unsigned mark = kUsagePage | 0x100U;
    page = pages.Add();
    pages.PutNumber(page, 0, mark, 2);
    std::string map(kRowBytes, '\0');
    map[0] = kRefersToPages;
    PutNumber(map, 1, page, sizeof(std::uint32_t));
    return map;
}

}  // namespace

std::string EncodeUsageMap(WrittenPages& pages, std::span<const std::size_t> marked) {
    std::string map(kRowBytes, '\0');
    if (marked.empty()) {
        return map;
    }
    const std::size_t first = marked.front() - marked.front() % kBitsOfByte;
    if (marked.back() - first < kOwnBits) {
        PutNumber(map, 1, first, sizeof(std::uint32_t));
        for (const std::size_t page : marked) {
            SetBit(map, page - first);
        }
        return map;
    }
    std::size_t holder = 0;
    map = PageOfBits(pages, holder);
    for (const std::size_t number : marked) {
        pages.SetBit(holder, kUsageHeader, number);
    }
    return map;
}

void WriteFreePages(WrittenPages& pages) {
    std::string map(kRowBytes, '\0');
    if (pages.Count() <= kOwnBits) {
        for (std::size_t page = pages.Count(); page < kOwnBits; ++page) {
            SetBit(map, page);
        }
    } else {
        std::size_t holder = 0;
        map = PageOfBits(pages, holder);
        for (std::size_t number = pages.Count(); number < kPageBits; ++number) {
            pages.SetBit(holder, kUsageHeader, number);
        }
    }
    pages.StartRows(kFreePage, kFreePage);
    pages.AddRow(kFreePage, map);
    pages.AddRow(kFreePage, std::string(kRowBytes, '\0'));
}

}  // namespace quarnel02::jet
