#pragma once

// Internal to jet/.

#include <cstdint>
#include <string>
#include <vector>

#include "jet/Bytes.h"
#include "jet/Format.h"

namespace quarnel02::jet {

/// A row as its page holds it.
struct StoredRow {
    Bytes Content;
    bool Moved;   ///< Content is a pointer to it
    bool Hidden;  ///< reached by a pointer only; one that is Moved as well is deleted
};

/// A file as pages.
class Pages {
  public:
    Pages(Bytes file, const Format& layout) : m_file(file), m_layout(&layout) {}

    [[nodiscard]] const Format& Layout() const { return *m_layout; }
    /// Of whole pages.
    [[nodiscard]] std::size_t Count() const { return m_file.Size() / m_layout->PageSize; }

    /// Throws Damage beyond the end of the file.
    [[nodiscard]] Bytes Page(std::size_t number) const;
    /// A page of that type. Throws Damage.
    [[nodiscard]] Bytes PageOf(unsigned type, std::size_t number) const;

    [[nodiscard]] std::size_t RowCount(Bytes dataPage) const;
    [[nodiscard]] StoredRow RowOf(Bytes dataPage, std::size_t row) const;

    /// The row that a pointer names, whatever is said beside it. Throws Damage.
    [[nodiscard]] Bytes RowAt(std::uint32_t pointer) const;
    /// The same, followed through all moves.
    [[nodiscard]] Bytes MovedRowAt(std::uint32_t pointer) const;

  private:
    [[nodiscard]] StoredRow StoredRowAt(std::uint32_t pointer) const;

    Bytes m_file;
    const Format* m_layout;
};

}  // namespace quarnel02::jet
