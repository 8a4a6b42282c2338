#include "editors/frmTRInfo.h"

#include "editors/RecordBoxes.h"
#include "ui_frmTRInfo.h"

namespace quarnel02 {

frmTRInfo::frmTRInfo(MainForm& form, EditHistory& history, QWidget* parent)
    : EditorDialog(form, history, parent), m_ui(std::make_unique<Ui::frmTRInfo>()) {
    m_ui->setupUi(this);
    setMinimumWidth(48 * fontMetrics().averageCharWidth());
    m_boxes = new RecordBoxes("Matrix",
                              {{m_ui->txtTaskInfo_0, "TaskTime"},
                               {m_ui->txtTaskInfo_1, "ToolNum"},
                               {m_ui->txtTaskInfo_2, "ToolCost"}},
                              m_ui->cmdOK, this);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, [this] { StoreAndClose(); });
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmTRInfo::~frmTRInfo() = default;

void frmTRInfo::FetchInfo(std::int16_t task, std::int16_t resource) {
    m_pair = {task, resource};
    const PairTexts texts = FetchPair(Form(), m_pair);
    m_ui->lblResource->setText(QString::fromStdString(texts.Resource));
    m_ui->lblTask->setText(QString::fromStdString(texts.Task));
    m_boxes->Show({texts.Data.begin(), texts.Data.end()});
    m_ui->txtTaskInfo_0->setFocus();
}

/// With an empty box nothing is stored.
void frmTRInfo::StoreAndClose() {
    if (m_boxes->AnyEmpty()) {
        reject();
        return;
    }
    const bool stored = RunEvent([&] {
        const std::vector<FieldValue> values = m_boxes->Values();
        StorePair(Form(), m_pair, values);
        m_storedUsableTime = std::get<double>(values.front().Content) > 0;
    });
    if (stored) {
        accept();
    } else {
        m_boxes->FocusRefused();
    }
}

}  // namespace quarnel02
