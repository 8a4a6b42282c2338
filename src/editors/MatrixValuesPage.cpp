#include "editors/MatrixValuesPage.h"

#include <QItemSelectionModel>

#include "ui_MatrixValuesPage.h"

namespace quarnel02 {

namespace {

QString UnitsOf(ShownFigure figure) {
    switch (figure) {
        case ShownFigure::Time:
            return QStringLiteral("time (s)");
        case ShownFigure::Tool:
            return QStringLiteral("tool");
        case ShownFigure::ToolCost:
            return QStringLiteral("tool cost ($)");
        case ShownFigure::AllThree:
            break;
    }
    return QStringLiteral("time (s) | tool | tool cost ($)");
}

}  // namespace

MatrixValuesPage::MatrixValuesPage(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::MatrixValuesPage>()) {
    m_ui->setupUi(this);
    const auto choose = [this](QRadioButton* button, ShownFigure figure) {
        connect(button, &QRadioButton::clicked, this, [this, figure] { Choose(figure); });
    };
    choose(m_ui->optTime, ShownFigure::Time);
    choose(m_ui->optTool, ShownFigure::Tool);
    choose(m_ui->optToolCost, ShownFigure::ToolCost);
    choose(m_ui->optAllThree, ShownFigure::AllThree);
    setFocusProxy(m_ui->grdValues);
}

MatrixValuesPage::~MatrixValuesPage() {
    m_ui->grdValues->disconnect(this);
}

void MatrixValuesPage::Begin(const MatrixCells& cells, MatrixValues& values) {
    m_cells = &cells;
    m_values = &values;
    m_model = std::make_unique<MatrixValuesModel>(cells, values);
    m_model->Refresh();
    connect(m_model.get(), &MatrixValuesModel::Stored, this, [this] {
        ShowCell();
        emit Stored();
    });
    m_ui->grdValues->SetSheet(*m_model);
    m_ui->grdValues->FitSections();
    connect(m_ui->grdValues->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { ShowCell(); });
    SetCurrent(0, 0);
}

void MatrixValuesPage::Refresh() {
    m_model->Refresh();
    ShowCell();
}

QPoint MatrixValuesPage::Current() const {
    const QModelIndex cell = m_ui->grdValues->currentIndex();
    return {cell.column(), cell.row()};
}

void MatrixValuesPage::SetCurrent(int row, int column) {
    m_ui->grdValues->setCurrentIndex(m_model->index(row, column));
}

bool MatrixValuesPage::FinishEditing() {
    return m_ui->grdValues->FinishEditing();
}

bool MatrixValuesPage::CancelEditing() {
    const bool edits = m_ui->grdValues->IsEditing();
    m_ui->grdValues->CancelEditing();
    return edits;
}

/// A cell that is being edited is stored as what it was begun as.
void MatrixValuesPage::Choose(ShownFigure figure) {
    if (FinishEditing()) {
        m_values->SetFigure(figure);
        Refresh();
        m_ui->grdValues->FitSections();
        m_ui->grdValues->setFocus(Qt::OtherFocusReason);
    }
}

QString MatrixValuesPage::CellName() const {
    const QModelIndex cell = m_ui->grdValues->currentIndex();
    const auto name = [](int number, const MatrixHeading& heading) {
        return (QString::number(number) + QLatin1Char(' ') + QString::fromStdString(heading.Name))
            .trimmed();
    };
    return name(cell.row() + 1, m_cells->Task(cell.row() + 1)) + QStringLiteral(" \u00D7 ") +
           name(cell.column() + 1, m_cells->Resource(cell.column() + 1));
}

void MatrixValuesPage::ShowCell() {
    const QModelIndex cell = m_ui->grdValues->currentIndex();
    if (!cell.isValid()) {
        return;
    }
    const TaskResource pair{static_cast<std::int16_t>(cell.row() + 1),
                            static_cast<std::int16_t>(cell.column() + 1)};
    const QString name = CellName();
    m_ui->lblCell->setText(
        m_ui->lblCell->fontMetrics().elidedText(name, Qt::ElideMiddle, width() / 2));
    m_ui->lblCell->setToolTip(name);
    m_ui->lblUnits->setText(m_cells->Exists(pair) ? UnitsOf(m_values->Figure())
                                                  : QString::fromStdString(m_cells->Line(pair)));
    m_ui->lblSum->setText(
        QString::fromStdString(m_values->TimesIn(m_ui->grdValues->SelectedBlock())));
}

void MatrixValuesPage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (m_model != nullptr) {
        ShowCell();
    }
}

}  // namespace quarnel02
