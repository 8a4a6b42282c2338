#pragma once

#include <QWidget>
#include <memory>

#include "commands/MatrixValues.h"
#include "editors/MatrixValuesModel.h"

namespace quarnel02 {

namespace Ui {
class MatrixValuesPage;
}

/// The figures of the matrix in a sheet, with the choice of what it shows.
class MatrixValuesPage : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(MatrixValuesPage)

  public:
    explicit MatrixValuesPage(QWidget* parent = nullptr);
    ~MatrixValuesPage() override;

    /// Shows the matrix; both must outlive the page.
    void Begin(const MatrixCells& cells, MatrixValues& values);
    /// Figures or marks have become others elsewhere.
    void Refresh();

    /// Row and column of the current cell, counted from 0.
    [[nodiscard]] QPoint Current() const;
    void SetCurrent(int row, int column);

    /// Stores what a cell is being edited to; false, after a message, when it does not fit.
    bool FinishEditing();
    /// Takes back what a cell is being edited to; whether one was.
    bool CancelEditing();

  signals:
    /// Something was stored; MatrixValues::LastStep says what.
    void Stored();

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Choose(ShownFigure figure);
    void ShowCell();
    [[nodiscard]] QString CellName() const;

    std::unique_ptr<Ui::MatrixValuesPage> m_ui;
    const MatrixCells* m_cells = nullptr;
    MatrixValues* m_values = nullptr;
    std::unique_ptr<MatrixValuesModel> m_model;
};

}  // namespace quarnel02
