#include "widgets/SheetDelegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

#include "widgets/HeldKeys.h"

namespace quarnel02 {

QWidget* SheetDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                     const QModelIndex& index) const {
    auto* box = new FieldBox(parent);
    box->setFrame(false);
    m_box = box;
    m_cell = index;
    return box;
}

void SheetDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const {
    if (editor == m_box) {
        m_box = nullptr;
        m_cell = QPersistentModelIndex();
    }
    QStyledItemDelegate::destroyEditor(editor, index);
}

/// What has been typed is not replaced when the sheet shows other contents.
void SheetDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    auto* box = qobject_cast<FieldBox*>(editor);
    if (box != nullptr && !box->isModified()) {
        box->setText(index.data(Qt::EditRole).toString());
    }
}

bool SheetDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                              const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    const QString text = index.data().toString();
    const bool cut_off = sizeHint(option, index).width() > view->visualRect(index).width();
    QToolTip::showText(event->globalPos(),
                       cut_off ? QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()) : QString(),
                       view);
    return true;
}

bool SheetDelegate::FilterKey(const QKeyEvent& event) {
    const bool back = (event.modifiers() & Qt::ShiftModifier) != 0;
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (!IsRepeated(event)) {
                emit Leaving(back ? Qt::Key_Up : Qt::Key_Return);
            }
            return true;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Up:
        case Qt::Key_Down:
            if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0) {
                return false;
            }
            emit Leaving(event.key());
            return true;
        case Qt::Key_Escape:
            if (!IsRepeated(event)) {
                emit Cancelled();
            }
            return true;
        default:
            return false;
    }
}

bool SheetDelegate::eventFilter(QObject* editor, QEvent* event) {
    if (editor != m_box) {
        return QStyledItemDelegate::eventFilter(editor, event);
    }
    switch (event->type()) {
        case QEvent::KeyPress:
            return FilterKey(*static_cast<QKeyEvent*>(event));
        case QEvent::FocusOut: {
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason &&
                reason != Qt::MenuBarFocusReason) {
                emit LostFocus();
            }
            return false;
        }
        default:
            return QStyledItemDelegate::eventFilter(editor, event);
    }
}

}  // namespace quarnel02
