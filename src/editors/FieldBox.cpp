#include "editors/FieldBox.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>

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

void FieldBox::SetUnsaved(bool unsaved) {
    if (unsaved == m_unsaved) {
        return;
    }
    m_unsaved = unsaved;
    QFont face = font();
    face.setBold(unsaved);
    setFont(face);
    update();
}

void FieldBox::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (m_unsaved) {
        QPainter painter(this);
        painter.fillRect(QRect(0, 0, 3, height()), palette().color(QPalette::Highlight));
    }
}

}  // namespace quarnel02
