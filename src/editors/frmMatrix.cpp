#include "editors/frmMatrix.h"

#include <QKeyEvent>
#include <algorithm>

#include "editors/frmTRInfo.h"
#include "ui_frmMatrix.h"
#include "widgets/Dialogs.h"
#include "widgets/HeldKeys.h"

namespace quarnel02 {

frmMatrix::frmMatrix(MainForm& form, EditHistory& history, QWidget* parent)
    : EditorDialog(form, history, parent),
      m_ui(std::make_unique<Ui::frmMatrix>()),
      m_cells(form),
      m_model(m_cells),
      m_values(form, m_cells),
      m_network(form) {
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    m_ui->tabMatrix->addTab(tr("&Marks"));
    m_ui->tabMatrix->addTab(tr("&Values"));
    m_ui->tabMatrix->setDrawBase(false);
    m_ui->tabMatrix->setExpanding(false);
    connect(m_ui->tabMatrix, &QTabBar::currentChanged, this, [this](int tab) { ChooseTab(tab); });
    m_ui->pageMarks->setFocusProxy(m_ui->picMatrix);
    ConnectGrid();
    connect(m_ui->pageValues, &MatrixValuesPage::Stored, this,
            [this] { RunEvent([this] { History().Note(m_values.LastStep()); }); });
    connect(m_ui->cmdOK, &QPushButton::clicked, this, [this] { Commit(); });
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->cmdClear, &QPushButton::clicked, this, [this] { ClearAll(); });
}

void frmMatrix::ConnectGrid() {
    MatrixGrid* grid = m_ui->picMatrix;
    connect(grid, &MatrixGrid::Opened, this, [this](const QModelIndex& cell) { Open(cell); });
    connect(grid, &MatrixGrid::Toggled, this, [this](const QModelIndex& cell) { Toggle(cell); });
    connect(grid, &MatrixGrid::Selected, this, [this](const QModelIndex& cell) { ShowLine(cell); });
    connect(grid, &MatrixGrid::Rested, this, [this, grid](const QModelIndex& cell) {
        ShowLine(cell.isValid() ? cell : grid->currentIndex());
    });
}

/// Views still ask for what they show while they are being hidden.
frmMatrix::~frmMatrix() {
    hide();
    m_ui->picMatrix->disconnect(this);
}

void frmMatrix::LoadMe() {
    m_cells.Load();
    m_values.Load();
    m_ui->picMatrix->setModel(&m_model);
    ShowGrid({0, 0});
    m_ui->pageValues->Begin(m_cells, m_values);
    m_ui->picMatrix->setFocus();
}

void frmMatrix::ShowAgain() {
    m_cells.Reload();
    ShowMatrix();
}

/// Marks that were turned and cells that are current stay so.
void frmMatrix::ShowMatrix() {
    const QModelIndex current = m_ui->picMatrix->currentIndex();
    m_values.Load();
    m_ui->pageValues->Refresh();
    ShowGrid({current.column(), current.row()});
}

void frmMatrix::ShowGrid(const QPoint& cell) {
    m_model.Reload();
    m_ui->picMatrix->FitSections();
    m_ui->picMatrix->setCurrentIndex(
        m_model.index(std::clamp(cell.y(), 0, m_cells.Tasks() - 1),
                      std::clamp(cell.x(), 0, m_cells.Resources() - 1)));
}

/// The current cell is the same on both tabs. A text that does not fit keeps its cell in sight.
void frmMatrix::ChooseTab(int tab) {
    if (tab == m_ui->stackMatrix->currentIndex()) {
        return;
    }
    if (!m_ui->pageValues->FinishEditing()) {
        m_ui->tabMatrix->setCurrentIndex(Values);
        return;
    }
    if (tab == Marks) {
        ShowGrid(m_ui->pageValues->Current());
    } else {
        const QModelIndex cell = m_ui->picMatrix->currentIndex();
        m_ui->pageValues->Refresh();
        m_ui->pageValues->SetCurrent(cell.row(), cell.column());
    }
    m_ui->stackMatrix->setCurrentIndex(tab);
    m_ui->stackMatrix->currentWidget()->setFocus(Qt::OtherFocusReason);
}

