#include "app/InputShield.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

namespace quarnel02 {

namespace {

/// Main windows and dialogs: a tool tip or the splash closes by itself.
bool ClosesByTheUser(const QObject& watched) {
    Qt::WindowType type = Qt::Widget;
    if (const auto* window = qobject_cast<const QWindow*>(&watched)) {
        type = window->type();
    } else if (const auto* widget = qobject_cast<const QWidget*>(&watched)) {
        type = widget->windowType();
    }
    return type == Qt::Window || type == Qt::Dialog;
}

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::InputMethod:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TouchCancel:
        case QEvent::TabletPress:
        case QEvent::TabletMove:
        case QEvent::TabletRelease:
        case QEvent::NativeGesture:
        case QEvent::DragEnter:
        case QEvent::Drop:
            return true;
        default:
            return false;
    }
}

}  // namespace

void InputShield::Raise() {
    if (!m_raised) {
        m_raised = true;
        QCoreApplication::instance()->installEventFilter(this);
    }
}

void InputShield::Lower() {
    if (m_raised) {
        QGuiApplication::sync();
        QCoreApplication::instance()->removeEventFilter(this);
        m_raised = false;
    }
}

bool InputShield::IsLeftOut(const QObject& watched) const {
    if (m_leftOut == nullptr) {
        return false;
    }
    const auto* widget = qobject_cast<const QWidget*>(&watched);
    return widget == nullptr ? &watched == m_leftOut->windowHandle()
                             : widget->window() == m_leftOut;
}

bool InputShield::eventFilter(QObject* watched, QEvent* event) {
    const bool close = event->type() == QEvent::Close && ClosesByTheUser(*watched);
    if ((!close && !IsInput(event->type())) || IsLeftOut(*watched)) {
        return false;
    }
    event->setAccepted(!close);
    return true;
}

}  // namespace quarnel02
