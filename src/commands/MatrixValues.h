#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "basic/Immovable.h"
#include "commands/MatrixCells.h"
#include "sheets/MatrixSheet.h"

namespace quarnel02 {

/// How a pair stands in the matrix, with the marks that are turned by hand and not yet carried out.
enum class PairLook {
    Absent,   ///< the model has no such task or resource
    Empty,    ///< no row
    Marked,   ///< marked, and no usable time
    Cannot,   ///< a row without a time above 0: the resource cannot do the task
    Can,      ///< a row with a time
    Leaving,  ///< a row whose mark was taken off
};

/// The figures of the matrix as a sheet: row r is task r + 1, column c is resource c + 1. Whatever
/// is set is stored at once and settles the marks of its pairs. Stores throw what the store
/// reports; nothing is then changed.
class MatrixValues : Immovable {
  public:
    /// `cells` has the size of the grid, the headings and the marks, and must be loaded.
    MatrixValues(MainForm& form, MatrixCells& cells) : m_form(form), m_cells(cells) {}

    /// Reads the figures.
    void Load();

    [[nodiscard]] int Rows() const { return m_cells.Tasks(); }
    [[nodiscard]] int Columns() const { return m_cells.Resources(); }
    /// What cells show and take; all three figures at first.
    [[nodiscard]] ShownFigure Figure() const { return m_figure; }
    void SetFigure(ShownFigure figure) { m_figure = figure; }

    [[nodiscard]] PairLook Look(int row, int column) const;
    [[nodiscard]] std::string Text(int row, int column) const;
    [[nodiscard]] TextBlock Texts(const CellRange& range) const;
    /// "4 cells: 54 s in all, mean 13.5"; "" for less than two times.
    [[nodiscard]] std::string TimesIn(const CellRange& range) const;

    /// What was stored, as an undo step has it: "Paste 480 cells", "Edit Bench, task 5".
    [[nodiscard]] const std::string& LastStep() const { return m_lastStep; }

    /// What the model lacks for the block: "12 tasks and 1 resource"; "" for nothing.
    [[nodiscard]] std::string MissingFor(std::size_t row, std::size_t column,
                                         const TextBlock& block) const;
    /// Sets a cell to a typed text.
    Misfits Type(std::size_t row, std::size_t column, const std::string& text);
    /// Sets the cells as if the block were typed there, all or none, and adds the tasks and
    /// resources that it lacks. `verb` is "Paste" or "Fill".
    Misfits Set(std::string_view verb, std::size_t row, std::size_t column, const TextBlock& block);
    /// Removes the pairs in the range, and their marks. `verb` is "Clear" or "Cut".
    void Clear(std::string_view verb, const CellRange& range);

  private:
    void Take(InputTables tables);
    void Store(CellEdit& edit, std::string step);
    /// Has the marks of the block's pairs follow what was stored. `figure` is what it was set as.
    void Settle(ShownFigure figure, std::size_t row, std::size_t column, const TextBlock& block);

    MainForm& m_form;
    MatrixCells& m_cells;
    ShownFigure m_figure = ShownFigure::AllThree;
    InputTables m_tables;
    std::optional<MatrixSheet> m_sheet;  ///< of m_tables
    std::string m_lastStep;
};

}  // namespace quarnel02
