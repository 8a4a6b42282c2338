#pragma once

#include <QStyledItemDelegate>

namespace quarnel02 {

/// Paints the lines of the demand list, "12,500:  25%", as two columns that end under one another.
class DemandListColumns : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

}  // namespace quarnel02
