#include "app/frmMain.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <exception>
#include <new>
#include <utility>

#include "app/AppIcon.h"
#include "app/frmStatus.h"
#include "ui_frmMain.h"

namespace quarnel02 {

frmMain::frmMain(std::filesystem::path applicationDirectory)
    : MainForm(std::move(applicationDirectory)),
      m_ui(std::make_unique<Ui::frmMain>()),
      m_dialog(Copy().File({}), this),
      m_commands(*this, m_dialog),
      m_launcher(std::make_unique<ReportLauncher>(this, &m_memory)),
      m_marks(*this),
      m_memory(Copy().Directory()) {
    m_ui->setupUi(this);
    setWindowIcon(AppIcon());
    LayOut();
    m_ui->picArc->SetPicture(picArc);
    const std::array boxes = {m_ui->picGraph_0, m_ui->picGraph_1, m_ui->picGraph_2,
                              m_ui->picGraph_3};
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        boxes[i]->SetPicture(picGraph[i]);
    }
    m_ui->picLoad->SetPicture(picLoad);
    ConnectParameters();
    ConnectDemand();
    ConnectSolve();
    ConnectFileMenu();
    ConnectSheetFiles();
    ConnectEditMenu();
    ConnectOtherMenus();
    ConnectToolBar();
    ConnectResults();
    ConnectFirstSteps();
    ConnectLeaves();
    RecallLayout();
    m_afterError.setSingleShot(true);
    m_afterError.setInterval(0);
    connect(&m_afterError, &QTimer::timeout, this, &frmMain::AfterError);
}

frmMain::~frmMain() = default;

/// The focus begins in the list: beginning in a parameter box, leaving it would count as a change.
bool frmMain::StartUp() {
    m_ui->lstDemand->setFocus();
    return RunEvent([this] { m_commands.StartUp(); });
}

void frmMain::OpenGiven(const std::filesystem::path& file) {
    RunEvent([&] { m_commands.OpenGiven(file); });
}

bool frmMain::OpenAnother(const std::filesystem::path& file) {
    QWidget* dialog = QApplication::activeModalWidget();
    QWidget* front = dialog == nullptr ? this : dialog;
    front->setWindowState(front->windowState() & ~Qt::WindowMinimized);
    front->raise();
    front->activateWindow();
    if (dialog != nullptr || m_events > 0 || QApplication::activePopupWidget() != nullptr) {
        return false;
    }
    if (!file.empty()) {
        QTimer::singleShot(0, this,
                           [this, file] { RunCommand([&] { m_commands.OpenAnother(file); }); });
    }
    return true;
}

void frmMain::SetLauncher(std::unique_ptr<ReportLauncher> launcher) {
    m_launcher = std::move(launcher);
}

bool frmMain::RunEvent(const std::function<void()>& event) {
    ++m_events;
    const bool done = Attempt(event);
    --m_events;
    if (m_events == 0) {
        ShowState();
    }
    return done;
}

bool frmMain::Attempt(const std::function<void()>& event) {
    std::string failure;
    try {
        event();
        return true;
    } catch (const std::bad_alloc&) {
        failure =
            "There is not enough memory for this. Close other programs, or make the model smaller, "
            "and try again.";
    } catch (const std::exception& error) {
        failure = error.what();
    }
    ShowMessage(failure, MessageIcon::Critical);
    m_afterError.start();
    return false;
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

void frmMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        ShowColours();
    } else if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        m_toolBarWidth = 0;
    }
}

void frmMain::closeEvent(QCloseEvent* event) {
    bool leaving = false;
    if (m_events == 0 && SaveFocusedBox()) {
        RunEvent([&] { leaving = m_commands.Exit(); });
    }
    if (leaving) {
        RememberLayout();
    }
    event->setAccepted(leaving);
}

}  // namespace quarnel02
