#pragma once

#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>

#include "widgets/FieldBox.h"

namespace quarnel02 {

/// The editor of a sheet's cells, a text box. It stores nothing; it tells the sheet when its text
/// is to be stored. A cell whose text is cut off shows it as a tool tip.
class SheetDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The box of the cell that is being edited; nullptr without one.
    [[nodiscard]] FieldBox* Box() const { return qobject_cast<FieldBox*>(m_box.data()); }
    [[nodiscard]] QModelIndex Cell() const { return m_cell; }

    [[nodiscard]] QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* /*editor*/, QAbstractItemModel* /*model*/,
                      const QModelIndex& /*index*/) const override {}
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  signals:
    void Leaving(int key);  ///< by Enter, Tab or an arrow, Backtab for the way back
    void Cancelled();
    void LostFocus();  ///< to another control of the window

  protected:
    bool eventFilter(QObject* editor, QEvent* event) override;

  private:
    bool FilterKey(const QKeyEvent& event);

    mutable QPointer<QWidget> m_box;  ///< no FieldBox any more while it is destroyed
    mutable QPersistentModelIndex m_cell;
};

}  // namespace quarnel02
