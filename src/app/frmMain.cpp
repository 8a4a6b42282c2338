#include "app/frmMain.h"

#include <QAbstractButton>
#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QMessageBox>
#include <QProgressBar>
#include <QScreen>
#include <exception>
#include <utility>

#include "app/AppIcon.h"
#include "app/DemandCommands.h"
#include "app/Parameters.h"
#include "app/frmGuide.h"
#include "app/frmStatus.h"
#include "editors/Dialogs.h"
#include "editors/frmMatrix.h"
#include "editors/frmResource.h"
#include "editors/frmTask.h"
#include "fixed/CreateLinks.h"
#include "fixed/cmdContinuous.h"
#include "shell/Demand.h"
#include "shell/Reports.h"
#include "stoch/cmdStoch.h"
#include "ui_frmMain.h"

namespace quarnel02 {

namespace {

/// "&" in a file's name is no mnemonic.
QString LiteralCaption(const std::string& caption) {
    return QString::fromStdString(caption).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace

frmMain::frmMain(std::filesystem::path applicationDirectory)
    : MainForm(std::move(applicationDirectory)),
      m_ui(std::make_unique<Ui::frmMain>()),
      m_dialog(InApplicationDirectory({}), this),
      m_commands(*this, m_dialog),
      m_launcher(std::make_unique<ReportLauncher>(this)) {
    m_ui->setupUi(this);
    setWindowIcon(AppIcon());
    LayOut();
    m_ui->picArc->SetPicture(picArc);
    const std::array boxes = {m_ui->picGraph_0, m_ui->picGraph_1, m_ui->picGraph_2,
                              m_ui->picGraph_3};
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        boxes[i]->SetPicture(picGraph[i]);
    }
    ConnectParameters();
    ConnectDemand();
    ConnectSolve();
    ConnectFileMenu();
    ConnectOtherMenus();
    m_afterError.setSingleShot(true);
    m_afterError.setInterval(0);
    connect(&m_afterError, &QTimer::timeout, this, &frmMain::AfterError);
}

frmMain::~frmMain() = default;

void frmMain::LayOut() {
    m_ui->picArc->SetSizing(PictureBox::Sizing::TrueSize);
    m_ui->lblSum->setAutoFillBackground(true);
    m_ui->lstDemand->setMinimumHeight(4 * fontMetrics().lineSpacing());
    m_progress = new QProgressBar(this);
    m_progress->setRange(0, 0);
    m_progress->setMaximumWidth(20 * fontMetrics().averageCharWidth());
    m_progress->hide();
    m_ui->statusBar->addPermanentWidget(m_progress);
    for (QLineEdit* box : {m_ui->txtResources, m_ui->txtTasks}) {
        QPalette greyed = box->palette();
        greyed.setColor(QPalette::Base, greyed.color(QPalette::Window));
        box->setPalette(greyed);
    }
    const int network = static_cast<int>(picArc.Height() / kTwipsPerPixel);
    const int beside = m_ui->paneLeft->sizeHint().width() + 2 * m_ui->scrArc->frameWidth() +
                       8 * fontMetrics().averageCharWidth();
    const QSize wanted(static_cast<int>(picArc.Width() / kTwipsPerPixel) + beside,
                       network + 38 * fontMetrics().lineSpacing());
    resize(wanted.boundedTo(screen()->availableSize() * 0.95));
    const int upper = network + 3 * fontMetrics().lineSpacing();
    m_ui->splRight->setStretchFactor(0, 0);
    m_ui->splRight->setStretchFactor(1, 1);
    m_ui->splRight->setSizes({upper, height() - upper});
}

/// The focus begins in the list: beginning in a parameter box, leaving it would count as a change.
bool frmMain::StartUp() {
    m_ui->lstDemand->setFocus();
    return RunEvent([this] { m_commands.StartUp(); });
}

void frmMain::SetLauncher(std::unique_ptr<ReportLauncher> launcher) {
    m_launcher = std::move(launcher);
}

bool frmMain::RunEvent(const std::function<void()>& event) {
    try {
        event();
        return true;
    } catch (const std::exception& error) {
        ShowMessage(error.what(), MessageIcon::Critical);
        m_afterError.start();
        return false;
    }
}

/// A button pressed when the message came up has not seen its release; a box whose text was
/// refused gets the focus back.
void frmMain::AfterError() {
    if (QGuiApplication::mouseButtons() == Qt::NoButton) {
        for (QAbstractButton* button : findChildren<QAbstractButton*>()) {
            button->setDown(false);
        }
    }
    if (m_refused != nullptr) {
        m_refused->setFocus();
        m_refused->selectAll();
        m_refused = nullptr;
    }
}

/// A command sees what was typed last, even where a short cut left the focus in the box.
bool frmMain::RunCommand(const std::function<void()>& command) {
    return !m_solving && SaveFocusedBox() && RunEvent(command);
}

/// Tries once: a refused text does not stand in the way for ever.
bool frmMain::SaveFocusedBox() {
    auto* box = qobject_cast<FieldBox*>(focusWidget());
    if (box == nullptr || !box->isModified() || box == m_ui->txtVolume) {
        return true;
    }
    if (box == m_ui->txtProb) {
        emit box->Left();
        return true;
    }
    box->setModified(false);
    return RunEvent([&] { (box == m_ui->txtPenalty ? SavePenalty : SaveGeneral)(*this); });
}

void frmMain::SaveOnEntering(FieldBox& box, Procedure save) {
    connect(&box, &FieldBox::Entered, this, [this, save] { RunEvent([&] { save(*this); }); });
}

/// A text that is refused gets the focus back, once: another box may be the one at fault.
void frmMain::SaveOnLeaving(FieldBox& box, Procedure save) {
    connect(&box, &FieldBox::Left, this, [this, &box, save] {
        const bool typed = box.isModified();
        box.setModified(false);
        if (!RunEvent([&] { save(*this); }) && typed) {
            m_refused = &box;
        }
    });
}

void frmMain::ConnectParameters() {
    for (FieldBox* box :
         {m_ui->txtDays, m_ui->txtACF, m_ui->txtLaborCost, m_ui->txtTransTime, m_ui->txtProduct}) {
        SaveOnEntering(*box, SaveGeneral);
        SaveOnLeaving(*box, SaveGeneral);
    }
    SaveOnEntering(*m_ui->txtPenalty, SavePenalty);
    SaveOnLeaving(*m_ui->txtPenalty, SavePenalty);
}

void frmMain::ConnectDemand() {
    connect(m_ui->txtVolume, &FieldBox::Entered, this, [this] { m_ui->txtProb->setFocus(); });
    connect(m_ui->txtProb, &FieldBox::Entered, this, [this] { m_ui->cmdAdd->setFocus(); });
    connect(m_ui->txtProb, &FieldBox::Left, this,
            [this] { SetText(TextBox::txtProb, WithPercentSign(Text(TextBox::txtProb))); });
    connect(m_ui->cmdAdd, &QPushButton::clicked, this, [this] { ChangeDemand(cmdAdd_Click); });
    connect(m_ui->cmdUpdate, &QPushButton::clicked, this,
            [this] { ChangeDemand(cmdUpdate_Click); });
    connect(m_ui->cmdDelete, &QPushButton::clicked, this,
            [this] { ChangeDemand(cmdDelete_Click); });
    const auto show = [this] {
        if (SelectedDemand() >= 0) {
            RunEvent([this] { ShowDemandRow(*this, SelectedDemand()); });
        }
    };
    connect(m_ui->lstDemand, &QListWidget::itemSelectionChanged, this, show);
    connect(m_ui->lstDemand, &QListWidget::itemClicked, this, show);
}

void frmMain::ChangeDemand(Procedure change) {
    RunCommand([&] { change(*this); });
}

void frmMain::ConnectSolve() {
    const std::array buttons = {m_ui->cmdContinuous_1, m_ui->cmdContinuous_2,
                                m_ui->cmdContinuous_3};
    for (int shifts = 1; shifts <= 3; ++shifts) {
        connect(buttons[static_cast<std::size_t>(shifts - 1)], &QPushButton::clicked, this,
                [this, shifts] { Solve(shifts); });
    }
    connect(m_ui->cmdStoch, &QPushButton::clicked, this, &frmMain::SolveStochastic);
    connect(m_ui->chkFitWidth, &QCheckBox::toggled, this, [this](bool fit) {
        m_ui->scrArc->setHorizontalScrollBarPolicy(fit ? Qt::ScrollBarAlwaysOff
                                                       : Qt::ScrollBarAsNeeded);
        m_ui->picArc->SetSizing(fit ? PictureBox::Sizing::FitWidth : PictureBox::Sizing::TrueSize);
    });
}

void frmMain::Solve(int shifts) {
    RunCommand([&] {
        m_solving = true;
        RunEvent([&] { cmdContinuous_Click(*this, static_cast<std::int16_t>(shifts)); });
        ShowWorking(false);
        m_solving = false;
    });
}

void frmMain::SolveStochastic() {
    RunCommand([&] {
        m_solving = true;
        m_ui->statusBar->clearMessage();
        RunEvent([&] { cmdStoch_Click(*this); });
        ShowWorking(false);
        m_solving = false;
    });
}

/// Hourglass, progress bar and text while a solve works, not while it asks.
void frmMain::ShowWorking(bool working) {
    if (working == m_progress->isVisibleTo(m_ui->statusBar)) {
        return;
    }
    SetBusy(working);
    m_progress->setVisible(working);
    m_ui->statusBar->showMessage(working ? QStringLiteral("Designing the line...") : QString());
    DoEvents();
}

void frmMain::ConnectFileMenu() {
    const auto on = [this](QAction* action, auto command) {
        connect(action, &QAction::triggered, this,
                [this, command] { RunCommand([&] { command(m_commands); }); });
    };
    on(m_ui->mnuFileNew, [](FileCommands& commands) { commands.New(); });
    on(m_ui->mnuFileOpen, [](FileCommands& commands) { commands.Open(); });
    on(m_ui->mnuFileSaveAs, [](FileCommands& commands) { commands.SaveAs(); });
    on(m_ui->mnuFileSave, [this](FileCommands& commands) {
        if (Changed) {
            commands.Save();
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
    connect(m_ui->mnuFile, &QMenu::aboutToHide, this,
            [this] { m_ui->mnuFileSave->setEnabled(true); });
}

void frmMain::OpeningFileMenu() {
    SaveFocusedBox();
    m_ui->mnuFileSave->setEnabled(Changed);
    m_commands.Recent().FillMenu(m_recentItems);
    const std::array recent = {m_ui->mnuFileRecent_1, m_ui->mnuFileRecent_2, m_ui->mnuFileRecent_3,
                               m_ui->mnuFileRecent_4};
    for (std::size_t i = 0; i < recent.size(); ++i) {
        recent[i]->setText(LiteralCaption(m_recentItems[i].Caption));
        recent[i]->setEnabled(m_recentItems[i].Enabled);
    }
}

void frmMain::ConnectOtherMenus() {
    connect(m_ui->mnuView, &QMenu::aboutToShow, this,
            [this] { m_ui->mnuViewLast->setEnabled(HasReport(*this, kProductionReport)); });
    ConnectEditors();
    connect(m_ui->mnuViewLast, &QAction::triggered, this,
            [this] { RunCommand([this] { mnuViewLast(*this); }); });
    connect(m_ui->mnuViewLastCont, &QAction::triggered, this,
            [this] { RunCommand([this] { mnuViewLastCont(*this); }); });
    connect(m_ui->mnuHelpGuide, &QAction::triggered, this, &frmMain::ShowGuide);
    connect(m_ui->mnuHelpAbout, &QAction::triggered, this, &frmMain::ShowAbout);
}

void frmMain::ConnectEditors() {
    const auto on = [this](QAction* action, const std::function<void()>& show) {
        connect(action, &QAction::triggered, this, [this, show] { RunCommand(show); });
    };
    on(m_ui->mnuViewTasks, [this] {
        frmTask(*this, this).exec();
        CreateLinks(*this);
    });
    on(m_ui->mnuViewResources, [this] { frmResource(*this, this).exec(); });
    on(m_ui->mnuViewMatrix, [this] {
        frmMatrix matrix(*this, this);
        matrix.LoadMe();
        matrix.exec();
    });
}

void frmMain::ShowGuide() {
    if (m_guide == nullptr) {
        m_guide = new frmGuide(this);
    }
    m_guide->show();
    m_guide->raise();
    m_guide->activateWindow();
}

void frmMain::ShowAbout() {
    QMessageBox::about(this, QStringLiteral("About Quarnel02"),
                       QStringLiteral("<h3>Quarnel02 %1</h3><p>Economic design of an assembly "
                                      "line: which equipment does which tasks, and how many "
                                      "parallel stations each needs, at the lowest annual cost."
                                      "</p>")
                           .arg(QCoreApplication::applicationVersion()));
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (m_solving) {
        event->ignore();
        return;
    }
    if (!SaveFocusedBox()) {
        event->ignore();
        return;
    }
    RunEvent([this] { m_commands.AskToSave(); });
    event->accept();
}

}  // namespace quarnel02
