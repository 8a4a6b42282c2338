#include "studies/SensitivityPage.h"

#include "charts/BreakEvenBars.h"
#include "charts/Tornado.h"
#include "studies/StudyPicture.h"
#include "studies/StudyTableView.h"
#include "ui_SensitivityPage.h"

namespace quarnel02 {

SensitivityPage::SensitivityPage(QWidget* parent)
    : StudyPage(parent), m_ui(std::make_unique<Ui::SensitivityPage>()) {
    m_ui->setupUi(Contents());
    m_ui->splPictures->setSizes({500, 500});
    m_ui->splSensitivity->setSizes({620, 380});
    connect(m_ui->spnShare, &QSpinBox::valueChanged, this, [this] { Recompute(); });
    ConnectParts();
}

SensitivityPage::~SensitivityPage() = default;

std::vector<StudyTableView*> SensitivityPage::AllTables() const {
    return {m_ui->tblSensitivity};
}

std::vector<StudyPicture*> SensitivityPage::AllPictures() const {
    return {m_ui->picTornado, m_ui->picBreakEvens};
}

BackgroundWork::Work SensitivityPage::Work(const StudyInput& input) {
    constexpr double percent = 0.01;
    const double share = percent * m_ui->spnShare->value();
    return [this, input, share](const StudyWatch& watch) -> BackgroundWork::Show {
        SensitivityStudy study = StudySensitivity(input, share, watch);
        if (study.Figures.Rows.empty()) {
            return [this, text = NoLineText(input)] { ShowText(text); };
        }
        return [this, study = std::move(study)] { Show(study); };
    };
}

void SensitivityPage::Show(const SensitivityStudy& study) {
    m_ui->lblFlips->setText(QString::fromStdString(study.Flips));
    m_ui->lblFlips->setVisible(!study.Flips.empty());
    m_ui->tblSensitivity->SetTable(study.Figures);
    m_ui->picTornado->Draw([&](Picture& picture) { DrawTornado(picture, study.Rows, study.Cost); });
    m_ui->picBreakEvens->Draw([&](Picture& picture) { DrawBreakEvens(picture, study.Rows); });
    m_ui->picBreakEvens->setVisible(!m_ui->picBreakEvens->Shown().Figures().empty());
    ShowContents();
}

}  // namespace quarnel02
