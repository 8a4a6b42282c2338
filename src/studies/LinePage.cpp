#include "studies/LinePage.h"

#include "charts/StationLoad.h"
#include "studies/StudyPicture.h"
#include "studies/StudyTableView.h"
#include "ui_LinePage.h"

namespace quarnel02 {

LinePage::LinePage(QWidget* parent) : StudyPage(parent), m_ui(std::make_unique<Ui::LinePage>()) {
    m_ui->setupUi(Contents());
    connect(m_ui->tblLine, &StudyTableView::RowChanged, this, &LinePage::ShowHow);
    ConnectParts();
}

LinePage::~LinePage() = default;

std::vector<StudyTableView*> LinePage::AllTables() const {
    return {m_ui->tblLine};
}

std::vector<StudyPicture*> LinePage::AllPictures() const {
    return {m_ui->picLoad};
}

BackgroundWork::Work LinePage::Work(const StudyInput& input) {
    return [this, input](const StudyWatch& watch) -> BackgroundWork::Show {
        if (auto study = StudyLine(input, watch)) {
            return [this, input, study = std::move(*study)] { Show(input, study); };
        }
        return [this, text = NoLineText(input)] { ShowText(text); };
    };
}

void LinePage::Show(const StudyInput& input, const LineStudy& study) {
    m_shown = input;
    m_study = study;
    m_ui->lblSummary->setText(QString::fromStdString(SummaryOf(study)));
    m_ui->tblLine->SetTable(TableOf(input.Model(), study));
    m_ui->picLoad->Draw(
        [&](Picture& picture) { DrawStationLoad(picture, input.Model(), study.Table); });
    ShowContents();
}

void LinePage::ShowHow() {
    if (m_shown) {
        m_ui->txtHow->setPlainText(
            QString::fromStdString(HowComputedAt(m_shown->Model(), m_study, m_ui->tblLine->Row())));
    }
}

}  // namespace quarnel02
