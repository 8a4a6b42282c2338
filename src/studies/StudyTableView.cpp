#include "studies/StudyTableView.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

namespace quarnel02 {

namespace {

Qt::Alignment AlignmentOf(const ShownColumn& column) {
    return Qt::AlignVCenter | (column.Figures ? Qt::AlignRight : Qt::AlignLeft);
}

/// Figures end at the right border of a cell where texts begin at the left one of the next.
QString Padded(const QString& text) {
    const QString pad(2, QChar(QChar::Nbsp));
    return text.isEmpty() ? text : pad + text + pad;
}

class PaddedCells : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text = Padded(option->text);
    }
};

class PaddedHeadings : public QHeaderView {
  public:
    using QHeaderView::QHeaderView;

  protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override {
        QHeaderView::initStyleOptionForIndex(option, section);
        option->text = Padded(option->text);
    }
};

void PutOnClipboard(const TextBlock& block) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(WriteTabbed(block)));
}

}  // namespace

void StudyTableModel::SetTable(ShownTable table) {
    beginResetModel();
    m_table = std::move(table);
    endResetModel();
}

int StudyTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_table.Rows.size());
}

int StudyTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_table.Columns.size());
}

const ShownCell& StudyTableModel::CellAt(const QModelIndex& index) const {
    return m_table
        .Rows[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())];
}

QVariant StudyTableModel::data(const QModelIndex& index, int role) const {
    switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole:
            return QString::fromStdString(CellAt(index).Text);
        case Qt::TextAlignmentRole:
            return {AlignmentOf(m_table.Columns[static_cast<std::size_t>(index.column())])};
        default:
            return {};
    }
}

QVariant StudyTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) {
        return {};
    }
    const ShownColumn& column = m_table.Columns[static_cast<std::size_t>(section)];
    switch (role) {
        case Qt::DisplayRole:
            return QString::fromStdString(column.Heading);
        case Qt::TextAlignmentRole:
            return {AlignmentOf(column)};
        default:
            return {};
    }
}

StudyTableView::StudyTableView(QWidget* parent) : QTableView(parent) {
    setItemDelegate(new PaddedCells(this));
    setHorizontalHeader(new PaddedHeadings(Qt::Horizontal, this));
    setModel(&m_model);
    setAccessibleDescription(
        QStringLiteral("Arrow keys go from cell to cell; the context menu copies and saves"));
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() * 3 / 2);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    AddCommand(QStringLiteral("&Copy"), QKeySequence::Copy, QStringLiteral("mnuCopy"),
               [this] { CopySelection(); });
    AddCommand(QStringLiteral("Copy &table with headings"),
               QKeySequence(QStringLiteral("Ctrl+Shift+C")), QStringLiteral("mnuCopyTable"),
               [this] { CopyTable(); });
    AddCommand(QStringLiteral("&Save table as..."), {}, QStringLiteral("mnuSaveTable"),
               [this] { emit SaveAsked(); });
}

void StudyTableView::AddCommand(const QString& text, const QKeySequence& key, const QString& name,
                                const std::function<void()>& command) {
    auto* action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, command);
    addAction(action);
}

void StudyTableView::SetTable(ShownTable table) {
    const std::size_t row = Row();
    m_model.SetTable(std::move(table));
    FitColumns();
    const std::size_t rows = Table().Rows.size();
    if (rows > 0) {
        selectRow(static_cast<int>(row < rows ? row : 0));
    }
    emit RowChanged();
}

std::size_t StudyTableView::Row() const {
    return static_cast<std::size_t>(std::max(currentIndex().row(), 0));
}

/// A long text may be elided; its tool tip has all of it.
void StudyTableView::FitColumns() {
    constexpr int widest = 48;
    constexpr int gap = 3;
    resizeColumnsToContents();
    const int character = fontMetrics().averageCharWidth();
    for (int column = 0; column < m_model.columnCount({}); ++column) {
        setColumnWidth(column, std::min(columnWidth(column) + gap * character, widest * character));
    }
}

void StudyTableView::CopySelection() const {
    QModelIndexList cells = selectionModel()->selectedIndexes();
    std::sort(cells.begin(), cells.end());
    TextBlock block;
    int row = -1;
    for (const QModelIndex& cell : cells) {
        if (cell.row() != row) {
            block.emplace_back();
            row = cell.row();
        }
        block.back().push_back(PlainTexts(
            Table().Rows[static_cast<std::size_t>(row)])[static_cast<std::size_t>(cell.column())]);
    }
    if (!block.empty()) {
        PutOnClipboard(block);
    }
}

void StudyTableView::CopyTable() const {
    PutOnClipboard(BlockOf(Table()));
}

void StudyTableView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (current.row() != previous.row()) {
        emit RowChanged();
    }
}

}  // namespace quarnel02
