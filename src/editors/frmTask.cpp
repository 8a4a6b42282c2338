#include "editors/frmTask.h"

#include "commands/TaskRecords.h"
#include "ui_frmTask.h"

namespace quarnel02 {

frmTask::frmTask(MainForm& form, EditHistory& history, QWidget* parent)
    : RecordForm(form, history, TaskTable(), parent), m_ui(std::make_unique<Ui::frmTask>()) {
    m_ui->setupUi(this);
    m_ui->txtDescription->setMinimumWidth(40 * fontMetrics().averageCharWidth());
    auto* boxes =
        new RecordBoxes("Tasks", {{m_ui->txtTask, "TaskId"}, {m_ui->txtDescription, "Description"}},
                        m_ui->cmdSave, this);
    Begin({m_ui->cmdFirst, m_ui->cmdTask_0, m_ui->cmdTask_1, m_ui->cmdLast, m_ui->txtGoTo,
           m_ui->cmdAddNew, m_ui->cmdSave, m_ui->cmdDelete, m_ui->cmdOK, m_ui->lblInfo,
           m_ui->pnlRecord, m_ui->pnlSheet},
          *boxes, {0, 1}, *m_ui->txtDescription);
}

frmTask::~frmTask() = default;

void frmTask::DeleteCurrent() {
    DeleteTask(Records());
}

}  // namespace quarnel02
