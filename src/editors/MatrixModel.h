#pragma once

#include <QAbstractTableModel>

#include "commands/MatrixCells.h"

namespace quarnel02 {

/// The cells as a grid shows them: tasks down, resources across, the mark as check state.
class MatrixModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    explicit MatrixModel(const MatrixCells& cells, QObject* parent = nullptr)
        : QAbstractTableModel(parent), m_cells(cells) {}

    static TaskResource PairAt(const QModelIndex& index);
    [[nodiscard]] QModelIndex IndexOf(TaskResource pair) const;

    /// The cells have been loaded anew; the pair's mark has been changed.
    void Reload();
    void MarkChanged(TaskResource pair);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

  private:
    const MatrixCells& m_cells;
};

}  // namespace quarnel02
