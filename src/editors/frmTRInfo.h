#pragma once

#include <memory>
#include <string>
#include <utility>

#include "commands/PairRecord.h"
#include "editors/EditorDialog.h"

namespace quarnel02 {

class RecordBoxes;

namespace Ui {
class frmTRInfo;
}

/// Editor of one pair of a task and a resource. What is typed is never dropped in silence: OK and
/// Stop asking store it or stay and say why not, Escape takes it back first and closes second, and
/// the close box asks.
class frmTRInfo : public EditorDialog {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(frmTRInfo)

  public:
    frmTRInfo(MainForm& form, EditHistory& history, QWidget* parent);
    ~frmTRInfo() override;

    /// Fills the window for the pair. Throws NoCurrentRecord when one of them does not exist.
    void FetchInfo(std::int16_t task, std::int16_t resource);

    /// Shows which of how many pairs this is ("3 of 200") and offers to stop there.
    void ShowPlaceInWalk(const std::string& place);

    /// What storing is called as an undo step.
    void SetStepName(std::string name) { m_stepName = std::move(name); }

    /// Whether a task time above 0 was stored.
    [[nodiscard]] bool StoredUsableTime() const { return m_storedUsableTime; }

    /// Whether the walk is to end here.
    [[nodiscard]] bool StopsWalk() const { return m_stopsWalk; }

  protected:
    void ShowAgain() override { FetchInfo(m_pair.Task, m_pair.Resource); }
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void StoreAndClose();
    void StopAsking();
    [[nodiscard]] bool Store();
    void TakeBack();
    void MakeRoom();

    std::unique_ptr<Ui::frmTRInfo> m_ui;
    RecordBoxes* m_boxes;
    TaskResource m_pair{};
    PairTexts m_stored;
    std::string m_stepName;
    bool m_storedUsableTime = false;
    bool m_stopsWalk = false;
};

}  // namespace quarnel02
