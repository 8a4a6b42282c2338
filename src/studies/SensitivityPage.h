#pragma once

#include <memory>

#include "studies/SensitivityStudy.h"
#include "studies/StudyPage.h"

namespace quarnel02 {

namespace Ui {
class SensitivityPage;
}

/// What every figure does to the cost of the best line when it is a share lower or higher.
class SensitivityPage : public StudyPage {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SensitivityPage)

  public:
    explicit SensitivityPage(QWidget* parent = nullptr);
    ~SensitivityPage() override;

  protected:
    BackgroundWork::Work Work(const StudyInput& input) override;
    [[nodiscard]] std::vector<StudyTableView*> AllTables() const override;
    [[nodiscard]] std::vector<StudyPicture*> AllPictures() const override;

  private:
    void Show(const SensitivityStudy& study);

    std::unique_ptr<Ui::SensitivityPage> m_ui;
};

}  // namespace quarnel02
