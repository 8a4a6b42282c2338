#pragma once

#include <memory>
#include <optional>

#include "studies/LineStudy.h"
#include "studies/StudyPage.h"

namespace quarnel02 {

namespace Ui {
class LinePage;
}

/// The line of the design: its stations, and how their figures are computed.
class LinePage : public StudyPage {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LinePage)

  public:
    explicit LinePage(QWidget* parent = nullptr);
    ~LinePage() override;

  protected:
    BackgroundWork::Work Work(const StudyInput& input) override;
    [[nodiscard]] std::vector<StudyTableView*> AllTables() const override;
    [[nodiscard]] std::vector<StudyPicture*> AllPictures() const override;

  private:
    void Show(const StudyInput& input, const LineStudy& study);
    void ShowHow();

    std::unique_ptr<Ui::LinePage> m_ui;
    std::optional<StudyInput> m_shown;
    LineStudy m_study;
};

}  // namespace quarnel02
