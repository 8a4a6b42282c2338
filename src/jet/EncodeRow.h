#pragma once

// Internal to jet/.

#include <span>
#include <string>

#include "jet/Value.h"
#include "jet/WrittenColumn.h"

namespace quarnel02::jet {

/// Rows of one table as its pages hold them.
class RowEncoder {
  public:
    /// `compress`: texts in one byte a character where that does.
    RowEncoder(std::string_view table, std::span<const WrittenColumn> columns, bool compress)
        : m_table(table), m_columns(columns), m_layout(columns), m_compress(compress) {}

    /// Counts the rows for its errors. Throws RunTimeError as WriteDatabase does.
    std::string Encode(const Row& row);

  private:
    [[nodiscard]] std::string Field(const WrittenColumn& column, const Value& value) const;
    void AppendVariable(std::string& bytes, const Row& row) const;
    [[nodiscard]] std::string Mask(const Row& row) const;

    std::string m_table;
    std::span<const WrittenColumn> m_columns;
    RowLayout m_layout;
    bool m_compress;
    std::size_t m_count = 0;  ///< rows so far
};

}  // namespace quarnel02::jet
