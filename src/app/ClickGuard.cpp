#include "app/ClickGuard.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTimer>

namespace quarnel02 {

ClickGuard::ClickGuard(const QRect& place, QObject* parent) : QObject(parent), m_place(place) {
    QTimer::singleShot(QApplication::doubleClickInterval(), this, &QObject::deleteLater);
    QCoreApplication::instance()->installEventFilter(this);
}

bool ClickGuard::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonRelease:
            return m_place.contains(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
        default:
            return false;
    }
}

}  // namespace quarnel02
