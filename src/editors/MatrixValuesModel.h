#pragma once

#include "commands/MatrixValues.h"
#include "widgets/SheetModel.h"

namespace quarnel02 {

/// The figures of the matrix for a sheet: tasks down, resources across.
class MatrixValuesModel : public SheetModel {
    Q_OBJECT

  public:
    /// PairLook of a cell, as a number.
    static constexpr int kLookRole = Qt::UserRole;

    MatrixValuesModel(const MatrixCells& cells, MatrixValues& values, QObject* parent = nullptr)
        : SheetModel(parent), m_cells(cells), m_values(values) {}

    /// The figures, the marks, or what is shown of them have become others.
    void Refresh() { Show(m_values.Rows(), m_values.Columns()); }

    [[nodiscard]] TextBlock CopyBlock(const CellRange& range) const override;
    [[nodiscard]] std::string MissingFor(const BlockEdit& edit) const override;
    Misfits SetBlock(const BlockEdit& edit) override;
    Misfits ClearBlock(std::string_view verb, const CellRange& range) override;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

  signals:
    /// Something was stored; MatrixValues::LastStep says what.
    void Stored();

  protected:
    [[nodiscard]] QString Text(int row, int column) const override;
    [[nodiscard]] QString Heading(int section, Qt::Orientation orientation) const override;

  private:
    [[nodiscard]] const MatrixHeading* HeadingOf(int section, Qt::Orientation orientation) const;
    void Announce(const CellRange& changed);

    const MatrixCells& m_cells;
    MatrixValues& m_values;
};

}  // namespace quarnel02
