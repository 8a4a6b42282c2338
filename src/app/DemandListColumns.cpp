#include "app/DemandListColumns.h"

#include <QApplication>
#include <QPainter>

namespace quarnel02 {

/// The style paints the line without its text; volume and probability end at 48 and 92 % of it.
void DemandListColumns::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    constexpr double volume_end = 0.48;
    constexpr double probability_end = 0.92;
    QStyleOptionViewItem line = option;
    initStyleOption(&line, index);
    const QString volume = line.text.section(QStringLiteral(":  "), 0, 0);
    const QString probability = line.text.section(QStringLiteral(":  "), 1);
    line.text.clear();
    const QStyle* style = line.widget == nullptr ? QApplication::style() : line.widget->style();
    style->drawControl(QStyle::CE_ItemViewItem, &line, painter, line.widget);

    const bool chosen = line.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setFont(line.font);
    painter->setPen(line.palette.color(
        line.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive,
        chosen ? QPalette::HighlightedText : QPalette::Text));
    const auto print = [&](const QString& text, double end) {
        QRect cell = line.rect;
        cell.setRight(line.rect.left() + static_cast<int>(end * line.rect.width()));
        painter->drawText(cell, Qt::AlignRight | Qt::AlignVCenter, text);
    };
    print(volume, volume_end);
    print(probability, probability_end);
    painter->restore();
}

}  // namespace quarnel02
