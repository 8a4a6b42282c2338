#include "editors/TypePicture.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "widgets/PicturePainter.h"

namespace quarnel02 {

TypePicture::TypePicture(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize TypePicture::sizeHint() const {
    constexpr int lines = 6;
    return QSize(lines, lines) * fontMetrics().lineSpacing();
}

void TypePicture::SetPicture(std::optional<ResourceType> type) {
    m_type = type;
    update();
}

bool TypePicture::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || toolTip().isEmpty()) {
        return QWidget::event(event);
    }
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       QStringLiteral("<p>%1</p>").arg(toolTip().toHtmlEscaped()), this);
    return true;
}

void TypePicture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(Qt::white);
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    if (!m_type) {
        return;
    }
    const int edge = std::min(width(), height());
    const double margin = edge >= 32 ? edge / 16.0 : 0;
    painter.translate(margin, margin);
    PaintFigure(painter, IconFigure{0, 0, edge - 2 * margin, *m_type});
}

}  // namespace quarnel02
