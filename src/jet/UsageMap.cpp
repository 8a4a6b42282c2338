#include "jet/UsageMap.h"

#include "jet/Format.h"

namespace quarnel02::jet {

namespace {

constexpr std::size_t kReferenceSize = 4;

enum MapKind : unsigned { Own = 0, Referring = 1 };

void AddMarked(Bytes bitmap, std::size_t first, std::size_t pageCount,
               std::vector<std::uint32_t>& marked) {
    for (std::size_t i = 0; i < bitmap.Size(); ++i) {
        const unsigned byte = bitmap.U8(i);
        for (unsigned bit = 0; byte >> bit != 0; ++bit) {
            const std::size_t page = first + i * kBitsOfByte + bit;
            if ((byte >> bit & 1U) != 0 && page < pageCount) {
                marked.push_back(static_cast<std::uint32_t>(page));
            }
        }
    }
}

void AddReferred(const Pages& pages, Bytes map, std::vector<std::uint32_t>& marked) {
    const std::size_t pages_each = (pages.Layout().PageSize - kUsageHeader) * kBitsOfByte;
    const std::size_t references = (map.Size() - 1) / kReferenceSize;
    for (std::size_t i = 0; i < references && i * pages_each < pages.Count(); ++i) {
        const std::uint32_t page = map.U32(1 + i * kReferenceSize);
        if (page != 0) {
            AddMarked(pages.PageOf(kUsagePage, page).From(kUsageHeader), i * pages_each,
                      pages.Count(), marked);
        }
    }
}

}  // namespace

std::vector<std::uint32_t> MarkedPages(const Pages& pages, std::uint32_t pointer) {
    const Bytes map = pages.RowAt(pointer);
    std::vector<std::uint32_t> marked;
    switch (map.U8(0)) {
        case Own:
            AddMarked(map.From(kBitmapAt), map.U32(1), pages.Count(), marked);
            break;
        case Referring:
            AddReferred(pages, map, marked);
            break;
        default:
            throw Damage();
    }
    return marked;
}

}  // namespace quarnel02::jet
