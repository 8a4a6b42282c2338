#pragma once

// Internal to jet/.

#include <optional>
#include <vector>

#include "jet/Bytes.h"
#include "jet/Format.h"
#include "jet/TableDefinition.h"

namespace quarnel02::jet {

/// A row taken apart. It holds the number of its columns, values of fixed length, the other values,
/// where these end and start (last first), their number, and a bit per column that is not Null.
class RowFields {
  public:
    /// Throws Damage.
    RowFields(Bytes row, const Format& layout, bool hasVariable);

    /// The bit of the column, which is all that a Yes/No has.
    [[nodiscard]] bool Marked(const StoredColumn& column) const;
    /// The bytes of a value; nothing for Null. `length` is that of a fixed one. Throws Damage.
    [[nodiscard]] std::optional<Bytes> Field(const StoredColumn& column, std::size_t length) const;

  private:
    void FindWideOffsets();
    void FindNarrowOffsets();

    Bytes m_row;
    std::size_t m_numberSize;  ///< of the number of columns
    std::size_t m_columns;     ///< that the row has; later ones were added to the table after it
    std::size_t m_maskAt;      ///< of the bits
    std::vector<std::size_t> m_offsets;  ///< of the values of any length, then of their end
};

}  // namespace quarnel02::jet
