#include "studies/ScenariosPage.h"

#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "basic/RunTimeError.h"
#include "studies/ScenarioSheet.h"
#include "studies/ScenarioStudy.h"
#include "studies/StudyPicture.h"
#include "studies/StudyTableView.h"
#include "study/ScenarioNames.h"
#include "study/ScenarioText.h"
#include "ui_ScenariosPage.h"

namespace quarnel02 {

ScenariosPage::ScenariosPage(QWidget* parent)
    : StudyPage(parent),
      m_ui(std::make_unique<Ui::ScenariosPage>()),
      m_sheet(new ScenarioSheet(this)) {
    m_ui->setupUi(Contents());
    m_ui->shtDifferences->SetSheet(*m_sheet);
    m_ui->lblScenarioProblem->hide();
    constexpr int names_and_columns = 40;
    m_ui->shtDifferences->setMinimumWidth(names_and_columns * fontMetrics().averageCharWidth());
    m_ui->splScenario->setSizes({450, 550});
    m_ui->splScenarios->setSizes({300, 700});
    ConnectButtons();
    ConnectBoxes();
    ConnectParts();
}

ScenariosPage::~ScenariosPage() = default;

std::vector<StudyTableView*> ScenariosPage::AllTables() const {
    return {m_ui->tblScenarios};
}

std::vector<StudyPicture*> ScenariosPage::AllPictures() const {
    return {m_ui->picCosts};
}

void ScenariosPage::ConnectButtons() {
    connect(m_ui->cmdNewScenario, &QPushButton::clicked, this, [this] {
        Add("Scenario", "");
        m_ui->txtScenarioName->setFocus();
    });
    connect(m_ui->cmdKeepPresent, &QPushButton::clicked, this, &ScenariosPage::KeepPresent);
    connect(m_ui->cmdDuplicate, &QPushButton::clicked, this, &ScenariosPage::Duplicate);
    connect(m_ui->cmdDeleteScenario, &QPushButton::clicked, this, &ScenariosPage::Delete);
    connect(m_ui->cboBase, &QComboBox::activated, this, &ScenariosPage::ShowResults);
    connect(m_ui->tblScenarios, &StudyTableView::RowChanged, this, &ScenariosPage::ShowSelected);
}

void ScenariosPage::ConnectBoxes() {
    for (const auto signal : {&FieldBox::Entered, &FieldBox::Left}) {
        connect(m_ui->txtScenarioName, signal, this, &ScenariosPage::Rename);
        connect(m_ui->txtDifferences, signal, this, &ScenariosPage::TakeText);
    }
    connect(
        m_sheet, &ScenarioSheet::Changed, this, [this](const std::vector<Difference>& differences) {
            if (const auto place = Selected()) {
                Change(*place,
                       {Scenarios()[*place].Name, DifferencesText(m_input->Model(), differences)},
                       "Change");
            }
        });
}

BackgroundWork::Work ScenariosPage::Work(const StudyInput& input) {
    return [this, input](const StudyWatch& watch) -> BackgroundWork::Show {
        return [this, outcomes = StudyScenarios(input, watch), solved = input.Scenarios] {
            m_outcomes = outcomes;
            m_solved = solved;
            ShowContents();
            ShowResults();
        };
    };
}

/// Scenarios can be edited while others are being solved.
void ScenariosPage::InputChanged(const StudyInput& input) {
    m_input = input;
    ShowBases();
    ShowResults();
    Reveal();
}

const std::vector<Scenario>& ScenariosPage::Scenarios() const {
    return m_input->Scenarios;
}

std::optional<std::size_t> ScenariosPage::Selected() const {
    const std::size_t row = m_ui->tblScenarios->Row();
    return m_input && row > 0 && row <= Scenarios().size() ? std::optional(row - 1) : std::nullopt;
}

/// Outcomes of a base that has changed since stand until the new ones are there, as in other tabs.
std::vector<std::optional<ScenarioOutcome>> ScenariosPage::Known() const {
    std::vector<std::optional<ScenarioOutcome>> known(Scenarios().size() + 1);
    if (m_outcomes.empty()) {
        return known;
    }
    known.front() = m_outcomes.front();
    for (std::size_t place = 0; place < Scenarios().size(); ++place) {
        const auto solved = std::find(m_solved.begin(), m_solved.end(), Scenarios()[place]);
        if (solved != m_solved.end()) {
            known[place + 1] = m_outcomes[static_cast<std::size_t>(solved - m_solved.begin()) + 1];
        }
    }
    return known;
}

void ScenariosPage::ShowResults() {
    if (!m_input) {
        return;
    }
    const auto base = std::find_if(m_outcomes.begin(), m_outcomes.end(),
                                   [name = m_ui->cboBase->currentText().toStdString()](
                                       const ScenarioOutcome& each) { return each.Name == name; });
    if (base != m_outcomes.end()) {
        Compare(m_outcomes, static_cast<std::size_t>(base - m_outcomes.begin()));
    }
    const auto known = Known();
    m_ui->tblScenarios->SetTable(TableOf(Scenarios(), known));
    m_ui->picCosts->Draw([&](Picture& picture) { DrawCostBars(picture, BarsOf(known)); });
    ShowSelected();
}

void ScenariosPage::ShowBases() {
    const QString chosen = m_ui->cboBase->currentText();
    const QSignalBlocker blocker(m_ui->cboBase);
    m_ui->cboBase->clear();
    m_ui->cboBase->addItem(QLatin1String(kBaseName));
    for (const Scenario& scenario : Scenarios()) {
        m_ui->cboBase->addItem(QString::fromStdString(scenario.Name));
    }
    m_ui->cboBase->setCurrentIndex(std::max(m_ui->cboBase->findText(chosen), 0));
}

void ScenariosPage::ShowStored() {
    m_shown.reset();
    ShowSelected();
}

/// What is being typed stays as long as it is about the same scenario.
void ScenariosPage::ShowSelected() {
    if (!m_input) {
        return;
    }
    const auto place = Selected();
    Shown shown{m_input->Line, m_input->Question,
                place ? std::optional(Scenarios()[*place]) : std::nullopt};
    if (m_shown != shown) {
        m_shown = std::move(shown);
        FillBoxes(m_shown->Edited);
    }
}

void ScenariosPage::FillBoxes(const std::optional<Scenario>& scenario) {
    m_ui->txtScenarioName->setText(
        QString::fromStdString(scenario ? scenario->Name : std::string(kBaseName)));
    m_ui->txtDifferences->setText(
        scenario ? QString::fromStdString(scenario->Differences).replace(QLatin1Char('\n'), "; ")
                 : QString());
    for (QWidget* part :
         {static_cast<QWidget*>(m_ui->txtScenarioName), static_cast<QWidget*>(m_ui->txtDifferences),
          static_cast<QWidget*>(m_ui->shtDifferences), static_cast<QWidget*>(m_ui->cmdDuplicate),
          static_cast<QWidget*>(m_ui->cmdDeleteScenario)}) {
        part->setEnabled(scenario.has_value());
    }
    if (scenario) {
        FillSheet(*scenario);
    } else {
        m_sheet->Clear();
        Explain(Scenarios().empty() ? "The base is the model with the design above. New makes a "
                                      "scenario: enter below what is otherwise in it."
                                    : "");
    }
}

/// Differences that cannot be read any more (their resource is gone) can be mended as a text.
void ScenariosPage::FillSheet(const Scenario& scenario) {
    try {
        m_sheet->SetScenario(OrderOf(*m_input),
                             DifferencesOf(m_input->Model(), scenario.Differences));
        m_ui->shtDifferences->FitColumns();
        const int row = std::max(m_ui->shtDifferences->currentIndex().row(), 0);
        m_ui->shtDifferences->setCurrentIndex(m_sheet->index(row, ScenarioSheet::kTyped));
        Explain("");
    } catch (const RunTimeError& error) {
        m_sheet->Clear();
        Explain(error.what());
    }
}

void ScenariosPage::Explain(const std::string& text) {
    m_ui->lblScenarioProblem->setText(QString::fromStdString(text));
    m_ui->lblScenarioProblem->setVisible(!text.empty());
}

void ScenariosPage::Store(const std::string& step, const std::vector<Scenario>& scenarios,
                          std::size_t row) {
    emit Edited(step, scenarios);
    const std::size_t last = Scenarios().size();
    m_ui->tblScenarios->selectRow(static_cast<int>(std::min(row, last)));
}

void ScenariosPage::Add(const std::string& name, const std::string& differences) {
    std::vector<Scenario> scenarios = Scenarios();
    const std::string free = FreeName(scenarios, name);
    scenarios.push_back({free, differences});
    Store("Add scenario " + free, scenarios, scenarios.size());
}

void ScenariosPage::KeepPresent() {
    const auto differences = DifferencesBetween(*m_input->Opened, OrderOf(*m_input));
    if (differences.empty()) {
        Explain(
            "Model and design are as this window first showed them. Change a figure in the "
            "main window, or the design above, and keep what has become of it; or use New.");
        return;
    }
    Add("Kept", DifferencesText(m_input->Model(), differences));
}

void ScenariosPage::Duplicate() {
    if (const auto place = Selected()) {
        const Scenario scenario = Scenarios()[*place];
        Add("Copy of " + scenario.Name, scenario.Differences);
    }
}

void ScenariosPage::Delete() {
    if (const auto place = Selected()) {
        std::vector<Scenario> scenarios = Scenarios();
        const std::string name = scenarios[*place].Name;
        scenarios.erase(scenarios.begin() + static_cast<std::ptrdiff_t>(*place));
        Store("Delete scenario " + name, scenarios, std::min(*place + 1, scenarios.size()));
    }
}

void ScenariosPage::Change(std::size_t place, const Scenario& scenario, const std::string& verb) {
    if (Scenarios()[place] == scenario) {
        return;
    }
    std::vector<Scenario> scenarios = Scenarios();
    const std::string name = std::exchange(scenarios[place], scenario).Name;
    Store(verb + " scenario " + name, scenarios, place + 1);
}

void ScenariosPage::Rename() {
    const auto place = Selected();
    if (!place) {
        return;
    }
    Scenario scenario = Scenarios()[*place];
    try {
        const std::string name =
            UsableName(Scenarios(), *place, m_ui->txtScenarioName->text().toStdString());
        const int base = m_ui->cboBase->currentIndex();
        scenario.Name = name;
        Change(*place, scenario, "Rename");
        m_ui->cboBase->setCurrentIndex(base);
        Explain("");
    } catch (const RunTimeError& error) {
        Explain(error.what());
    }
}

void ScenariosPage::TakeText() {
    const auto place = Selected();
    if (!place) {
        return;
    }
    try {
        const LineModel& model = m_input->Model();
        const std::string typed = m_ui->txtDifferences->text().toStdString();
        const std::string text = DifferencesText(model, DifferencesOf(model, typed));
        Change(*place, {Scenarios()[*place].Name, text}, "Change");
        Explain("");
    } catch (const RunTimeError& error) {
        Explain(error.what());
    }
}

}  // namespace quarnel02
