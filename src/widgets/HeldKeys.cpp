#include "widgets/HeldKeys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>

namespace quarnel02 {

namespace {

/// Remembers when a key was released last, in whatever window.
class KeyWatch : public QObject {
  public:
    using QObject::QObject;

    [[nodiscard]] quint64 Released() const { return m_released; }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::KeyRelease) {
            m_released = static_cast<const QKeyEvent*>(event)->timestamp();
        }
        return false;
    }

  private:
    quint64 m_released = 0;
};

QPointer<KeyWatch>& Watch() {
    static QPointer<KeyWatch> watch;
    return watch;
}

}  // namespace

void WatchKeys() {
    if (Watch() == nullptr) {
        Watch() = new KeyWatch(QCoreApplication::instance());
        QCoreApplication::instance()->installEventFilter(Watch());
    }
}

bool IsRepeated(const QKeyEvent& event) {
    const quint64 released = Watch() == nullptr ? 0 : Watch()->Released();
    return event.isAutoRepeat() || (event.timestamp() != 0 && event.timestamp() == released);
}

bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

HeldKeys::HeldKeys() {
    WatchKeys();
    QCoreApplication::instance()->installEventFilter(this);
}

bool HeldKeys::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    const auto& key = static_cast<const QKeyEvent&>(*event);
    return IsRepeated(key) && (IsEnter(key) || key.key() == Qt::Key_Escape);
}

}  // namespace quarnel02
