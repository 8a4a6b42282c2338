#include "widgets/SheetView.h"

#include <QAction>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>
#include <map>
#include <utility>

#include "basic/ScopeGuard.h"
#include "widgets/HeldKeys.h"
#include "widgets/SheetDelegate.h"
#include "widgets/SheetHeader.h"

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

SheetView::SheetView(QWidget* parent) : SheetView(new SheetDelegate, parent) {}

SheetView::SheetView(SheetDelegate* cells, QWidget* parent)
    : QTableView(parent),
      m_cells(cells),
      m_columns(new SheetHeader(
          Qt::Horizontal, [this] { return MayAct(); }, this)),
      m_rows(new SheetHeader(
          Qt::Vertical, [this] { return MayAct(); }, this)) {
    WatchKeys();
    m_cells->setParent(this);
    setItemDelegate(m_cells);
    setHorizontalHeader(m_columns);
    setVerticalHeader(m_rows);
    setSelectionMode(ContiguousSelection);
    setEditTriggers(AnyKeyPressed | EditKeyPressed | DoubleClicked);
    setWordWrap(false);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(m_cells, &SheetDelegate::Leaving, this, [this](int key) { LeaveCell(key); });
    connect(m_cells, &SheetDelegate::Cancelled, this, [this] { CancelEditing(); });
    connect(m_cells, &SheetDelegate::LostFocus, this, [this] { Finish(Refusal::KeepQuiet); });
    AddAction(QStringLiteral("Cu&t"), QKeySequence::Cut, &SheetView::Cut);
    AddAction(QStringLiteral("&Copy"), QKeySequence::Copy, &SheetView::Copy);
    AddAction(QStringLiteral("&Paste"), QKeySequence::Paste, &SheetView::Paste);
    AddAction(QStringLiteral("Fill &Down"), Qt::CTRL | Qt::Key_D, &SheetView::FillDown);
    AddAction(QStringLiteral("Fill &Right"), Qt::CTRL | Qt::Key_R, &SheetView::FillRight);
    AddAction(QStringLiteral("C&lear"), QKeySequence::Delete, &SheetView::Clear);
}

/// An editor that is open at the end loses the focus on its way out.
SheetView::~SheetView() {
    m_cells->disconnect(this);
}

/// The keys work while no cell is being edited: its editor has keys of its own.
void SheetView::AddAction(const QString& text, const QKeySequence& key,
                          void (SheetView::*action)()) {
    auto* item = new QAction(text, this);
    item->setShortcut(key);
    item->setShortcutContext(Qt::WidgetShortcut);
    connect(item, &QAction::triggered, this, [this, action] {
        if (MayAct()) {
            (this->*action)();
        }
    });
    addAction(item);
}

void SheetView::SetSheet(SheetModel& sheet) {
    m_sheet = &sheet;
    setModel(&sheet);
}

void SheetView::FitColumns() {
    const int character = fontMetrics().averageCharWidth();
    constexpr int narrowest = 7;
    constexpr int widest = 40;
    constexpr int widest_heading = 28;
    m_columns->setMinimumSectionSize(3 * character);
    resizeColumnsToContents();
    for (int column = 0; column < m_sheet->columnCount(); ++column) {
        setColumnWidth(column, std::clamp(columnWidth(column) + character, narrowest * character,
                                          widest * character));
    }
    m_rows->setDefaultSectionSize(3 * fontMetrics().lineSpacing() / 2);
    m_rows->setMaximumWidth(widest_heading * character);
    m_rows->setMinimumWidth(4 * character);
}

QSize SheetView::sizeHint() const {
    constexpr int rows = 20;
    constexpr int characters = 110;
    const int cells = std::min(m_columns->length(), characters * fontMetrics().averageCharWidth());
    const QSize rim = QSize(2, 2) * frameWidth() + QSize(2, 2);
    return rim + QSize(m_rows->sizeHint().width() + cells + verticalScrollBar()->sizeHint().width(),
                       m_columns->sizeHint().height() + rows * m_rows->defaultSectionSize() +
                           horizontalScrollBar()->sizeHint().height());
}

CellRange SheetView::SelectedBlock() const {
    const QItemSelection selection = selectionModel()->selection();
    const auto at = [](int place) { return static_cast<std::size_t>(std::max(place, 0)); };
    QRect block(currentIndex().column(), currentIndex().row(), 1, 1);
    if (!selection.isEmpty()) {
        block = QRect();
    }
    for (const QItemSelectionRange& range : selection) {
        block |= QRect(range.left(), range.top(), range.width(), range.height());
    }
    return {at(block.top()), at(block.left()), at(block.height()), at(block.width())};
}

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

bool SheetView::MayAct() {
    return FinishEditing() && (!m_guard || m_guard());
}

bool SheetView::IsEditing() const {
    return m_cells->Box() != nullptr;
}

bool SheetView::FinishEditing() {
    return Finish(Refusal::Tell);
}

/// A message while the focus is on its way would keep a pressed button from its release; the text
/// waits in its editor for whatever is done next.
bool SheetView::Finish(Refusal refusal) {
    FieldBox* box = m_cells->Box();
    if (box == nullptr || m_finishing) {
        return true;
    }
    m_finishing = true;
    const ScopeGuard finished([this] { m_finishing = false; });
    if (!StoreTyped(m_cells->Cell(), box->text(), refusal)) {
        if (refusal == Refusal::Tell) {
            box->setFocus(Qt::OtherFocusReason);
            box->selectAll();
        }
        return false;
    }
    if (m_cells->Box() != nullptr) {
        closeEditor(m_cells->Box(), QAbstractItemDelegate::NoHint);
    }
    return true;
}

void SheetView::CancelEditing() {
    if (IsEditing()) {
        m_finishing = true;
        const ScopeGuard finished([this] { m_finishing = false; });
        closeEditor(m_cells->Box(), QAbstractItemDelegate::NoHint);
    }
}

bool SheetView::StoreTyped(const QModelIndex& cell, const QString& text, Refusal refusal) {
    if (text == cell.data(Qt::EditRole).toString()) {
        return true;
    }
    const BlockEdit edit{"Edit",
                         static_cast<std::size_t>(cell.row()),
                         static_cast<std::size_t>(cell.column()),
                         {{text.toStdString()}}};
    return Store(
        "", [&] { return m_sheet->SetBlock(edit); }, refusal);
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

void SheetView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    m_columns->Light(current.column());
    m_rows->Light(current.row());
    if (!m_moving) {
        m_runStart = -1;
    }
    if (state() != DragSelectingState) {
        m_anchor = current;
    }
    if (current.row() != previous.row()) {
        emit CurrentRowChanged(current.row());
    }
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
