#pragma once

#include <QAbstractTableModel>
#include <QTableView>
#include <functional>

#include "studies/ShownTable.h"

namespace quarnel02 {

/// A table of a study for a view.
class StudyTableModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    void SetTable(ShownTable table);
    [[nodiscard]] const ShownTable& Table() const { return m_table; }

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

  private:
    [[nodiscard]] const ShownCell& CellAt(const QModelIndex& index) const;

    ShownTable m_table;
};

/// Shows a table of a study. Ctrl+C copies the selected block, Ctrl+Shift+C the whole table with
/// its headings, as tab-separated text with plain figures; a menu offers the same.
class StudyTableView : public QTableView {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StudyTableView)

  public:
    explicit StudyTableView(QWidget* parent = nullptr);

    /// Shows another table. The current row stays where both have one.
    void SetTable(ShownTable table);
    [[nodiscard]] const ShownTable& Table() const { return m_model.Table(); }
    /// The current row; the first one when there is none.
    [[nodiscard]] std::size_t Row() const;

    void CopySelection() const;
    void CopyTable() const;

  signals:
    /// Another row, or another table, has become the current one.
    void RowChanged();
    /// Chosen from the menu.
    void SaveAsked();

  protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

  private:
    void AddCommand(const QString& text, const QKeySequence& key, const QString& name,
                    const std::function<void()>& command);
    void FitColumns();

    StudyTableModel m_model;
};

}  // namespace quarnel02
