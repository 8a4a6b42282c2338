#include "studies/AlternativesPage.h"

#include "studies/StudyPicture.h"
#include "studies/StudyTableView.h"
#include "ui_AlternativesPage.h"

namespace quarnel02 {

AlternativesPage::AlternativesPage(QWidget* parent)
    : StudyPage(parent), m_ui(std::make_unique<Ui::AlternativesPage>()) {
    m_ui->setupUi(Contents());
    m_ui->splSelected->setSizes({1, 1});
    connect(m_ui->tblBest, &StudyTableView::RowChanged, this, &AlternativesPage::ShowDetails);
    ConnectParts();
}

AlternativesPage::~AlternativesPage() = default;

std::vector<StudyTableView*> AlternativesPage::AllTables() const {
    return {m_ui->tblBest, m_ui->tblDetails};
}

std::vector<StudyPicture*> AlternativesPage::AllPictures() const {
    return {m_ui->picBest};
}

BackgroundWork::Work AlternativesPage::Work(const StudyInput& input) {
    return [this, input](const StudyWatch& watch) -> BackgroundWork::Show {
        AlternativesStudy study = StudyAlternatives(input, watch);
        if (study.Details.empty()) {
            return [this, text = NoLineText(input)] { ShowText(text); };
        }
        return [this, study = std::move(study), expected = input.Question.Expected] {
            Show(study, expected);
        };
    };
}

void AlternativesPage::Show(const AlternativesStudy& study, bool expected) {
    m_study = study;
    m_ui->lblBest->setText(expected ? QStringLiteral("The best capacities")
                                    : QStringLiteral("The cheapest lines"));
    m_ui->lblDetails->setText(
        expected ? QStringLiteral("What the selected capacity does with each demand row")
                 : QStringLiteral("Next best resource for the tasks of each station of the "
                                  "selected line"));
    m_ui->tblBest->SetTable(study.Best);
    m_ui->picBest->Draw([&](Picture& picture) {
        expected ? DrawCapacities(picture, study.ExpectedCosts, study.Marks)
                 : DrawCostBars(picture, study.Bars, {"Cost of the cheapest lines", "Rank"});
    });
    ShowContents();
}

void AlternativesPage::ShowDetails() {
    const std::size_t row = m_ui->tblBest->Row();
    if (row < m_study.Details.size()) {
        m_ui->tblDetails->SetTable(m_study.Details[row]);
    }
}

}  // namespace quarnel02
