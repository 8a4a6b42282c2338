#include "widgets/FieldBox.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QValidator>

#include "basic/OneLine.h"
#include "widgets/HeldKeys.h"

namespace quarnel02 {

namespace {

bool StaysTheFocus(Qt::FocusReason reason) {
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
           reason == Qt::ActiveWindowFocusReason;
}

QString Clean(const QString& text) {
    return QString::fromStdString(OneLine(text.toStdString()));
}

/// A no-break blank that comes alone was typed, for a blank.
QString CleanPiece(const QString& piece) {
    return piece == QChar::Nbsp ? QStringLiteral(" ") : Clean(piece);
}

/// Cleans what comes into a box. The box's text is clean before, so only the piece just put in
/// can need it; that piece stands between the start of the selection and the cursor.
class OneLineValidator : public QValidator {
  public:
    explicit OneLineValidator(QLineEdit& box) : QValidator(&box), m_box(box) {
        connect(&box, &QLineEdit::textChanged, this, [this] { Note(); });
        connect(&box, &QLineEdit::selectionChanged, this, [this] { Note(); });
        connect(&box, &QLineEdit::cursorPositionChanged, this, [this] { Note(); });
    }

    State validate(QString& text, int& cursor) const override {
        if (Clean(text) == text) {
            return Acceptable;
        }
        const bool inserted =
            cursor >= m_front.size() && text.startsWith(m_front) && text.mid(cursor) == m_back;
        const int from = inserted ? static_cast<int>(m_front.size()) : 0;
        const int to = inserted ? cursor : static_cast<int>(text.size());
        const QString clean = CleanPiece(text.mid(from, to - from));
        text.replace(from, to - from, clean);
        cursor = from + static_cast<int>(clean.size());
        return Acceptable;
    }

  private:
    void Note() {
        const QString text = m_box.text();
        const bool selected = m_box.hasSelectedText();
        m_front = text.left(selected ? m_box.selectionStart() : m_box.cursorPosition());
        m_back = text.mid(selected ? m_box.selectionEnd() : m_box.cursorPosition());
    }

    QLineEdit& m_box;
    QString m_front;  ///< what stands before the place where something can come in
    QString m_back;   ///< and behind it
};

}  // namespace

FieldBox::FieldBox(QWidget* parent) : QLineEdit(parent) {
    WatchKeys();
    setValidator(new OneLineValidator(*this));
    // Cleaning a text makes it a new, unmodified one.
    connect(this, &QLineEdit::textEdited, this, [this] { setModified(true); });
}

void FieldBox::ForgetTyping() {
    const int cursor = cursorPosition();
    setText(text());
    setCursorPosition(cursor);
}

/// A text box claims these keys for itself, whether it has anything to undo or not.
bool FieldBox::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if ((key.matches(QKeySequence::Undo) && !isUndoAvailable()) ||
            (key.matches(QKeySequence::Redo) && !isRedoAvailable())) {
            event->ignore();
            return false;
        }
    }
    return QLineEdit::event(event);
}

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
        emit Left();
    }
}

void FieldBox::keyPressEvent(QKeyEvent* event) {
    if (!IsEnter(*event)) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    if (!IsRepeated(*event)) {
        QLineEdit::keyPressEvent(event);
        emit Entered();
    }
    event->accept();
}

/// What an input method commits is not shown to validators.
void FieldBox::inputMethodEvent(QInputMethodEvent* event) {
    if (validator() == nullptr) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent clean(event->preeditString(), event->attributes());
    clean.setCommitString(CleanPiece(event->commitString()), event->replacementStart(),
                          event->replacementLength());
    QLineEdit::inputMethodEvent(&clean);
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
