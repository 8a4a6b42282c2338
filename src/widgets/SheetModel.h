#pragma once

#include <QAbstractTableModel>
#include <cstddef>
#include <string>
#include <string_view>

#include "sheets/RecordCells.h"

namespace quarnel02 {

/// A block of texts on its way into a sheet, its top left cell counted from 0.
struct BlockEdit {
    std::string_view Verb;  ///< what is done: "Edit" for a typed cell, "Paste", "Fill"
    std::size_t Row = 0;
    std::size_t Column = 0;
    TextBlock Block;
};

/// Cells of a model as texts that can be typed over, and what a SheetView asks of them. Whatever is
/// stored is stored at once and whole, or not at all. Stores throw what the store reports.
class SheetModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    /// The texts of a block of cells; what lies outside of the sheet is left out.
    [[nodiscard]] virtual TextBlock CopyBlock(const CellRange& range) const = 0;

    /// What has to be added to the sheet before the block fits, such as "12 tasks"; "" for nothing.
    [[nodiscard]] virtual std::string MissingFor(const BlockEdit& edit) const = 0;

    /// Sets the cells as if the block were typed there, and adds what is missing. Nothing has been
    /// stored when any cell does not fit.
    virtual Misfits SetBlock(const BlockEdit& edit) = 0;

    /// Empties the cells; `verb` is "Clear" or "Cut".
    virtual Misfits ClearBlock(std::string_view verb, const CellRange& range) = 0;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const final;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const final;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// The text, to show and to edit.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// The heading, to show and as the tool tip.
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

  protected:
    /// What a cell shows. Cells outside of the sheet, asked for while it becomes smaller, show "".
    [[nodiscard]] virtual QString Text(int row, int column) const = 0;
    [[nodiscard]] virtual QString Heading(int section, Qt::Orientation orientation) const = 0;

    /// Has the views show other contents with so many rows and columns. Widths, and the current
    /// cell if there still is one, stay.
    void Show(int rows, int columns);

  private:
    void Resize(int rows, int columns);

    int m_rows = 0;
    int m_columns = 0;
};

}  // namespace quarnel02
