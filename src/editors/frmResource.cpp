#include "editors/frmResource.h"

#include "commands/ResourceRecords.h"
#include "ui_frmResource.h"

namespace quarnel02 {

namespace {

constexpr int kTypeColumn = 3;

}  // namespace

frmResource::frmResource(MainForm& form, EditHistory& history, QWidget* parent)
    : RecordForm(form, history, ResourceTable(), "resource", parent),
      m_ui(std::make_unique<Ui::frmResource>()) {
    m_ui->setupUi(this);
    m_ui->txtDescription->setMinimumWidth(36 * fontMetrics().averageCharWidth());
    auto* boxes = new RecordBoxes("Resources",
                                  {{m_ui->txtResource, "ResourceId"},
                                   {m_ui->txtDescription, "Description"},
                                   {m_ui->txtShortName, "ShortName"},
                                   {m_ui->txtFixedCost, "FixedCost"},
                                   {m_ui->txtVarCost, "VarCost"},
                                   {m_ui->txtUptime, "UpTime"},
                                   {m_ui->txtICF, "ICF"},
                                   {m_ui->txtTCT, "ToolChange"},
                                   {m_ui->txtStations, "StatPerWrk"}},
                                  m_ui->cmdSave, this);
    connect(m_ui->cmdType_0, &QPushButton::clicked, this, [this] { StepType(-1); });
    connect(m_ui->cmdType_1, &QPushButton::clicked, this, [this] { StepType(1); });
    Begin({m_ui->cmdRes_0, m_ui->cmdRes_1, m_ui->cmdAddNew, m_ui->cmdSave, m_ui->cmdDelete,
           m_ui->cmdOK},
          *boxes, {0, 2, 1, 4, 5, 6, 7, 8, 9}, *m_ui->txtDescription, *m_ui->lblInfo);
}

frmResource::~frmResource() = default;

void frmResource::ShowCurrent() {
    const bool any = Records().Count() > 0;
    m_ui->cmdType_0->setEnabled(any);
    m_ui->cmdType_1->setEnabled(any);
    if (any) {
        m_storedType = QString::fromStdString(Records().Text(kTypeColumn));
        m_ui->picRes->SetTag(m_storedType);
    }
    RecordForm::ShowCurrent();
    ShowType();
}

/// A code that is none of the four leaves what is shown.
void frmResource::ShowType() {
    if (const auto type = TypeOfCode(m_ui->picRes->Tag().toStdString())) {
        m_ui->picRes->SetPicture(type->Type);
        m_ui->picRes->setToolTip(QString::fromLatin1(type->Help));
        m_ui->lblResType->setText(QString::fromLatin1(type->Label));
    }
}

/// The new class reaches the store with Save.
void frmResource::StepType(int step) {
    RunEvent([&] {
        const std::string code = NextTypeCode(m_ui->picRes->Tag().toStdString(), step);
        m_ui->picRes->SetTag(QString::fromStdString(code));
        ShowType();
        ShowState();
    });
}

std::vector<FieldValue> frmResource::Values() {
    std::vector<FieldValue> values = RecordForm::Values();
    values.push_back(
        {"Type", ConvertTo(FieldType::Integer, m_ui->picRes->Tag().toStdString(), "Type")});
    return values;
}

bool frmResource::IsUnsaved() const {
    return RecordForm::IsUnsaved() || m_ui->picRes->Tag() != m_storedType;
}

}  // namespace quarnel02
