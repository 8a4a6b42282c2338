#include "studies/VolumesPage.h"

#include <algorithm>

#include "basic/NumberFormat.h"
#include "basic/RunTimeError.h"
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
    for (QCheckBox* box :
         {m_ui->chkShift_1, m_ui->chkShift_2, m_ui->chkShift_3, m_ui->chkOnlyBest}) {
        connect(box, &QCheckBox::toggled, this, &VolumesPage::ShowFiltered);
    }
    ShowSpan();
    ConnectTables();
}

VolumesPage::~VolumesPage() = default;

std::vector<StudyTableView*> VolumesPage::AllTables() const {
    return {m_ui->tblVolumes};
}

void VolumesPage::ConnectBox(FieldBox& box) {
    LimitWidth(box);
    connect(&box, &FieldBox::Entered, this, &VolumesPage::TakeSpan);
    connect(&box, &FieldBox::Left, this, &VolumesPage::TakeSpan);
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

void VolumesPage::TakeSpan() {
    VolumeSpan span;
    try {
        span.From = TypedVolume(m_ui->txtFrom->text(), "From");
        span.To = TypedVolume(m_ui->txtTo->text(), "To");
        span.StationLimit = TypedLimit(m_ui->txtRangeLimit->text());
    } catch (const RunTimeError& error) {
        m_ui->lblRangeProblem->setText(QString::fromUtf8(error.what()));
        m_ui->lblRangeProblem->show();
        return;
    }
    if (span.From > span.To) {
        std::swap(span.From, span.To);
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
    return [this, input, span = m_span](const std::stop_token& /*stop*/) -> BackgroundWork::Show {
        VolumeOutcome outcome{input, VolumeRanges(*input.Line, span), {}};
        if (outcome.Ranges.empty()) {
            outcome.WhyNone = NoRangeText(*input.Line, span);
        }
        return [this, outcome = std::move(outcome)] { Show(outcome); };
    };
}

void VolumesPage::Show(const VolumeOutcome& outcome) {
    m_shown = outcome;
    ShowContents();
    ShowFiltered();
}

VolumeFilter VolumesPage::Filter() const {
    return {{m_ui->chkShift_1->isChecked(), m_ui->chkShift_2->isChecked(),
             m_ui->chkShift_3->isChecked()},
            m_ui->chkOnlyBest->isChecked()};
}

/// Without any range the controls stay, which may find one.
void VolumesPage::ShowFiltered() {
    if (!m_shown) {
        return;
    }
    m_ui->lblRanges->setText(m_shown->Ranges.empty()
                                 ? QString::fromStdString(m_shown->WhyNone)
                                 : QStringLiteral("Where the best line changes"));
    m_ui->tblVolumes->SetTable(
        TableOf(m_shown->Input.Model(), Filtered(m_shown->Ranges, Filter())));
}

}  // namespace quarnel02
