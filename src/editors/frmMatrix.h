#pragma once

#include <memory>

#include "commands/MatrixCells.h"
#include "commands/NetworkUpkeep.h"
#include "editors/EditorDialog.h"
#include "editors/MatrixModel.h"

namespace quarnel02 {

class frmTRInfo;

namespace Ui {
class frmMatrix;
}

/// Says which resource can perform which task: a grid of check marks.
class frmMatrix : public EditorDialog {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(frmMatrix)

  public:
    frmMatrix(MainForm& form, EditHistory& history, QWidget* parent);
    ~frmMatrix() override;

    /// Reads the model and draws the grid; to be called before the window is shown.
    void LoadMe();

    /// Whether the matrix was another when the window was closed than when it opened.
    [[nodiscard]] bool ChangedModel() const { return m_network.Changed(); }

  protected:
    void ShowAgain() override;
    void Finish() override { m_network.Rebuild(); }

  private:
    void ShowGrid();
    void ShowLine(const QModelIndex& cell);
    void Open(const QModelIndex& cell);
    void Toggle(const QModelIndex& cell);
    void EditPair(TaskResource pair);
    void Run(frmTRInfo& editor, TaskResource pair);
    void Commit();
    /// The walk through the pairs; false when it was stopped.
    [[nodiscard]] bool AskFor(const std::vector<TaskResource>& pairs);
    void ClearAll();

    std::unique_ptr<Ui::frmMatrix> m_ui;
    MatrixCells m_cells;
    MatrixModel m_model;
    NetworkUpkeep m_network;
};

}  // namespace quarnel02
