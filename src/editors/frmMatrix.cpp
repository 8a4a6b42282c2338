#include "editors/frmMatrix.h"

#include "editors/frmTRInfo.h"
#include "ui_frmMatrix.h"
#include "widgets/Dialogs.h"

namespace quarnel02 {

frmMatrix::frmMatrix(MainForm& form, EditHistory& history, QWidget* parent)
    : EditorDialog(form, history, parent),
      m_ui(std::make_unique<Ui::frmMatrix>()),
      m_cells(form),
      m_model(m_cells),
      m_network(form) {
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    MatrixGrid* grid = m_ui->picMatrix;
    connect(grid, &MatrixGrid::Opened, this, [this](const QModelIndex& cell) { Open(cell); });
    connect(grid, &MatrixGrid::Toggled, this, [this](const QModelIndex& cell) { Toggle(cell); });
    connect(grid, &MatrixGrid::Selected, this, [this](const QModelIndex& cell) { ShowLine(cell); });
    connect(grid, &MatrixGrid::Rested, this, [this, grid](const QModelIndex& cell) {
        ShowLine(cell.isValid() ? cell : grid->currentIndex());
    });
    connect(m_ui->cmdOK, &QPushButton::clicked, this, [this] { Commit(); });
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->cmdClear, &QPushButton::clicked, this, [this] { ClearAll(); });
}

frmMatrix::~frmMatrix() {
    m_ui->picMatrix->disconnect(this);
}

void frmMatrix::LoadMe() {
    m_cells.Load();
    m_ui->picMatrix->setModel(&m_model);
    ShowGrid();
    m_ui->picMatrix->setFocus();
}

void frmMatrix::ShowAgain() {
    m_cells.Load();
    ShowGrid();
}

void frmMatrix::ShowGrid() {
    m_model.Reload();
    m_ui->picMatrix->FitSections();
    m_ui->picMatrix->setCurrentIndex(m_model.index(0, 0));
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

void frmMatrix::EditPair(TaskResource pair) {
    frmTRInfo editor(Form(), History(), this);
    editor.FetchInfo(pair.Task, pair.Resource);
    Run(editor, pair);
}

void frmMatrix::Run(frmTRInfo& editor, TaskResource pair) {
    if (editor.exec() == QDialog::Accepted) {
        m_cells.Settle(pair, editor.StoredUsableTime());
        m_model.MarkChanged(pair);
    }
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

/// Every marked pair without a usable time is asked for; a pair left open stays as it is.
bool frmMatrix::AskFor(const std::vector<TaskResource>& pairs) {
    std::size_t number = 0;
    for (const TaskResource& pair : pairs) {
        m_ui->picMatrix->setCurrentIndex(m_model.IndexOf(pair));
        frmTRInfo editor(Form(), History(), this);
        editor.FetchInfo(pair.Task, pair.Resource);
        editor.ShowPlaceInWalk(++number, pairs.size());
        Run(editor, pair);
        if (editor.StopsWalk()) {
            return false;
        }
    }
    return true;
}

void frmMatrix::Commit() {
    bool finished = false;
    RunEvent([&] { finished = AskFor(m_cells.Commit()); });
    if (finished) {
        accept();
    }
}

void frmMatrix::ClearAll() {
    if (AskYesNoBox(this, "Clear all Resource-Task information?", MessageIcon::Question,
                    Answer::No)) {
        RunEvent([&] {
            m_cells.Clear();
            ShowGrid();
        });
    }
}

}  // namespace quarnel02
