#include "widgets/SheetHeader.h"

#include <QPainter>
#include <QStyleOptionHeader>
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

void SheetHeader::PaintFace(QPainter& painter, const QRect& place, int section) const {
    if (section == m_lit) {
        painter.fillRect(place, palette().color(QPalette::Highlight));
        return;
    }
    QStyleOptionHeader face;
    initStyleOption(&face);
    face.rect = place;
    face.section = section;
    style()->drawControl(QStyle::CE_HeaderSection, &face, &painter, this);
}

/// The style cuts long names off without a sign, and those of two lines in the wrong place.
void SheetHeader::paintSection(QPainter* painter, const QRect& place, int section) const {
    const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this);
    const QRect inside = place.adjusted(margin, 0, -margin, 0);
    QStringList lines =
        model()->headerData(section, orientation()).toString().split(QLatin1Char('\n'));
    for (QString& line : lines) {
        line = fontMetrics().elidedText(line, textElideMode(), inside.width());
    }
    painter->save();
    PaintFace(*painter, place, section);
    painter->setPen(
        palette().color(section == m_lit ? QPalette::HighlightedText : QPalette::ButtonText));
    painter->drawText(inside, static_cast<int>(defaultAlignment()), lines.join(QLatin1Char('\n')));
    painter->restore();
}

}  // namespace quarnel02
