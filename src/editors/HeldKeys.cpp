#include "editors/HeldKeys.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace quarnel02 {

bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

HeldKeys::HeldKeys() {
    QCoreApplication::instance()->installEventFilter(this);
}

bool HeldKeys::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    const auto& key = static_cast<const QKeyEvent&>(*event);
    return key.isAutoRepeat() && (IsEnter(key) || key.key() == Qt::Key_Escape);
}

}  // namespace quarnel02
