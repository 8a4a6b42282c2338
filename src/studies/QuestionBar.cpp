#include "studies/QuestionBar.h"

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "studies/TypedFigures.h"
#include "study/FigureText.h"
#include "ui_QuestionBar.h"
#include "widgets/FieldBox.h"

namespace quarnel02 {

namespace {

/// 0 for an empty text: no volume is known.
double TypedDemand(const QString& text) {
    if (text.trimmed().isEmpty()) {
        return 0;
    }
    const double volume = TextToDouble(text.toStdString(), "Volume");
    if (volume <= 0) {
        throw RunTimeError(ErrorKind::Overflow,
                           "Volume is " + text.trimmed().toStdString() + "; it must be above 0.");
    }
    return volume;
}

}  // namespace

QuestionBar::QuestionBar(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::QuestionBar>()) {
    m_ui->setupUi(this);
    m_ui->lblProblem->hide();
    ConnectBox(*m_ui->txtStudyVolume);
    ConnectBox(*m_ui->txtLimit);
    for (QComboBox* box : {m_ui->cboDesign, m_ui->cboShifts}) {
        connect(box, &QComboBox::activated, this, &QuestionBar::Take);
    }
}

QuestionBar::~QuestionBar() = default;

void QuestionBar::ConnectBox(FieldBox& box) const {
    LimitWidth(box);
    connect(&box, &FieldBox::Entered, this, &QuestionBar::Take);
    connect(&box, &FieldBox::Left, this, &QuestionBar::Take);
}

void QuestionBar::SetQuestion(const StudyQuestion& question) {
    m_question = question;
    const FixedDemandRequest& request = question.Request;
    m_ui->cboDesign->setCurrentIndex(question.Expected ? 1 : 0);
    m_ui->txtStudyVolume->setText(
        request.Volume > 0 ? QString::fromStdString(FigureText(request.Volume)) : QString());
    m_ui->cboShifts->setCurrentIndex(request.Shifts - 1);
    m_ui->txtLimit->setText(LimitText(request.StationLimit));
    for (QWidget* box :
         {static_cast<QWidget*>(m_ui->txtStudyVolume), static_cast<QWidget*>(m_ui->cboShifts),
          static_cast<QWidget*>(m_ui->txtLimit)}) {
        box->setEnabled(!question.Expected);
    }
    m_ui->lblProblem->hide();
}

StudyQuestion QuestionBar::Typed() const {
    return {m_ui->cboDesign->currentIndex() == 1,
            {TypedDemand(m_ui->txtStudyVolume->text()),
             static_cast<std::int16_t>(m_ui->cboShifts->currentIndex() + 1),
             TypedLimit(m_ui->txtLimit->text())}};
}

void QuestionBar::Take() {
    StudyQuestion typed;
    try {
        typed = Typed();
    } catch (const RunTimeError& error) {
        m_ui->lblProblem->setText(QString::fromUtf8(error.what()));
        m_ui->lblProblem->show();
        return;
    }
    const bool other = !(typed == m_question);
    SetQuestion(typed);
    if (other) {
        emit Changed();
    }
}

}  // namespace quarnel02
