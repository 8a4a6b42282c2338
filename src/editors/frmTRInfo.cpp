#include "editors/frmTRInfo.h"

#include <QCloseEvent>
#include <QLayout>

#include "editors/RecordBoxes.h"
#include "ui_frmTRInfo.h"
#include "widgets/Dialogs.h"
#include "widgets/HeldKeys.h"

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
    connect(m_ui->cmdStop, &QPushButton::clicked, this, [this] { StopAsking(); });
    m_ui->lblWalk->hide();
    m_ui->cmdStop->hide();
}

frmTRInfo::~frmTRInfo() = default;

void frmTRInfo::FetchInfo(std::int16_t task, std::int16_t resource) {
    m_pair = {task, resource};
    m_stored = FetchPair(Form(), m_pair);
    m_ui->lblResource->setText(QString::fromStdString(m_stored.Resource));
    m_ui->lblTask->setText(QString::fromStdString(m_stored.Task));
    TakeBack();
    MakeRoom();
}

void frmTRInfo::ShowPlaceInWalk(const std::string& place) {
    m_ui->lblWalk->setText(QString::fromStdString(place));
    m_ui->lblWalk->show();
    m_ui->cmdStop->show();
    MakeRoom();
}

void frmTRInfo::TakeBack() {
    m_boxes->Show({m_stored.Data.begin(), m_stored.Data.end()});
    m_ui->txtTaskInfo_0->setFocus(Qt::OtherFocusReason);
    m_ui->txtTaskInfo_0->selectAll();
}

/// Layouts ask a window for the height of one line of a label that wraps.
void frmTRInfo::MakeRoom() {
    layout()->activate();
    setMinimumHeight(layout()->totalMinimumHeightForWidth(width()));
}

void frmTRInfo::resizeEvent(QResizeEvent* event) {
    EditorDialog::resizeEvent(event);
    MakeRoom();
}

void frmTRInfo::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && !IsRepeated(*event) && m_boxes->AnyUnsaved()) {
        TakeBack();
    } else {
        EditorDialog::keyPressEvent(event);
    }
}

void frmTRInfo::closeEvent(QCloseEvent* event) {
    if (m_boxes->AnyUnsaved() && !AskYesNoBox(this, "Close without storing what was typed?",
                                              MessageIcon::Question, Answer::No)) {
        event->ignore();
    } else {
        EditorDialog::closeEvent(event);
    }
}

bool frmTRInfo::Store() {
    const bool stored = RunEvent([&] {
        const std::vector<FieldValue> values = m_boxes->Values();
        StorePair(Form(), m_pair, values);
        History().Note(m_stepName);
        m_storedUsableTime = std::get<double>(values.front().Content) > 0;
    });
    if (!stored) {
        m_boxes->FocusRefused();
    }
    return stored;
}

/// Boxes that were left as they came, one of them empty, store nothing.
void frmTRInfo::StoreAndClose() {
    if (m_boxes->AnyEmpty() && !m_boxes->AnyUnsaved()) {
        reject();
    } else if (Store()) {
        accept();
    }
}

void frmTRInfo::StopAsking() {
    if (!m_boxes->AnyUnsaved()) {
        m_stopsWalk = true;
        reject();
    } else if (Store()) {
        m_stopsWalk = true;
        accept();
    }
}

}  // namespace quarnel02
