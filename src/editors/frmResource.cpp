#include "editors/frmResource.h"

#include "commands/ResourceRecords.h"
#include "ui_frmResource.h"

namespace quarnel02 {

namespace {

constexpr int kTypeColumn = 3;

}  // namespace

frmResource::frmResource(MainForm& form, EditHistory& history, QWidget* parent)
    : RecordForm(form, history, ResourceTable(), parent),
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
                                  m_ui->picRes, this);
    connect(m_ui->picRes, &TypePicture::Entered, m_ui->cmdSave,
            [this] { m_ui->cmdSave->setFocus(Qt::TabFocusReason); });
    connect(m_ui->picRes, &TypePicture::Typed, this,
            [this](const QString& text) { TypeType(text); });
    connect(m_ui->picRes, &TypePicture::Stepped, this, [this](int step) { StepType(step); });
    connect(m_ui->cmdType_0, &QPushButton::clicked, this, [this] { StepType(-1); });
    connect(m_ui->cmdType_1, &QPushButton::clicked, this, [this] { StepType(1); });
    Begin({m_ui->cmdFirst, m_ui->cmdRes_0, m_ui->cmdRes_1, m_ui->cmdLast, m_ui->txtGoTo,
           m_ui->cmdAddNew, m_ui->cmdSave, m_ui->cmdDelete, m_ui->cmdOK, m_ui->lblInfo,
           m_ui->pnlRecord, m_ui->pnlSheet},
          *boxes, {0, 2, 1, 4, 5, 6, 7, 8, 9}, *m_ui->txtDescription);
}

frmResource::~frmResource() = default;

void frmResource::ShowCurrent(bool keepTyped) {
    const bool any = Records().Place() > 0;
    const bool typed = keepTyped && m_ui->picRes->Tag() != m_storedType;
    for (QWidget* part :
         std::initializer_list<QWidget*>{m_ui->picRes, m_ui->cmdType_0, m_ui->cmdType_1}) {
        part->setEnabled(any);
    }
    m_storedType = any ? QString::fromStdString(Records().Text(kTypeColumn)) : m_ui->picRes->Tag();
    if (!typed) {
        m_ui->picRes->SetTag(m_storedType);
    }
    RecordForm::ShowCurrent(keepTyped);
    ShowType();
}

/// A code that is none of the four leaves what is shown.
void frmResource::ShowType() {
    if (const auto type = TypeOfCode(m_ui->picRes->Tag().toStdString())) {
        m_ui->picRes->SetPicture(type->Type);
        m_ui->picRes->setToolTip(QString::fromUtf8(type->Help));
        m_ui->lblResType->setText(QString::fromUtf8(type->Label));
    }
}

/// The new class is not saved yet.
void frmResource::SetType(const QString& code) {
    m_ui->picRes->SetTag(code);
    ShowType();
    ShowState();
}

void frmResource::StepType(int step) {
    RunEvent([&] {
        SetType(QString::fromStdString(NextTypeCode(m_ui->picRes->Tag().toStdString(), step)));
    });
}

/// By the first letter of its label; any other text changes nothing.
void frmResource::TypeType(const QString& text) {
    if (const auto code = TypeCode(text.toStdString())) {
        SetType(QString::number(*code));
    }
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
