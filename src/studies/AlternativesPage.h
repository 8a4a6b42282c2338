#pragma once

#include <memory>

#include "studies/AlternativesStudy.h"
#include "studies/StudyPage.h"

namespace quarnel02 {

namespace Ui {
class AlternativesPage;
}

/// The ten cheapest lines, or best capacities, and what belongs to the selected one.
class AlternativesPage : public StudyPage {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AlternativesPage)

  public:
    explicit AlternativesPage(QWidget* parent = nullptr);
    ~AlternativesPage() override;

  protected:
    BackgroundWork::Work Work(const StudyInput& input) override;
    [[nodiscard]] std::vector<StudyTableView*> AllTables() const override;
    [[nodiscard]] std::vector<StudyPicture*> AllPictures() const override;

  private:
    void Show(const AlternativesStudy& study, bool expected);
    void ShowDetails();

    std::unique_ptr<Ui::AlternativesPage> m_ui;
    AlternativesStudy m_study;
};

}  // namespace quarnel02
