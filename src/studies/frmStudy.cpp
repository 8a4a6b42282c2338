#include "studies/frmStudy.h"

#include <QAction>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QScreen>
#include <algorithm>
#include <exception>
#include <utility>

#include "model/InputDigest.h"
#include "shell/LoadLineModel.h"
#include "shell/ModelCheck.h"
#include "shell/StoredScenarios.h"
#include "studies/ScenarioStudy.h"
#include "ui_frmStudy.h"

namespace quarnel02 {

namespace {

constexpr int kPause = 300;  ///< ms

}  // namespace

frmStudy::frmStudy(MainForm& form, FileCommands& commands, Runner run, QWidget* parent)
    : QWidget(parent, Qt::Window),
      m_form(form),
      m_history(commands.History()),
      m_current(commands.Current()),
      m_run(std::move(run)),
      m_ui(std::make_unique<Ui::frmStudy>()) {
    m_ui->setupUi(this);
    LayOut();
    m_pause.setSingleShot(true);
    m_pause.setInterval(kPause);
    connect(&m_pause, &QTimer::timeout, this, &frmStudy::ComputePage);
    ConnectPages();
    ShowState();
}

frmStudy::~frmStudy() = default;

std::vector<StudyPage*> frmStudy::Pages() const {
    return {m_ui->pagLine, m_ui->pagVolumes, m_ui->pagAlternatives, m_ui->pagSensitivity,
            m_ui->pagScenarios};
}

StudyPage& frmStudy::CurrentPage() const {
    return *static_cast<StudyPage*>(m_ui->tabStudy->currentWidget());
}

/// Black on amber in every theme; the mark keeps its place, so that nothing moves.
void frmStudy::LayOut() {
    constexpr QColor amber(255, 200, 60);
    constexpr QSize lines_and_columns(170, 44);
    constexpr double share_of_screen = 0.85;
    QPalette colours = m_ui->lblStudyOutOfDate->palette();
    colours.setColor(QPalette::Window, amber);
    colours.setColor(QPalette::WindowText, Qt::black);
    m_ui->lblStudyOutOfDate->setPalette(colours);
    m_ui->lblStudyOutOfDate->setAutoFillBackground(true);
    m_ui->lblStudyOutOfDate->setMargin(2);
    QSizePolicy policy = m_ui->lblStudyOutOfDate->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_ui->lblStudyOutOfDate->setSizePolicy(policy);
    LayOutCorner();
    const QSize wanted(lines_and_columns.width() * fontMetrics().averageCharWidth(),
                       lines_and_columns.height() * fontMetrics().lineSpacing());
    resize(wanted.boundedTo(screen()->availableSize() * share_of_screen));
}

/// Beside the tabs, so that the boxes above have the whole width.
void frmStudy::LayOutCorner() {
    auto* corner = new QWidget(this);
    auto* row = new QHBoxLayout(corner);
    row->setContentsMargins(0, 0, 0, 2);
    for (QWidget* part :
         {static_cast<QWidget*>(m_ui->lblStudyOutOfDate), static_cast<QWidget*>(m_ui->chkInReport),
          static_cast<QWidget*>(m_ui->cmdCopy), static_cast<QWidget*>(m_ui->cmdSave)}) {
        row->addWidget(part);
    }
    m_ui->tabStudy->setCornerWidget(corner);
}

void frmStudy::ConnectPages() {
    for (StudyPage* page : Pages()) {
        connect(page, &StudyPage::StateChanged, this, &frmStudy::ShowState);
        connect(page, &StudyPage::SaveAsked, this, [this](const ShownTable& table) {
            Save(QString::fromStdString(table.Name), {{table}, nullptr, {}});
        });
        connect(page, &StudyPage::PictureAsked, this, &frmStudy::TakeOut);
    }
    connect(m_ui->barQuestion, &QuestionBar::Changed, this, [this] {
        m_chosen = true;
        HandOn();
    });
    connect(m_ui->tabStudy, &QTabWidget::currentChanged, this, [this] {
        ShowState();
        if (!m_pause.isActive()) {
            ComputePage();
        }
    });
    connect(m_ui->chkInReport, &QCheckBox::clicked, this,
            [this](bool ticked) { CurrentPage().SetInReport(ticked); });
    connect(m_ui->cmdCopy, &QPushButton::clicked, this, &frmStudy::CopyTables);
    connect(m_ui->cmdSave, &QPushButton::clicked, this, &frmStudy::SavePage);
    connect(m_ui->rowProgress, &ProgressRow::CancelAsked, this, [this] { CurrentPage().Cancel(); });
    connect(m_ui->rowProgress, &ProgressRow::ComputeAsked, this,
            [this] { CurrentPage().ComputeAgain(); });
    connect(m_ui->pagScenarios, &ScenariosPage::Edited, this, &frmStudy::StoreScenarios);
    AddStep(QKeySequence::Undo, &EditHistory::Undo);
    AddStep(QKeySequence::Redo, &EditHistory::Redo);
    AddKey(QKeySequence::Close, [this] { close(); });
    AddKey(Qt::Key_Escape, [this] { CancelOrClose(); });
    AddKey(Qt::CTRL | Qt::Key_PageDown, [this] { ShowTab(1); });
    AddKey(Qt::CTRL | Qt::Key_PageUp, [this] { ShowTab(-1); });
}

void frmStudy::AddKey(const QKeySequence& key, const std::function<void()>& command) {
    auto* action = new QAction(this);
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, command);
    addAction(action);
}

