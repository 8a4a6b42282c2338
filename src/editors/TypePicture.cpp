#include "editors/TypePicture.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "widgets/HeldKeys.h"
#include "widgets/PicturePainter.h"

namespace quarnel02 {

TypePicture::TypePicture(QWidget* parent) : QWidget(parent) {
    WatchKeys();
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
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

void TypePicture::keyPressEvent(QKeyEvent* event) {
    const bool modified =
        (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    if (IsEnter(*event)) {
        if (!IsRepeated(*event)) {
            emit Entered();
        }
    } else if (!modified && (event->key() == Qt::Key_Right || event->key() == Qt::Key_Down)) {
        emit Stepped(1);
    } else if (!modified && (event->key() == Qt::Key_Left || event->key() == Qt::Key_Up)) {
        emit Stepped(-1);
    } else if (!modified && !event->text().isEmpty() && event->text().front().isLetterOrNumber()) {
        emit Typed(event->text());
    } else {
        QWidget::keyPressEvent(event);
    }
}

void TypePicture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double frame = hasFocus() ? 3 : 1;
    painter.setPen(QPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid), frame));
    painter.setBrush(Qt::white);
    const double half = frame / 2;
    painter.drawRect(QRectF(rect()).adjusted(half, half, -half, -half));
    if (!m_type) {
        return;
    }
    const int edge = std::min(width(), height());
    const double margin = edge >= 32 ? edge / 16.0 : 0;
    painter.translate(margin, margin);
    PaintFigure(painter, IconFigure{0, 0, edge - 2 * margin, *m_type});
}

}  // namespace quarnel02
