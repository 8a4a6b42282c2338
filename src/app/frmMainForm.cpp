// frmMain as the procedures see it: the main form's boxes, lists and dialogs.
#include <QCoreApplication>
#include <QCursor>
#include <QEventLoop>
#include <QGuiApplication>
#include <QSignalBlocker>
#include <cstdlib>

#include "app/frmMain.h"
#include "app/frmStatus.h"
#include "shell/Demand.h"
#include "ui_frmMain.h"
#include "widgets/Dialogs.h"

namespace quarnel02 {

QLineEdit& frmMain::Box(TextBox box) const {
    const std::array<QLineEdit*, kTextBoxes> boxes = {
        m_ui->txtResources, m_ui->txtTasks,   m_ui->txtDays,    m_ui->txtACF,    m_ui->txtLaborCost,
        m_ui->txtTransTime, m_ui->txtPenalty, m_ui->txtProduct, m_ui->txtVolume, m_ui->txtProb};
    return *boxes.at(static_cast<std::size_t>(box));
}

std::string frmMain::Text(TextBox box) const {
    return Box(box).text().toStdString();
}

void frmMain::SetText(TextBox box, const std::string& text) {
    Box(box).setText(QString::fromStdString(text));
    Box(box).setCursorPosition(0);
}

/// A star stands behind the file's name while the model differs from the file.
void frmMain::SetTitle(const std::string& title) {
    const QString mark = QStringLiteral("[*]");
    const QString application = QStringLiteral(" - ") + QString::fromLatin1(kApplicationTitle);
    QString text = QString::fromStdString(title).replace(mark, mark + mark);
    const bool names_file = text.endsWith(application);
    text.insert(text.size() - (names_file ? application.size() : 0), mark);
    setWindowTitle(text);
}

int frmMain::DemandCount() const {
    return m_ui->lstDemand->count();
}

int frmMain::SelectedDemand() const {
    const auto selected = m_ui->lstDemand->selectedItems();
    return selected.isEmpty() ? -1 : m_ui->lstDemand->row(selected.front());
}

void frmMain::SelectDemand(int line) {
    {
        const QSignalBlocker quiet(m_ui->lstDemand);
        m_ui->lstDemand->setCurrentRow(line);
    }
    ShowDemandRow(OpenWorkingCopy(), line, *this);
}

std::string frmMain::DemandLine(int line) const {
    return m_ui->lstDemand->item(line)->text().toStdString();
}

void frmMain::ClearDemand() {
    const QSignalBlocker quiet(m_ui->lstDemand);
    m_ui->lstDemand->clear();
}

void frmMain::AddDemandLine(const std::string& text) {
    m_ui->lstDemand->addItem(QString::fromStdString(text));
}

void frmMain::RemoveDemandLine(int line) {
    const QSignalBlocker quiet(m_ui->lstDemand);
    delete m_ui->lstDemand->takeItem(line);
    m_ui->lstDemand->setCurrentRow(-1);
}

void frmMain::ShowDemandSum(const std::string& text, Colour colour) {
    m_sumColour = colour;
    ShowSumColour();
    m_ui->lblSum->setText(QString::fromStdString(text));
}

/// A dialog in the middle of a solve takes input, and none that was meant for something else.
class frmMain::DialogScope : quarnel02::Immovable {
  public:
    explicit DialogScope(frmMain& window) : m_window(window) {
        m_window.ShowWorking(false);
        m_window.m_shield.Lower();
    }
    ~DialogScope() {
        if (m_window.m_solving) {
            m_window.m_shield.Raise();
        }
        m_window.ShowWorking(m_window.m_solving);
    }

  private:
    frmMain& m_window;
};

void frmMain::ShowMessage(const std::string& text, MessageIcon icon) {
    const DialogScope scope(*this);
    ShowMessageBox(this, text, icon);
}

bool frmMain::AskYesNo(const std::string& question, MessageIcon icon, Answer proposed) {
    const DialogScope scope(*this);
    return AskYesNoBox(this, question, icon, proposed);
}

std::string frmMain::InputBox(const std::string& prompt, const std::string& title,
                              const std::string& proposal) {
    const DialogScope scope(*this);
    return AskTextBox(this, prompt, title, proposal);
}

void frmMain::DoEvents() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmMain::SetBusy(bool busy) {
    if (busy) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QGuiApplication::restoreOverrideCursor();
    }
}

void frmMain::StartProgram(const std::string& commandLine) {
    m_launcher->Start(commandLine);
}

void frmMain::ShowStatus(const std::string& text) {
    m_status = std::make_unique<frmStatus>(this);
    m_status->setWindowModality(Qt::ApplicationModal);
    SetBusy(true);
    SetStatus(text);
    m_status->show();
    m_status->activateWindow();
    m_shield.LeaveOut(m_status.get());
    m_status->Look();
}

void frmMain::SetStatus(const std::string& text) {
    m_status->SetStatus(QString::fromStdString(text));
}

void frmMain::SetProgress(int done, int total) {
    m_status->SetProgress(done, total);
}

void frmMain::Look() {
    m_status->Look();
    if (m_status->IsCancelled()) {
        throw SolveCancelled();
    }
}

void frmMain::HideStatus() {
    m_status.reset();
    SetBusy(false);
    DoEvents();
}

/// In the status window it is soon overwritten; the status bar keeps it.
void frmMain::Notice(const std::string& text) {
    m_notice = QString::fromStdString(text);
    m_ui->statusBar->showMessage(m_notice);
    SetStatus(text);
}

void frmMain::EndProgram() {
    constexpr int failed = 2;
    std::_Exit(failed);
}

}  // namespace quarnel02
