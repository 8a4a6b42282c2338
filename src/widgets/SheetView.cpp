#include "widgets/SheetView.h"

#include <QAction>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "basic/ScopeGuard.h"
#include "widgets/HeldKeys.h"
#include "widgets/SheetDelegate.h"
#include "widgets/SheetHeader.h"

namespace quarnel02 {

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
    const bool stored = Store(
        "", [&] { return m_sheet->SetBlock(edit); }, refusal);
    if (stored) {
        emit StoredIn(cell.column(), cell.column());
    }
    return stored;
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

}  // namespace quarnel02
