#include "app/BoxFrame.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>

namespace quarnel02 {

BoxFrame::BoxFrame(QWidget* parent) : QFrame(parent) {
    connect(qApp, &QApplication::focusChanged, this, qOverload<>(&QWidget::update));
}

void BoxFrame::Watch(QWidget& inside) {
    inside.installEventFilter(this);
}

bool BoxFrame::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonDblClick) {
        emit DoubleClicked();
        return true;
    }
    return QFrame::eventFilter(watched, event);
}

void BoxFrame::mouseDoubleClickEvent(QMouseEvent* /*event*/) {
    emit DoubleClicked();
}

void BoxFrame::paintEvent(QPaintEvent* /*event*/) {
    const QWidget* focus = QApplication::focusWidget();
    const bool inside = focus != nullptr && isAncestorOf(focus);
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.setPen(palette().color(inside ? QPalette::Highlight : QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace quarnel02
