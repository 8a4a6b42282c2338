// The menus of frmMain.
#include <QAction>
#include <QDir>
#include <QMessageBox>

#include "app/ApplicationDirectory.h"
#include "app/QtPaths.h"
#include "app/frmGuide.h"
#include "app/frmMain.h"
#include "commands/TakeStep.h"
#include "editors/frmMatrix.h"
#include "editors/frmResource.h"
#include "editors/frmTask.h"
#include "fixed/CreateLinks.h"
#include "model/InputDigest.h"
#include "shell/Reports.h"
#include "studies/frmStudy.h"
#include "ui_frmMain.h"

namespace quarnel02 {

namespace {

/// "&" in a file's name is no mnemonic.
QString LiteralCaption(const std::string& caption) {
    return QString::fromStdString(caption).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace

void frmMain::ConnectFileMenu() {
    const auto on = [this](QAction* action, auto command) {
        connect(action, &QAction::triggered, this,
                [this, command] { RunCommand([&] { command(m_commands); }); });
    };
    on(m_ui->mnuFileNew, [](FileCommands& commands) { commands.New(); });
    on(m_ui->mnuFileOpen, [](FileCommands& commands) { commands.Open(); });
    on(m_ui->mnuFileSaveAs, [](FileCommands& commands) { commands.SaveAs(); });
    on(m_ui->mnuFileSave, [this](FileCommands& commands) {
        if (commands.Current().Changed || commands.HasUnsavedWork()) {
            commands.Save();
        } else {
            ShowBriefly(QStringLiteral("There are no changes to save"));
        }
    });
    const std::array recent = {m_ui->mnuFileRecent_1, m_ui->mnuFileRecent_2, m_ui->mnuFileRecent_3,
                               m_ui->mnuFileRecent_4};
    for (std::size_t i = 0; i < recent.size(); ++i) {
        m_recentItems[i].Caption = recent[i]->text().toStdString();
        on(recent[i],
           [this, i](FileCommands& commands) { commands.OpenRecent(m_recentItems[i].Caption); });
    }
    connect(m_ui->mnuFileExit, &QAction::triggered, this, &QWidget::close);
    connect(m_ui->mnuFile, &QMenu::aboutToShow, this,
            [this] { RunEvent([&] { OpeningFileMenu(); }); });
    connect(m_ui->mnuFileRecover, &QMenu::aboutToShow, this,
            [this] { RunEvent([&] { FillRecoverMenu(m_commands.KeptModels()); }); });
    FillRecoverMenu({});
    connect(m_ui->mnuFileExamples, &QMenu::aboutToShow, this, &frmMain::FillExamplesMenu);
    connect(m_ui->mnuFile, &QMenu::aboutToHide, this,
            [this] { m_ui->mnuFileSave->setEnabled(true); });
}

void frmMain::ConnectEditMenu() {
    const auto on = [this](QAction* action, HistoryStep step) {
        connect(action, &QAction::triggered, this, [this, step] {
            RunCommand([this, step] {
                TakeStep(*this, m_commands.History(), step);
                m_commands.Current().Changed = true;
            });
        });
    };
    on(m_ui->mnuEditUndo, &EditHistory::Undo);
    on(m_ui->mnuEditRedo, &EditHistory::Redo);
}

/// An example is opened as an untitled copy: its file may belong to the system.
void frmMain::FillExamplesMenu() {
    QMenu& menu = *m_ui->mnuFileExamples;
    menu.clear();
    const QDir directory(
        ToQString(ExamplesDirectory(ToPath(QCoreApplication::applicationDirPath()))));
    const auto files = directory.path() == QLatin1String(".")
                           ? QFileInfoList()
                           : directory.entryInfoList({QStringLiteral("*.mdb")}, QDir::Files);
    for (const QFileInfo& file : files) {
        connect(menu.addAction(LiteralCaption(file.completeBaseName().toStdString())),
                &QAction::triggered, this, [this, path = ToPath(file.filePath())] {
                    RunCommand([&] { m_commands.OpenExample(path); });
                });
    }
    if (menu.isEmpty()) {
        menu.addAction(QStringLiteral("No examples are installed"))->setEnabled(false);
    }
}

void frmMain::FillRecoverMenu(const std::vector<KeptModel>& models) {
    QMenu& menu = *m_ui->mnuFileRecover;
    menu.clear();
    for (const KeptModel& kept : models) {
        connect(menu.addAction(LiteralCaption(kept.Caption)), &QAction::triggered, this,
                [this, kept] { RunCommand([&] { m_commands.Recover(kept); }); });
    }
    if (menu.isEmpty()) {
        menu.addAction(QStringLiteral("No work has been kept"))->setEnabled(false);
    }
}

void frmMain::OpeningFileMenu() {
    SaveFocusedBox();
    m_ui->mnuFileSave->setEnabled(m_commands.Current().Changed || m_commands.HasUnsavedWork());
    m_commands.Recent().FillMenu(m_recentItems);
    const std::array recent = {m_ui->mnuFileRecent_1, m_ui->mnuFileRecent_2, m_ui->mnuFileRecent_3,
                               m_ui->mnuFileRecent_4};
    for (std::size_t i = 0; i < recent.size(); ++i) {
        recent[i]->setText(LiteralCaption(m_recentItems[i].Caption));
        recent[i]->setEnabled(m_recentItems[i].Enabled);
    }
}

void frmMain::ConnectOtherMenus() {
    connect(m_ui->mnuView, &QMenu::aboutToShow, this, [this] {
        m_ui->mnuViewLast->setEnabled(HasReport(Copy(), kProductionReport));
        ShowState();
    });
    ConnectEditors();
    connect(m_ui->mnuViewLast, &QAction::triggered, this,
            [this] { RunCommand([this] { OpenReport(Copy(), kProductionReport, *this); }); });
    connect(m_ui->mnuViewLastCont, &QAction::triggered, this,
            [this] { RunCommand([this] { OpenReport(Copy(), kRunReport, *this); }); });
    connect(m_ui->mnuViewStudy, &QAction::triggered, this,
            [this] { RunCommand([this] { ShowStudy(); }); });
    connect(m_ui->mnuHelpGuide, &QAction::triggered, this, &frmMain::ShowGuide);
    connect(m_ui->mnuHelpAbout, &QAction::triggered, this, &frmMain::ShowAbout);
}

void frmMain::ConnectEditors() {
    const auto on = [this](QAction* action, const std::function<void()>& show) {
        connect(action, &QAction::triggered, this, [this, show] { RunCommand(show); });
    };
    on(m_ui->mnuViewTasks, [this] { EditTasks(); });
    on(m_ui->mnuViewResources, [this] { frmResource(*this, m_commands.History(), this).exec(); });
    on(m_ui->mnuViewMatrix, [this] {
        frmMatrix matrix(*this, m_commands.History(), this);
        matrix.LoadMe();
        matrix.exec();
    });
}

/// The arcs are only built anew for another model: marks on the network survive a look at the
/// tasks.
void frmMain::EditTasks() {
    const auto inputs = [this] { return InputDigest(OpenWorkingCopy()); };
    const std::uint64_t before = inputs();
    frmTask(*this, m_commands.History(), this).exec();
    if (inputs() != before) {
        CreateLinks(OpenWorkingCopy(), *this, picArc);
    }
}

void frmMain::ShowGuide() {
    if (m_guide == nullptr) {
        m_guide = new frmGuide(this);
    }
    m_guide->show();
    m_guide->raise();
    m_guide->activateWindow();
}

void frmMain::ShowStudy() {
    if (m_study == nullptr) {
        m_study = new frmStudy(
            *this, m_commands,
            [this](const std::function<void()>& command) { return RunCommand(command); }, this);
        m_study->setWindowIcon(windowIcon());
        History().SetListener([this] { m_study->Look(); });
    }
    m_study->show();
    m_study->raise();
    m_study->activateWindow();
}

void frmMain::ShowAbout() {
    QMessageBox::about(this, QStringLiteral("About Quarnel02"),
                       QStringLiteral("<h3>Quarnel02 %1</h3><p>Economic design of an assembly "
                                      "line: which equipment does which tasks, and how many "
                                      "parallel stations each needs, at the lowest annual cost."
                                      "</p>")
                           .arg(QCoreApplication::applicationVersion()));
}

}  // namespace quarnel02
