#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "sheets/RecordCells.h"

namespace quarnel02 {

/// What the cells of the matrix sheet show. AllThree reads "12.5 | 3 | 400".
enum class ShownFigure { Time, Tool, ToolCost, AllThree };

/// What the matrix holds of a pair.
enum class PairState {
    Missing,  ///< no row
    Cannot,   ///< a row without a time above 0: the resource cannot do the task
    Can
};

/// Where the first matrix row of each pair stands, by task number and resource number.
class PairPlaces {
  public:
    explicit PairPlaces(const TableRows& matrix);

    [[nodiscard]] std::optional<std::size_t> Find(std::int64_t task, std::int64_t resource) const;

  private:
    std::map<std::pair<std::int64_t, std::int64_t>, std::size_t> m_places;
};

/// The matrix sheet: row r is task r + 1, column c is resource c + 1, each counted from 0. It reads
/// the tables that it was made of, which must outlive it unchanged.
class MatrixSheet {
  public:
    explicit MatrixSheet(const InputTables& tables) : m_tables(tables), m_places(tables.Matrix) {}

    /// Rows and columns: as many as the model has tasks and resources.
    [[nodiscard]] std::size_t Rows() const { return m_tables.Tasks.size(); }
    [[nodiscard]] std::size_t Columns() const { return m_tables.Resources.size(); }

    [[nodiscard]] PairState State(std::size_t row, std::size_t column) const;
    /// "" for a pair without a row, and for a figure that its row lacks.
    [[nodiscard]] std::string Text(std::size_t row, std::size_t column, ShownFigure figure) const;
    /// The texts of a block of cells; what lies outside of the sheet is left out.
    [[nodiscard]] TextBlock Texts(const CellRange& range, ShownFigure figure) const;

    /// The pairs of a block that can be done, and their task times added up.
    struct TimeSum {
        std::size_t Pairs = 0;
        double Seconds = 0;
    };
    [[nodiscard]] TimeSum TimesIn(const CellRange& range) const;

  private:
    [[nodiscard]] const InputRow* RowOf(std::size_t row, std::size_t column) const;

    const InputTables& m_tables;
    PairPlaces m_places;
};

/// Sets the cells from `row` and `column` on as if the block were typed there, all or none.
/// - A figure typed where no pair is makes the pair, its other figures being 0.
/// - Of "12.5 | 3 | 400" the parts that are empty or missing keep what stands.
/// - An empty cell removes the pair, in Tool and ToolCost it keeps it as it is.
/// - Cells outside of the sheet, and those of numbers that no task or resource bears, do not fit
///   unless they are blank; add the missing records first (MissingForMatrix, AddRecords).
CellEdit SetMatrixCells(InputTables tables, ShownFigure figure, std::size_t row, std::size_t column,
                        const TextBlock& block);

/// Removes the pairs in the range; Cells counts them.
CellEdit ClearMatrixCells(InputTables tables, const CellRange& range);

/// The tasks and resources that the model lacks for a block set at `row` and `column`; blank rows
/// and columns at its end need none.
struct MissingPairs {
    std::size_t Tasks = 0;
    std::size_t Resources = 0;
};
MissingPairs MissingForMatrix(const InputTables& tables, std::size_t row, std::size_t column,
                              const TextBlock& block);

}  // namespace quarnel02
