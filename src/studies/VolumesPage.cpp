#include "studies/VolumesPage.h"

#include <algorithm>

#include "basic/NumberFormat.h"
#include "basic/RunTimeError.h"
#include "studies/StudyPicture.h"
#include "studies/StudyTableView.h"
#include "studies/TypedFigures.h"
#include "ui_VolumesPage.h"
#include "widgets/FieldBox.h"

namespace quarnel02 {

VolumesPage::VolumesPage(QWidget* parent)
    : StudyPage(parent), m_ui(std::make_unique<Ui::VolumesPage>()), m_span(SpanAround(0)) {
    m_ui->setupUi(Contents());
    m_ui->lblRangeProblem->hide();
    for (FieldBox* box : {m_ui->txtFrom, m_ui->txtTo, m_ui->txtRangeLimit}) {
        ConnectBox(*box);
    }
    for (QCheckBox* box : TypeBoxes()) {
        box->setEnabled(false);
        connect(box, &QCheckBox::toggled, this, &VolumesPage::ShowFiltered);
    }
    for (QCheckBox* box :
         {m_ui->chkShift_1, m_ui->chkShift_2, m_ui->chkShift_3, m_ui->chkOnlyBest}) {
        connect(box, &QCheckBox::toggled, this, &VolumesPage::ShowFiltered);
    }
    ShowSpan();
    connect(m_ui->cboCost, &QComboBox::activated, this, &VolumesPage::ShowFiltered);
    ConnectParts();
}

VolumesPage::~VolumesPage() = default;

std::vector<StudyTableView*> VolumesPage::AllTables() const {
    return {m_ui->tblVolumes};
}

std::vector<StudyPicture*> VolumesPage::AllPictures() const {
    return {m_ui->picVolumes};
}

void VolumesPage::ConnectBox(FieldBox& box) const {
    LimitWidth(box);
    connect(&box, &FieldBox::Entered, this, &VolumesPage::TakeSpan);
    connect(&box, &FieldBox::Left, this, &VolumesPage::TakeSpan);
}

std::string VolumesPage::SubjectOf(const StudyInput& /*input*/) const {
    return "Cheapest lines for " + Format(m_span.From, "#,##0") + " to " +
           Format(m_span.To, "#,##0") + " units a year, station limit " +
           LimitText(m_span.StationLimit).toStdString() + ".";
}

void VolumesPage::InputChanged(const StudyInput& input) {
    if (!m_spanChosen) {
        const auto limit = m_span.StationLimit;
        m_span = SpanAround(input.Question.Request.Volume);
        m_span.StationLimit = limit;
    }
    if (!m_limitChosen) {
        m_span.StationLimit = input.Question.Request.StationLimit;
    }
    ShowSpan();
}

void VolumesPage::ShowSpan() {
    m_ui->txtFrom->setText(QString::fromStdString(Format(m_span.From, "#,##0")));
    m_ui->txtTo->setText(QString::fromStdString(Format(m_span.To, "#,##0")));
    m_ui->txtRangeLimit->setText(LimitText(m_span.StationLimit));
    m_ui->lblRangeProblem->hide();
}

VolumeSpan VolumesPage::Typed() const {
    const VolumeSpan span{TypedVolume(m_ui->txtFrom->text(), "From"),
                          TypedVolume(m_ui->txtTo->text(), "To"),
                          TypedLimit(m_ui->txtRangeLimit->text())};
    if (span.From > span.To) {
        throw RunTimeError(ErrorKind::Overflow, "The range is from " + Format(span.From, "#,##0") +
                                                    " to " + Format(span.To, "#,##0") +
                                                    " units; its end must not lie below.");
    }
    return span;
}

void VolumesPage::TakeSpan() {
    VolumeSpan span;
    try {
        span = Typed();
    } catch (const RunTimeError& error) {
        m_ui->lblRangeProblem->setText(QString::fromUtf8(error.what()));
        m_ui->lblRangeProblem->show();
        return;
    }
    const bool other_span = span.From != m_span.From || span.To != m_span.To;
    const bool other_limit = span.StationLimit != m_span.StationLimit;
    m_spanChosen = m_spanChosen || other_span;
    m_limitChosen = m_limitChosen || other_limit;
    m_span = span;
    ShowSpan();
    if (other_span || other_limit) {
        Recompute();
    }
}

BackgroundWork::Work VolumesPage::Work(const StudyInput& input) {
    return [this, input, span = m_span](const StudyWatch& watch) -> BackgroundWork::Show {
        return [this, outcome = VolumeOutcome{input, StudyVolumes(*input.Line, span, watch)}] {
            Show(outcome);
        };
    };
}

void VolumesPage::Show(const VolumeOutcome& outcome) {
    m_shown = outcome;
    OfferTypes();
    ShowContents();
    ShowFiltered();
}

std::array<QCheckBox*, kEquipmentClasses> VolumesPage::TypeBoxes() const {
    return {m_ui->chkType_0, m_ui->chkType_1, m_ui->chkType_2, m_ui->chkType_3};
}

/// Classes that no line can be made of alone are not offered.
void VolumesPage::OfferTypes() {
    const auto& possible = m_shown->Study.ByType;
    const auto boxes = TypeBoxes();
    for (std::size_t type = 0; type < boxes.size(); ++type) {
        boxes.at(type)->setEnabled(
            std::any_of(possible.begin(), possible.end(), [&](const TypeRanges& one) {
                return one.Type == static_cast<int>(type) && !one.Ranges.empty();
            }));
    }
}

VolumeFilter VolumesPage::Filter() const {
    VolumeFilter filter{{m_ui->chkShift_1->isChecked(), m_ui->chkShift_2->isChecked(),
                         m_ui->chkShift_3->isChecked()},
                        m_ui->chkOnlyBest->isChecked(),
                        {}};
    const auto boxes = TypeBoxes();
    std::transform(boxes.begin(), boxes.end(), filter.Types.begin(),
                   [](const QCheckBox* box) { return box->isChecked() && box->isEnabled(); });
    return filter;
}

/// Without any range the controls stay, which may find one.
void VolumesPage::ShowFiltered() {
    if (!m_shown) {
        return;
    }
    const VolumeStudy& study = m_shown->Study;
    m_ui->lblRanges->setText(study.Ranges.empty() ? QString::fromStdString(study.WhyNone)
                                                  : QStringLiteral("Where the best line changes"));
    const LineModel& model = m_shown->Input.Model();
    const VolumeFilter filter = Filter();
    m_ui->tblVolumes->SetTable(TableOf(model, study, filter));
    const auto shown = m_ui->cboCost->currentIndex() == 0 ? VolumeCost::Total : VolumeCost::PerUnit;
    m_ui->picVolumes->Draw([&](Picture& picture) {
        DrawVolumes(picture, CurvesOf(model, study, filter), shown, AskedVolumes(m_shown->Input));
    });
}

}  // namespace quarnel02
