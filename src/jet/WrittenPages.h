#pragma once

// Internal to jet/.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "jet/Format.h"

namespace quarnel02::jet {

/// The pages of a Jet 4 file that is being written.
class WrittenPages {
  public:
    /// Starts with so many empty pages.
    explicit WrittenPages(std::size_t count) : m_bytes(count * kJet4.PageSize, '\0') {}

    [[nodiscard]] std::size_t Count() const { return m_bytes.size() / kJet4.PageSize; }
    [[nodiscard]] std::string& Bytes() { return m_bytes; }

    /// An empty page. Throws RunTimeError (SubscriptOutOfRange) where the file would be too large.
    std::size_t Add();
    /// `content` is at most a page.
    void Put(std::size_t page, std::string_view content);
    void PutNumber(std::size_t page, std::size_t at, std::uint64_t number, std::size_t size);
    void SetBit(std::size_t page, std::size_t at, std::size_t bit);

    /// Makes an empty page one of rows, which belong to the table defined on page `owner`.
    void StartRows(std::size_t page, std::size_t owner);
    [[nodiscard]] bool HasRoom(std::size_t page, std::size_t rowSize) const;
    /// There is room. Returns the pointer to the row.
    std::uint32_t AddRow(std::size_t page, std::string_view row);

  private:
    [[nodiscard]] std::size_t Number16(std::size_t page, std::size_t at) const;

    std::string m_bytes;
};

}  // namespace quarnel02::jet
