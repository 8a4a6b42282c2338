#pragma once

// Internal to model/: a small table in memory.

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "model/Rows.h"
#include "model/Selection.h"

namespace quarnel02 {

/// A selection with its columns found in a table's image.
struct Plan {
    struct Range {
        std::size_t Column;
        std::size_t LowLiteral;
        std::size_t HighLiteral;
    };
    std::vector<std::size_t> Columns;
    std::vector<Range> Ranges;
    std::vector<std::size_t> Order;
};

/// All rows of a table as they were when the image was taken. Answers simple selections as the
/// store would, without running them there: worth it for a table that is asked thousands of times
/// without being changed.
class TableImage {
  public:
    /// `columns` names the columns of `rows`, which stand in the order in which they were added.
    TableImage(std::vector<std::string> columns, std::shared_ptr<Rows> rows);

    /// The selection made ready for this table; nothing when a column is unknown, or holds
    /// something else than numbers where numbers are to be compared.
    [[nodiscard]] std::unique_ptr<Plan> Prepare(const Selection& selection) const;

    /// Rows of the plan under the given numbers.
    std::shared_ptr<Rows> Select(const Plan& plan, const std::vector<Value>& literals);

  private:
    using RowNumbers = std::vector<std::uint32_t>;

    [[nodiscard]] const Value& At(std::uint32_t row, std::size_t column) const {
        return m_rows->Values[row * m_columns.size() + column];
    }
    [[nodiscard]] bool ColumnIndex(const std::string& name, std::size_t& column) const;
    [[nodiscard]] bool AllNumbers(std::size_t column) const;
    const RowNumbers& Candidates(const Plan& plan, const std::vector<Value>& literals);
    const RowNumbers& RowsWith(std::size_t column, double value);
    void Sort(const Plan& plan);

    std::vector<std::string> m_columns;
    std::shared_ptr<Rows> m_rows;
    RowNumbers m_all;
    RowNumbers m_found;  ///< scratch
    std::unordered_map<std::size_t, std::unordered_map<double, RowNumbers>> m_index;
};

}  // namespace quarnel02
