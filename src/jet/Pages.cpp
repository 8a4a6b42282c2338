#include "jet/Pages.h"

namespace quarnel02::jet {

namespace {

constexpr std::size_t kPlaceSize = 2;
/// A row that grows again leaves its pointer where it was, so there is hardly more than one.
constexpr int kMostMoves = 16;

}  // namespace

Bytes Pages::Page(std::size_t number) const {
    if (number >= Count()) {
        throw Damage();
    }
    return m_file.Part(number * m_layout->PageSize, m_layout->PageSize);
}

Bytes Pages::PageOf(unsigned type, std::size_t number) const {
    const Bytes page = Page(number);
    if (page.U8(0) != type) {
        throw Damage();
    }
    return page;
}

std::size_t Pages::RowCount(Bytes dataPage) const {
    return dataPage.U16(m_layout->RowCountAt);
}

StoredRow Pages::RowOf(Bytes dataPage, std::size_t row) const {
    if (row >= RowCount(dataPage)) {
        throw Damage();
    }
    const std::size_t places = m_layout->RowCountAt + kPlaceSize;
    const auto place = [&](std::size_t which) { return dataPage.U16(places + kPlaceSize * which); };
    const unsigned start = place(row) & kRowPlaceBits;
    const std::size_t end = row == 0 ? m_layout->PageSize : place(row - 1) & kRowPlaceBits;
    return {.Content = dataPage.Part(start, Before(end, start)),
            .Moved = (place(row) & kRowMoved) != 0,
            .Hidden = (place(row) & kRowHidden) != 0};
}

StoredRow Pages::StoredRowAt(std::uint32_t pointer) const {
    return RowOf(PageOf(kDataPage, pointer >> kRowNumberBits), pointer & kRowNumberMask);
}

Bytes Pages::RowAt(std::uint32_t pointer) const {
    return StoredRowAt(pointer).Content;
}

Bytes Pages::MovedRowAt(std::uint32_t pointer) const {
    for (int moves = 0; moves < kMostMoves; ++moves) {
        const StoredRow row = StoredRowAt(pointer);
        if (!row.Moved) {
            return row.Content;
        }
        if (row.Hidden) {
            break;
        }
        pointer = row.Content.U32(0);
    }
    throw Damage();
}

}  // namespace quarnel02::jet
