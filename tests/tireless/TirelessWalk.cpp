#include "tireless/TirelessWalk.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <stdexcept>

#include "studies/frmStudy.h"
#include "tireless/StoredModel.h"

namespace quarnel02::test {

namespace {

constexpr int kMostTasks = 8;
constexpr int kMostResources = 4;
constexpr int kMostSteps = 400;

/// A button that was pressed by its letter clicks a moment later.
bool IsButtonDown() {
    for (QWidget* widget : QApplication::allWidgets()) {
        const auto* button = qobject_cast<QPushButton*>(widget);
        if (button != nullptr && button->isDown() && button->isVisible()) {
            return true;
        }
    }
    return false;
}

int CountIn(const frmMain& window, const char* box) {
    return window.findChild<QLineEdit*>(QLatin1String(box))->text().toInt();
}

}  // namespace

/// The process ends here; its messages and windows go with it.
void RestartedMain::EndProgram() {
    Ended = true;
    throw std::runtime_error("The program ends here.");
}

TirelessWalk::TirelessWalk(unsigned seed)
    : m_files(m_place.Path()), m_dice(seed), m_user(m_dice, m_files) {
    std::filesystem::remove(m_application.File());
    m_user.AfterEditorEvent = [this] { CheckEditor(); };
    Start();
}

TirelessWalk::~TirelessWalk() {
    m_window.reset();
    Settle();
}

void TirelessWalk::Start() {
    m_window = std::make_unique<RestartedMain>(m_application.Directory());
    m_window->SetLauncher(std::make_unique<ReportLauncher>(
        ReportLauncher::Ways{[this](const QString&, const QString&) {
                                 m_user.Note("report opened");
                                 return true;
                             },
                             nullptr, nullptr}));
    WatchActions();
    if (!m_window->StartUp()) {
        Blame("the program does not start");
    }
    m_window->show();
    m_designed = {};
    m_otherModel = true;
}

void TirelessWalk::Restart() {
    m_user.Note("restart", m_window->Ended ? "after its end" : "");
    m_window.reset();
    while (QGuiApplication::overrideCursor() != nullptr) {
        QGuiApplication::restoreOverrideCursor();
    }
    Settle();
    Start();
}

/// Those of the File menu may load another model, by which the history begins anew.
void TirelessWalk::WatchActions() {
    for (QAction* action : m_window->findChildren<QAction*>()) {
        const std::string name = action->objectName().toStdString();
        if (!name.empty() && name.find("qt_") == std::string::npos) {
            QObject::connect(action, &QAction::triggered, m_window.get(), [this, name] {
                m_user.Note("action " + name);
                m_otherModel = m_otherModel || name.find("mnuFile") == 0;
            });
        }
    }
    for (const char* name : {"mnuFileRecover", "mnuFileExamples"}) {
        QObject::connect(m_window->findChild<QMenu*>(QLatin1String(name)), &QMenu::triggered,
                         m_window.get(), [this, name](QAction* action) {
                             m_user.Note(std::string("entry of ") + name,
                                         action->text().toStdString());
                             m_otherModel = true;
                         });
    }
    QObject::connect(m_window->findChild<QAbstractButton*>(QStringLiteral("cmdFirstExample")),
                     &QAbstractButton::clicked, m_window.get(), [this] { m_otherModel = true; });
}

void TirelessWalk::Settle() {
    constexpr int longest = 1000;
    static_cast<void>(QTest::qWaitFor([] { return !IsButtonDown(); }, longest));
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

void TirelessWalk::Run(int events) {
    Settle();
    Check();
    while (m_user.Events() < events && m_broken.empty()) {
        Step();
    }
    if (m_broken.empty()) {
        UndoAll();
        Check();
    }
}

void TirelessWalk::Step() {
    if (m_dice.OneIn(2)) {
        PlayCard();
    } else {
        ActSomewhere();
    }
    Settle();
    if (!m_window->isVisible() || m_window->Ended) {
        Restart();
        Settle();
    }
    Check();
    if (m_broken.empty() && (CountIn(*m_window, "txtTasks") > kMostTasks ||
                             CountIn(*m_window, "txtResources") > kMostResources)) {
        OpenGoodModel();
        Check();
    }
}

void TirelessWalk::OpenGoodModel() {
    m_user.WantGoodModel();
    Press(QKeySequence::Open);
    Settle();
}

void TirelessWalk::DesignFixed() {
    OpenGoodModel();
    Press(QKeySequence(QStringLiteral("Alt+%1").arg(m_dice(1, 3))));
}

void TirelessWalk::DesignStochastic() {
    OpenGoodModel();
    Press(QKeySequence(QStringLiteral("Alt+S")));
}

/// Every card is played before one comes again.
void TirelessWalk::PlayCard() {
    if (m_deck.empty()) {
        for (const char* keys :
             {"Ctrl+1", "Ctrl+1", "Ctrl+2", "Ctrl+2",       "Ctrl+3",       "Ctrl+3",
              "Ctrl+3", "Ctrl+T", "Ctrl+S", "Ctrl+S",       "Ctrl+Shift+S", "Ctrl+O",
              "Ctrl+O", "Ctrl+N", "Ctrl+Z", "Ctrl+Shift+Z", "Ctrl+P",       "F1",
              "F11",    "Alt+1",  "Alt+2",  "Alt+3",        "Alt+S",        "Alt+S",
              "Alt+F",  "Alt+E",  "Alt+V",  "Alt+H",        "Ctrl+Q"}) {
            m_deck.push_back({QKeySequence(QLatin1String(keys)), nullptr});
        }
        for (const char* entry :
             {"mnuFileImport", "mnuFileImport", "mnuFileExportXlsx", "mnuFileExportCsv",
              "mnuFileReportPdf", "mnuPictureSave", "mnuPictureCopy", "mnuFileRecover",
              "mnuFileExamples", "mnuFileRecent_1", "mnuFileRecent_2", "mnuViewLast",
              "mnuViewLastCont"}) {
            m_deck.push_back({{}, entry});
        }
        m_deck.push_back({{}, nullptr, &TirelessWalk::UndoAll});
        m_deck.push_back({{}, nullptr, &TirelessWalk::OpenGoodModel});
    }
    const auto place = m_dice(0, static_cast<int>(m_deck.size()) - 1);
    const Card card = m_deck[static_cast<std::size_t>(place)];
    m_deck.erase(m_deck.begin() + place);
    if (card.Do != nullptr) {
        (this->*card.Do)();
    } else if (card.Entry != nullptr) {
        Choose(card.Entry);
    } else {
        Press(card.Keys);
    }
}

void TirelessWalk::Press(const QKeySequence& keys) {
    m_user.Note("keys", keys.toString().toStdString());
    m_window->activateWindow();
    Settle();
    const QKeyCombination first = keys[0];
    m_user.Press(*m_window, first.key(), first.keyboardModifiers());
}

/// Goes through the menus by keys, to an action or a menu of that name.
void TirelessWalk::Choose(const char* entry) {
    auto* menu = m_window->findChild<QMenu*>(QLatin1String(entry));
    QAction* wanted =
        menu != nullptr ? menu->menuAction() : m_window->findChild<QAction*>(QLatin1String(entry));
    std::vector<QAction*> way = {wanted};
    const auto menus = m_window->findChildren<QMenu*>();
    for (bool further = true; further;) {
        further = false;
        for (QMenu* above : menus) {
            if (above->objectName().startsWith(QLatin1String("mnu")) &&
                above->actions().contains(way.front())) {
                way.insert(way.begin(), above->menuAction());
                further = true;
            }
        }
    }
    const QString title = way.front()->text();
    Press(QKeySequence(QStringLiteral("Alt+") + title[title.indexOf(QLatin1Char('&')) + 1]));
    for (std::size_t i = 1; i < way.size(); ++i) {
        QMenu* shown = way[i - 1]->menu();
        if (!shown->isVisible() || !way[i]->isEnabled() || !way[i]->isVisible()) {
            return;
        }
        for (int k = 0; k < shown->actions().size() && shown->activeAction() != way[i]; ++k) {
            QTest::keyClick(shown, Qt::Key_Down);
        }
        QTest::keyClick(shown, way[i]->menu() == nullptr ? Qt::Key_Return : Qt::Key_Right);
    }
    if (menu != nullptr && menu->isVisible()) {
        m_user.Act(*menu);
    }
}

/// In the main window mostly, else in one that stands beside it.
void TirelessWalk::ActSomewhere() {
    QWidget* top = m_window.get();
    if (m_dice.OneIn(2)) {
        for (QWidget* other : m_window->findChildren<QWidget*>()) {
            if (other->isWindow() && other->isVisible() && !other->isModal() && m_dice.OneIn(2)) {
                top = other;
                m_user.Note("in " + top->objectName().toStdString());
                break;
            }
        }
    }
    top->activateWindow();
    Settle();
    m_user.Act(*top);
}

/// A list or menu that stands open would hear the keys; a box whose text is refused takes the focus
/// back, once.
void TirelessWalk::FocusOnList() {
    constexpr int most_refusals = 5;
    while (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
    }
    auto* list = m_window->findChild<QListWidget*>(QStringLiteral("lstDemand"));
    for (int i = 0; i < most_refusals && !list->hasFocus(); ++i) {
        m_window->activateWindow();
        list->setFocus();
        Settle();
    }
}

/// By the key, from a place where it means the model; and forth again.
void TirelessWalk::UndoAll() {
    m_user.Note("undo to the start");
    FocusOnList();
    const auto inputs = [this] { return StoredModel(m_application.File()).Inputs(); };
    const std::string end = inputs();
    int steps = 0;
    for (; CanUndo() && steps < kMostSteps; ++steps) {
        m_user.Note("take back", m_window->History().UndoText());
        FocusOnList();
        m_user.Press(*m_window, Qt::Key_Z, Qt::ControlModifier);
    }
    if (CanUndo() || inputs() != m_start) {
        Blame("undo of all " + std::to_string(steps) + " steps gives\n" + inputs() +
              "where all began with\n" + m_start);
    }
    for (int i = 0; i < steps; ++i) {
        FocusOnList();
        m_user.Press(*m_window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    }
    if (inputs() != end) {
        Blame("redo of all steps gives\n" + inputs() + "and not\n" + end);
    }
    m_user.Reached["undone steps"] += steps;
}

void TirelessWalk::Check() {
    if (!m_broken.empty()) {
        return;
    }
    const StoredModel model(m_application.File());
    m_broken = model.Broken();
    NoteSteps();
    CheckStart(model.Inputs());
    CheckWindow(model);
    CheckDesign(model);
    CheckFiles();
}

/// In the middle of an editor counts and arcs may lag behind; the file is whole all the same.
void TirelessWalk::CheckEditor() {
    m_user.Note("in an editor");
    NoteSteps();
    if (StoredModel(m_application.File()).Number("SELECT count(*) FROM Gen") != 1) {
        Blame("Gen has not one row");
    }
}

void TirelessWalk::CheckStart(const std::string& inputs) {
    if (m_otherModel && !CanUndo() && !m_window->History().CanRedo()) {
        m_start = inputs;
    } else if (!CanUndo() && inputs != m_start) {
        Blame("there is nothing to undo, but the model is\n" + inputs + "where all began with\n" +
              m_start);
    }
    m_otherModel = false;
}

/// The window shows what is stored.
void TirelessWalk::CheckWindow(const StoredModel& model) {
    if (CountIn(*m_window, "txtTasks") != model.Number("SELECT Tasks FROM Gen") ||
        CountIn(*m_window, "txtResources") != model.Number("SELECT Resources FROM Gen")) {
        Blame("the window shows other counts than Gen has");
    }
    if (m_window->DemandCount() != model.Number("SELECT count(*) FROM Demand")) {
        Blame("the window shows " + std::to_string(m_window->DemandCount()) + " demand rows");
    }
}

void TirelessWalk::CheckDesign(const StoredModel& model) {
    const auto& design = m_window->LastDesign;
    if (!design || design->When == m_designed) {
        return;
    }
    m_designed = design->When;
    m_user.Note(design->Request ? "fixed design" : "stochastic design");
    if (design->Request && !model.HasChosenLine()) {
        Blame("a design without a chosen line");
    }
}

void TirelessWalk::CheckFiles() {
    for (const std::string& extension : m_files.TakeWritten()) {
        m_user.Note("wrote " + extension);
    }
}

/// "Undo Paste 4 cells" is a step "Paste".
void TirelessWalk::NoteSteps() {
    const std::string text = m_window->History().UndoText();
    if (text != m_step && text.size() > 5) {
        const std::string name = text.substr(5);
        m_user.Note("step " + name.substr(0, name.find(' ')), name);
    }
    m_step = text;
}

}  // namespace quarnel02::test
