#pragma once

#include <memory>

#include "commands/MatrixCells.h"
#include "commands/MatrixValues.h"
#include "commands/NetworkUpkeep.h"
#include "editors/EditorDialog.h"
#include "editors/MatrixModel.h"

namespace quarnel02 {

namespace Ui {
class frmMatrix;
}

/// Says which resource can perform which task: a grid of check marks, and behind a tab the figures
/// in a sheet. Figures are stored at once; marks turned by hand are kept until OK carries them out.
class frmMatrix : public EditorDialog {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(frmMatrix)

  public:
    frmMatrix(MainForm& form, EditHistory& history, QWidget* parent);
    ~frmMatrix() override;

    /// Reads the model and draws the grid; to be called before the window is shown.
    void LoadMe();

    /// Closes the window unless a text that does not fit is being typed.
    void done(int result) override;
    void keyPressEvent(QKeyEvent* event) override;

    /// Whether the matrix was another when the window was closed than when it opened.
    [[nodiscard]] bool ChangedModel() const { return m_network.Changed(); }

  protected:
    void ShowAgain() override;
    void Finish() override { m_network.Rebuild(); }

  private:
    enum Tab { Marks, Values };

    void ConnectGrid();
    void ChooseTab(int tab);
    /// Shows figures and marks anew.
    void ShowMatrix();
    /// Shows the marks anew, `cell` (column, row) being the current one.
    void ShowGrid(const QPoint& cell);
    void ShowLine(const QModelIndex& cell);
    void Open(const QModelIndex& cell);
    void Toggle(const QModelIndex& cell);
    /// The cell editor; `place` is that in a walk, "3 of 200". False when the walk is to stop.
    bool EditPair(TaskResource pair, const std::string& place = {});
    void Commit();
    /// The walk through the pairs; false when it was stopped.
    [[nodiscard]] bool AskFor(const std::vector<TaskResource>& pairs);
    void ClearAll();

    std::unique_ptr<Ui::frmMatrix> m_ui;
    MatrixCells m_cells;
    MatrixModel m_model;
    MatrixValues m_values;
    NetworkUpkeep m_network;
};

}  // namespace quarnel02