void frmMatrix::ShowLine(const QModelIndex& cell) {
    if (!cell.isValid()) {
        return;
    }
    RunEvent([&] {
        const TaskResource pair = MatrixModel::PairAt(cell);
        m_ui->lblPair->setText(cell.data(Qt::ToolTipRole).toString());
        m_ui->lblInfo->setText(QString::fromStdString(m_cells.Line(pair)));
    });
}

bool frmMatrix::EditPair(TaskResource pair, const std::string& place) {
    frmTRInfo editor(Form(), History(), this);
    editor.FetchInfo(pair.Task, pair.Resource);
    editor.SetStepName("Edit " + m_cells.PairName(pair));
    if (!place.empty()) {
        editor.ShowPlaceInWalk(place);
    }
    const bool stored = editor.exec() == QDialog::Accepted;
    m_cells.Reload();
    if (stored) {
        m_cells.Settle(pair, editor.StoredUsableTime());
    }
    ShowMatrix();
    return !editor.StopsWalk();
}

void frmMatrix::Open(const QModelIndex& cell) {
    ShowLine(cell);
    const TaskResource pair = MatrixModel::PairAt(cell);
    if (m_cells.Exists(pair)) {
        RunEvent([&] { EditPair(pair); });
        ShowLine(cell);
    }
}

void frmMatrix::Toggle(const QModelIndex& cell) {
    m_cells.Toggle(MatrixModel::PairAt(cell));
    m_model.MarkChanged(MatrixModel::PairAt(cell));
    ShowLine(cell);
}

/// Every pair is asked for; a pair left open stays as it is.
bool frmMatrix::AskFor(const std::vector<TaskResource>& pairs) {
    const std::string count = " of " + std::to_string(pairs.size());
    std::size_t number = 0;
    return std::all_of(pairs.begin(), pairs.end(), [&](const TaskResource& pair) {
        m_ui->picMatrix->setCurrentIndex(m_model.IndexOf(pair));
        m_ui->pageValues->SetCurrent(pair.Task - 1, pair.Resource - 1);
        return EditPair(pair, std::to_string(++number) + count);
    });
}

/// On Values, OK carries out the marks that were turned, and no more: an impossible pair stays.
void frmMatrix::Commit() {
    if (!m_ui->pageValues->FinishEditing()) {
        return;
    }
    const bool on_values = m_ui->stackMatrix->currentIndex() == Values;
    bool finished = false;
    RunEvent([&] {
        const auto unusable =
            m_cells.Commit(on_values ? UnmarkedPairs::Turned : UnmarkedPairs::All);
        History().Note();
        ShowMatrix();
        finished = AskFor(unusable);
    });
    if (finished) {
        accept();
    }
}

void frmMatrix::done(int result) {
    if (m_ui->pageValues->FinishEditing()) {
        EditorDialog::done(result);
    }
}

/// Escape takes back first and closes second, wherever the focus is.
void frmMatrix::keyPressEvent(QKeyEvent* event) {
    const bool escape = event->key() == Qt::Key_Escape && !IsRepeated(*event);
    if (!escape || !m_ui->pageValues->CancelEditing()) {
        EditorDialog::keyPressEvent(event);
    }
}

void frmMatrix::ClearAll() {
    if (m_ui->pageValues->FinishEditing() &&
        AskYesNoBox(this, "Clear all Resource-Task information?", MessageIcon::Question,
                    Answer::No)) {
        RunEvent([&] {
            m_cells.Clear();
            History().Note("Clear matrix");
            ShowMatrix();
        });
    }
}

}  // namespace quarnel02
