#include "widgets/SheetHeader.h"

#include <QPainter>
#include <utility>

namespace quarnel02 {

SheetHeader::SheetHeader(Qt::Orientation orientation, std::function<bool()> mayAct, QWidget* parent)
    : QHeaderView(orientation, parent), m_mayAct(std::move(mayAct)) {
    setSectionsClickable(true);
    setHighlightSections(false);
    setTextElideMode(Qt::ElideRight);
    setSectionResizeMode(orientation == Qt::Horizontal ? Interactive : Fixed);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void SheetHeader::Light(int section) {
    if (section != m_lit) {
        m_lit = section;
        viewport()->update();
    }
}

/// Widening a column selects nothing.
void SheetHeader::mousePressEvent(QMouseEvent* event) {
    const bool widens = cursor().shape() == Qt::SplitHCursor;
    if (widens || m_mayAct()) {
        QHeaderView::mousePressEvent(event);
    }
}

void SheetHeader::paintSection(QPainter* painter, const QRect& place, int section) const {
    if (section != m_lit) {
        painter->save();
        QHeaderView::paintSection(painter, place, section);
        painter->restore();
        return;
    }
    const int margin = 2 * style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this);
    const QRect inside = place.adjusted(margin, 0, -margin, 0);
    const QString text = model()->headerData(section, orientation()).toString();
    painter->save();
    painter->fillRect(place, palette().color(QPalette::Highlight));
    painter->setPen(palette().color(QPalette::HighlightedText));
    painter->drawText(inside, static_cast<int>(defaultAlignment()),
                      fontMetrics().elidedText(text, textElideMode(), inside.width()));
    painter->restore();
}

}  // namespace quarnel02
