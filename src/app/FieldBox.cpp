#include "app/FieldBox.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace quarnel02 {

namespace {

bool StaysTheFocus(Qt::FocusReason reason) {
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
           reason == Qt::ActiveWindowFocusReason;
}

}  // namespace

FieldBox::FieldBox(QWidget* parent) : QLineEdit(parent) {}

void FieldBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (StaysTheFocus(event->reason())) {
        return;
    }
    m_entering = event->reason() == Qt::MouseFocusReason;
    selectAll();
}

void FieldBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    m_entering = false;
    if (!StaysTheFocus(event->reason())) {
        deselect();
        emit Left();
    }
}

void FieldBox::keyPressEvent(QKeyEvent* event) {
    QLineEdit::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        emit Entered();
    }
}

void FieldBox::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (m_entering && !hasSelectedText()) {
        selectAll();
    }
    m_entering = false;
}

}  // namespace quarnel02
