#pragma once

#include <memory>

#include "commands/PairRecord.h"
#include "editors/EditorDialog.h"

namespace quarnel02 {

class RecordBoxes;

namespace Ui {
class frmTRInfo;
}

/// Editor of one pair of a task and a resource.
class frmTRInfo : public EditorDialog {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(frmTRInfo)

  public:
    frmTRInfo(MainForm& form, EditHistory& history, QWidget* parent);
    ~frmTRInfo() override;

    /// Fills the window for the pair. Throws NoCurrentRecord when one of them does not exist.
    void FetchInfo(std::int16_t task, std::int16_t resource);

    /// Whether a task time above 0 was stored.
    [[nodiscard]] bool StoredUsableTime() const { return m_storedUsableTime; }

  private:
    void StoreAndClose();

    std::unique_ptr<Ui::frmTRInfo> m_ui;
    RecordBoxes* m_boxes;
    TaskResource m_pair{};
    bool m_storedUsableTime = false;
};

}  // namespace quarnel02
