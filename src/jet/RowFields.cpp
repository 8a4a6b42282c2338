#include "jet/RowFields.h"

namespace quarnel02::jet {

namespace {

constexpr std::size_t kMostVariable = 255;
constexpr std::size_t kJump = 256;  ///< what a byte cannot count to

}  // namespace

RowFields::RowFields(Bytes row, const Format& layout, bool hasVariable)
    : m_row(row),
      m_numberSize(layout.Wide ? 2 : 1),
      m_columns(layout.Wide ? row.U16(0) : row.U8(0)),
      m_maskAt(Before(row.Size(), (m_columns + kBitsOfByte - 1) / kBitsOfByte)) {
    if (hasVariable && layout.Wide) {
        FindWideOffsets();
    } else if (hasVariable) {
        FindNarrowOffsets();
    }
}

void RowFields::FindWideOffsets() {
    constexpr std::size_t entry = 2;
    std::size_t at = Before(m_maskAt, entry);
    const std::size_t count = m_row.U16(at);
    if (count > kMostVariable) {
        throw Damage();
    }
    for (std::size_t i = 0; i <= count; ++i) {
        at = Before(at, entry);
        m_offsets.push_back(m_row.U16(at));
    }
}

void RowFields::FindNarrowOffsets() {
    const std::size_t count_at = Before(m_maskAt, 1);
    const std::size_t count = m_row.U8(count_at);
    const std::size_t jumps_room = (m_row.Size() - 1) / kJump;
    const std::size_t offsets_end = Before(count_at, jumps_room);
    // The room for jumps goes by the whole row, so its last one may stand for nothing.
    const std::size_t data = Before(offsets_end, count + 1);
    const std::size_t jumps = jumps_room - (data / kJump < jumps_room ? 1 : 0);
    std::size_t jumped = 0;
    for (std::size_t i = 0; i <= count; ++i) {
        while (jumped < jumps && m_row.U8(Before(count_at, jumped + 1)) == i) {
            ++jumped;
        }
        m_offsets.push_back(m_row.U8(Before(offsets_end, i + 1)) + jumped * kJump);
    }
}

bool RowFields::Marked(const StoredColumn& column) const {
    if (column.Number >= m_columns) {
        return false;
    }
    const unsigned bits = m_row.U8(m_maskAt + column.Number / kBitsOfByte);
    return (bits >> column.Number % kBitsOfByte & 1U) != 0;
}

std::optional<Bytes> RowFields::Field(const StoredColumn& column, std::size_t length) const {
    if (!Marked(column)) {
        return {};
    }
    if (column.Fixed) {
        return m_row.Part(0, m_maskAt).Part(m_numberSize + column.FixedAt, length);
    }
    if (column.VariableIndex + 1 >= m_offsets.size()) {
        throw Damage();
    }
    const std::size_t start = m_offsets[column.VariableIndex];
    const std::size_t end = m_offsets[column.VariableIndex + 1];
    if (start < m_numberSize) {
        throw Damage();
    }
    return m_row.Part(0, m_maskAt).Part(start, Before(end, start));
}

}  // namespace quarnel02::jet
