#pragma once

#include <memory>

#include "editors/RecordForm.h"

namespace quarnel02 {

namespace Ui {
class frmTask;
}

/// Editor of the tasks in their assembly order.
class frmTask : public RecordForm {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(frmTask)

  public:
    /// Opens the tasks of the working copy; throws what that throws.
    frmTask(MainForm& form, EditHistory& history, QWidget* parent);
    ~frmTask() override;

  protected:
    void DeleteCurrent() override;

  private:
    std::unique_ptr<Ui::frmTask> m_ui;
};

}  // namespace quarnel02