/// The next or the previous one, round and round.
void frmStudy::ShowTab(int step) {
    const int tabs = m_ui->tabStudy->count();
    m_ui->tabStudy->setCurrentIndex((m_ui->tabStudy->currentIndex() + step + tabs) % tabs);
}

/// What the user waits for is given up first.
void frmStudy::CancelOrClose() {
    if (CurrentPage().IsComputing()) {
        CurrentPage().Cancel();
    } else {
        close();
    }
}

void frmStudy::AddStep(QKeySequence::StandardKey key, HistoryStep step) {
    auto* action = new QAction(this);
    action->setShortcuts(key);
    addAction(action);
    connect(action, &QAction::triggered, this, [this, step] {
        m_run([this, step] {
            TakeStep(m_form, m_history, step);
            m_current.Changed = true;
        });
    });
}

void frmStudy::StoreScenarios(const std::string& step, const std::vector<Scenario>& scenarios) {
    const bool stored = m_run([&] {
        WriteScenarios(m_form.OpenWorkingCopy(), scenarios);
        m_current.Changed = true;
        m_history.Note(step);
    });
    if (!stored) {
        m_ui->pagScenarios->ShowStored();
    }
}

void frmStudy::Look() {
    if (!isVisible()) {
        return;
    }
    const bool other_file = TakeFile();
    const Change change = TakeModel();
    const bool other_design = TakeDesign();
    const bool other_line = other_file || change == Change::Line;
    if (other_line) {
        ProposeQuestion();
        NoteOpened(other_file);
    }
    if (other_line || other_design) {
        HandOn();
    } else if (change == Change::Scenarios) {
        HandOnTo(*m_ui->pagScenarios);
        m_pause.start();
    }
}

/// What KeepPresent compares with: the model as the window first showed it, as long as it has the
/// same resources.
void frmStudy::NoteOpened(bool otherFile) {
    const auto names = [](const LineModel& model) {
        std::vector<std::string> all;
        for (const Resource& resource : model.Resources()) {
            all.push_back(resource.ShortName);
        }
        return all;
    };
    if (otherFile) {
        m_opened.reset();
    }
    if (m_line && (!m_opened || names(m_opened->Model) != names(m_line->Model))) {
        m_opened = std::make_shared<const DesignOrder>(
            OrderOf({m_line, m_ui->barQuestion->Question(), {}, {}}));
    }
}

bool frmStudy::TakeFile() {
    const std::string file = m_current.Dir + "|" + m_current.File;
    if (m_file == file) {
        return false;
    }
    m_file = file;
    m_chosen = false;
    setWindowTitle(QStringLiteral("Study - ") + (m_current.File.empty()
                                                     ? QStringLiteral("Untitled")
                                                     : QString::fromStdString(m_current.File)));
    return true;
}

