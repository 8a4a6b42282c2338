#include "editors/SheetPanel.h"

#include <QAction>
#include <QPushButton>
#include <algorithm>

#include "ui_SheetPanel.h"

namespace quarnel02 {

SheetPanel::SheetPanel(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::SheetPanel>()) {
    m_ui->setupUi(this);
    setFocusProxy(m_ui->shtRecords);
}

SheetPanel::~SheetPanel() = default;

SheetView& SheetPanel::Sheet() const {
    return *m_ui->shtRecords;
}

/// The buttons leave the focus where it is when they are clicked.
void SheetPanel::AddCommand(QPushButton& button, const QString& text, const QString& help,
                            const QList<QKeySequence>& keys, void (SheetPanel::*command)()) {
    auto* action = new QAction(text, this);
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, command);
    Sheet().addAction(action);
    button.setText(text);
    button.setToolTip(
        QStringLiteral("%1 (%2)").arg(help, keys.front().toString(QKeySequence::NativeText)));
    button.setAutoDefault(false);
    button.setFocusPolicy(Qt::TabFocus);
    connect(&button, &QAbstractButton::clicked, action, &QAction::trigger);
}

void SheetPanel::Begin(SheetModel& sheet, const QString& noun) {
    Sheet().SetSheet(sheet);
    Sheet().FitColumns();
    constexpr int description = 1;
    constexpr int many_columns = 5;
    const int characters = sheet.columnCount() < many_columns ? 60 : 34;
    const int room = characters * fontMetrics().averageCharWidth();
    Sheet().setColumnWidth(description, std::max(Sheet().columnWidth(description), room));
    auto* line = new QAction(this);
    line->setSeparator(true);
    Sheet().addAction(line);
    const auto help = [&](const char* text) { return QString::fromLatin1(text).arg(noun); };
    AddCommand(*m_ui->cmdInsert, QStringLiteral("Insert"),
               help("Inserts as many %1s as are selected, above them"),
               {Qt::CTRL | Qt::Key_I, Qt::CTRL | Qt::Key_Plus}, &SheetPanel::Insert);
    AddCommand(*m_ui->cmdDuplicate, QStringLiteral("Duplicate"),
               help("Copies the selected %1s, with their matrix rows, to the place below them"),
               {Qt::CTRL | Qt::SHIFT | Qt::Key_D}, &SheetPanel::Duplicate);
    AddCommand(*m_ui->cmdDeleteRows, QStringLiteral("Delete rows"),
               help("Deletes the selected %1s with their matrix rows"), {Qt::CTRL | Qt::Key_Minus},
               &SheetPanel::DeleteRows);
    AddCommand(*m_ui->cmdUp, QStringLiteral("Move up"),
               help("Moves the selected %1s up, with their matrix rows"), {Qt::ALT | Qt::Key_Up},
               &SheetPanel::MoveUp);
    AddCommand(*m_ui->cmdDown, QStringLiteral("Move down"),
               help("Moves the selected %1s down, with their matrix rows"),
               {Qt::ALT | Qt::Key_Down}, &SheetPanel::MoveDown);
}

Places SheetPanel::SelectedRows() const {
    const CellRange block = Sheet().SelectedBlock();
    Places rows;
    for (std::size_t row = block.Row; row < block.Row + block.Rows; ++row) {
        rows.push_back(row);
    }
    return rows;
}

}  // namespace quarnel02
