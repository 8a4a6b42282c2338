// Going from cell to cell, extending the selection, and leaving the sheet.
#include <QKeyEvent>
#include <algorithm>
#include <map>

#include "basic/ScopeGuard.h"
#include "widgets/HeldKeys.h"
#include "widgets/SheetView.h"

namespace quarnel02 {

namespace {

bool IsPrintable(const QKeyEvent& event) {
    return !event.text().isEmpty() && event.text().front().isPrint();
}

/// Keys that a spreadsheet takes for itself, apart from those that actions take.
bool StartsEditing(const QKeyEvent& event) {
    return event.key() == Qt::Key_F2 || event.key() == Qt::Key_Backspace || IsPrintable(event);
}

bool IsTab(const QKeyEvent& event) {
    return event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
}

}  // namespace

/// Whatever keys are held down, such as Shift with Tab.
void SheetView::MoveTo(int row, int column) {
    setCurrentIndex(m_sheet->index(row, column));
    m_anchor = currentIndex();
    selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
}

void SheetView::GoToRow(int row) {
    if (row != currentIndex().row()) {
        MoveTo(row, std::max(currentIndex().column(), 0));
    }
}

void SheetView::SelectRows(int first, int last, int current) {
    const CellRange block = SelectedBlock();
    const int left = static_cast<int>(block.Column);
    const int right = left + static_cast<int>(block.Columns) - 1;
    const int column = std::clamp(currentIndex().column(), left, right);
    setCurrentIndex(m_sheet->index(current, column));
    selectionModel()->select(
        QItemSelection(m_sheet->index(first, left), m_sheet->index(last, right)),
        QItemSelectionModel::ClearAndSelect);
}

void SheetView::LeaveCell(int key) {
    if (FinishEditing()) {
        Move(key);
    }
}

/// Tab goes on to the next row behind the last column, Backtab back.
void SheetView::Move(int key) {
    m_moving = true;
    const ScopeGuard moved([this] { m_moving = false; });
    const int rows = m_sheet->rowCount();
    const int columns = m_sheet->columnCount();
    const int row = currentIndex().row();
    const int column = currentIndex().column();
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
        m_runStart = m_runStart < 0 ? column : m_runStart;
        const int cell = row * columns + column + (key == Qt::Key_Tab ? 1 : -1);
        if (cell >= 0 && cell < rows * columns) {
            MoveTo(cell / columns, cell % columns);
        }
        return;
    }
    const int back = key == Qt::Key_Return && m_runStart >= 0 ? m_runStart : column;
    m_runStart = -1;
    MoveTo(std::clamp(row + (key == Qt::Key_Up ? -1 : 1), 0, rows - 1), back);
}

/// From the cell that the last step without Shift came to; the base class knows its own steps only.
void SheetView::ExtendTo(const QModelIndex& cell) {
    if (!cell.isValid()) {
        return;
    }
    const QModelIndex anchor = m_anchor.isValid() ? QModelIndex(m_anchor) : cell;
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    selectionModel()->select(QItemSelection(anchor, cell), QItemSelectionModel::ClearAndSelect);
    m_anchor = anchor;
}

bool SheetView::Extend(const QKeyEvent& event) {
    static const std::map<int, CursorAction> actions = {
        {Qt::Key_Up, MoveUp},         {Qt::Key_Down, MoveDown},        {Qt::Key_Left, MoveLeft},
        {Qt::Key_Right, MoveRight},   {Qt::Key_Home, MoveHome},        {Qt::Key_End, MoveEnd},
        {Qt::Key_PageUp, MovePageUp}, {Qt::Key_PageDown, MovePageDown}};
    const auto action = actions.find(event.key());
    if ((event.modifiers() & Qt::ShiftModifier) == 0 || action == actions.end()) {
        return false;
    }
    ExtendTo(moveCursor(action->second, event.modifiers() & ~Qt::ShiftModifier));
    return true;
}

void SheetView::LeaveSheet(bool forward) {
    // The view's own goes to the next cell.
    QAbstractScrollArea::focusNextPrevChild(forward);  // NOLINT(bugprone-parent-virtual-call)
}

/// Whether the key goes from cell to cell.
bool SheetView::GoOn(const QKeyEvent& event) {
    const bool back = (event.modifiers() & Qt::ShiftModifier) != 0;
    if (!currentIndex().isValid() || !(IsEnter(event) || IsTab(event))) {
        return false;
    }
    if (IsEnter(event)) {
        Move(back ? Qt::Key_Up : Qt::Key_Return);
    } else {
        Move(back ? Qt::Key_Backtab : event.key());
    }
    return true;
}

/// What the editor of a cell did not want is not for the sheet, either.
void SheetView::keyPressEvent(QKeyEvent* event) {
    if (IsEditing() || event->key() == Qt::Key_Escape) {
        event->ignore();
        return;
    }
    if (IsTab(*event) && (event->modifiers() & Qt::ControlModifier) != 0) {
        const bool back = (event->modifiers() & Qt::ShiftModifier) != 0;
        LeaveSheet(!back && event->key() == Qt::Key_Tab);
        return;
    }
    if ((IsEnter(*event) && IsRepeated(*event)) || !MayAct() || GoOn(*event) || Extend(*event)) {
        event->accept();
        return;
    }
    if (event->text().isEmpty() || StartsEditing(*event) ||
        event->matches(QKeySequence::SelectAll)) {
        QTableView::keyPressEvent(event);
    } else {
        event->ignore();
    }
}

void SheetView::mousePressEvent(QMouseEvent* event) {
    if (!MayAct()) {
        return;
    }
    if ((event->modifiers() & Qt::ShiftModifier) != 0 && event->button() == Qt::LeftButton) {
        ExtendTo(indexAt(event->pos()));
    } else {
        QTableView::mousePressEvent(event);
        m_anchor = currentIndex();
    }
}

void SheetView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (MayAct()) {
        QTableView::mouseDoubleClickEvent(event);
    }
}

}  // namespace quarnel02