frmStudy::Change frmStudy::TakeModel() {
    const std::uint64_t inputs = m_history.Digest();
    if (m_inputs == inputs) {
        return Change::None;
    }
    m_inputs = inputs;
    try {
        const Database database = m_form.OpenWorkingCopy();
        m_scenarios = ReadScenarios(database);
        const auto before = std::exchange(m_lineInputs, DesignDigest(database));
        if (before == m_lineInputs) {
            return Change::Scenarios;
        }
        m_line.reset();
        ReadModel(database);
    } catch (const std::exception& error) {
        m_line.reset();
        m_problem = error.what();
    }
    return Change::Line;
}

void frmStudy::ReadModel(const Database& database) {
    RequireUsableModel(database);
    LineModel model = LoadLineModel(database);
    if (model.TaskCount() == 0 || model.ResourceCount() == 0) {
        m_problem =
            "There is nothing to study yet. Enter tasks, resources and the matrix with the View "
            "menu of the main window.";
        return;
    }
    RequireUsableDemand(database);
    m_line = std::make_shared<const PreparedLine>(Prepare(std::move(model)));
}

bool frmStudy::TakeDesign() {
    const auto& design = m_form.LastDesign;
    if (!design || m_design == design->When) {
        return false;
    }
    m_design = design->When;
    m_chosen = true;
    StudyQuestion question = m_ui->barQuestion->Question();
    question.Expected = !design->Request.has_value();
    question.Request = design->Request.value_or(question.Request);
    m_ui->barQuestion->SetQuestion(question);
    return true;
}

/// The likeliest volume stands as long as nobody has asked for another one.
void frmStudy::ProposeQuestion() {
    if (!m_chosen) {
        m_ui->barQuestion->SetQuestion(
            {false, {m_line ? LikeliestVolume(m_line->Model) : 0, 1, {}}});
    }
}

/// What keeps the question from being studied; "" for nothing.
std::string frmStudy::Obstacle() const {
    const StudyQuestion& question = m_ui->barQuestion->Question();
    if (!question.Expected && question.Request.Volume <= 0) {
        return "Enter an annual volume above.";
    }
    if (question.Expected && m_line->Model.Demand().empty()) {
        return "The model has no demand distribution. Enter its rows in the main window, or choose "
               "a fixed demand above.";
    }
    return {};
}

void frmStudy::HandOn() {
    for (StudyPage* page : Pages()) {
        HandOnTo(*page);
    }
    m_pause.start();
}

void frmStudy::HandOnTo(StudyPage& page) {
    const bool asks_for_a_design = &page != m_ui->pagVolumes;
    const std::string obstacle =
        !m_line ? m_problem : (asks_for_a_design ? Obstacle() : std::string());
    if (m_line && obstacle.empty()) {
        page.SetInput(StudyInput{m_line, m_ui->barQuestion->Question(), m_scenarios, m_opened});
    } else {
        page.SetInput(std::nullopt, obstacle);
    }
}

/// The tab in sight first; those for the report too, so that it is up to date.
void frmStudy::ComputePage() {
    if (!isVisible()) {
        return;
    }
    CurrentPage().Compute();
    for (StudyPage* page : Pages()) {
        if (page->IsInReport()) {
            page->Compute();
        }
    }
}

void frmStudy::ShowState() {
    const StudyPage& page = CurrentPage();
    m_ui->lblStudyOutOfDate->setVisible(page.IsOutOfDate());
    m_ui->rowProgress->Follow(page);
    m_ui->chkInReport->setChecked(page.IsInReport());
    const bool tables = !page.Tables().empty();
    m_ui->cmdCopy->setEnabled(tables);
    m_ui->cmdSave->setEnabled(tables);
}

void frmStudy::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Look();
    m_pause.start();
}

/// Nobody sees what would come out; when shown again it is computed anew.
void frmStudy::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    m_pause.stop();
    for (StudyPage* page : Pages()) {
        page->GiveUp();
    }
}

}  // namespace quarnel02
