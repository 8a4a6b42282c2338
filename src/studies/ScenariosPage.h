#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "studies/StudyPage.h"
#include "study/Scenarios.h"

namespace quarnel02 {

class FieldBox;
class ScenarioSheet;

namespace Ui {
class ScenariosPage;
}

/// The scenarios of the model: solved side by side, and one of them to be edited. It stores
/// nothing itself.
class ScenariosPage : public StudyPage {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ScenariosPage)

  public:
    explicit ScenariosPage(QWidget* parent = nullptr);
    ~ScenariosPage() override;

    /// Shows again what is stored, after what was asked for could not be.
    void ShowStored();

  signals:
    /// The model shall keep these scenarios; `step` names the change.
    void Edited(const std::string& step, const std::vector<quarnel02::Scenario>& scenarios);

  protected:
    BackgroundWork::Work Work(const StudyInput& input) override;
    [[nodiscard]] std::vector<StudyTableView*> AllTables() const override;
    [[nodiscard]] std::vector<StudyPicture*> AllPictures() const override;
    void InputChanged(const StudyInput& input) override;

  private:
    /// What the boxes of one scenario were filled from.
    struct Shown {
        std::shared_ptr<const PreparedLine> Line;
        StudyQuestion Question;
        std::optional<Scenario> Edited;  ///< none: the base

        bool operator==(const Shown&) const = default;
    };

    void ConnectButtons();
    void ConnectBoxes();
    void ShowResults();
    void ShowBases();
    void ShowSelected();
    void FillBoxes(const std::optional<Scenario>& scenario);
    void FillSheet(const Scenario& scenario);
    void Explain(const std::string& text);
    [[nodiscard]] std::vector<std::optional<ScenarioOutcome>> Known() const;
    [[nodiscard]] std::optional<std::size_t> Selected() const;
    [[nodiscard]] const std::vector<Scenario>& Scenarios() const;
    void Add(const std::string& name, const std::string& differences);
    void KeepPresent();
    void Duplicate();
    void Delete();
    void Rename();
    void TakeText();
    void Change(std::size_t place, const Scenario& scenario, const std::string& verb);
    void Store(const std::string& step, const std::vector<Scenario>& scenarios, std::size_t row);

    std::unique_ptr<Ui::ScenariosPage> m_ui;
    ScenarioSheet* m_sheet;
    std::optional<StudyInput> m_input;
    std::vector<Scenario> m_solved;           ///< whose outcomes are known
    std::vector<ScenarioOutcome> m_outcomes;  ///< of the base, then of m_solved
    std::optional<Shown> m_shown;
};

}  // namespace quarnel02
