// frmMain as the procedures see it: the main form's boxes, lists and dialogs.
#include <QCoreApplication>
#include <QCursor>
#include <QEventLoop>
#include <QGuiApplication>
#include <QSignalBlocker>
#include <cstdlib>

#include "app/frmMain.h"
#include "app/frmStatus.h"
#include "editors/Dialogs.h"
#include "shell/Demand.h"
#include "ui_frmMain.h"

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

void frmMain::SetTitle(const std::string& title) {
    setWindowTitle(QString::fromStdString(title));
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
    ShowDemandRow(*this, line);
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

/// The colours are meant for light paper, which the label brings along.
void frmMain::ShowDemandSum(const std::string& text, Colour colour) {
    QPalette paper = m_ui->lblSum->palette();
    paper.setColor(QPalette::Window, text.empty() ? palette().color(QPalette::Window) : Qt::white);
    paper.setColor(QPalette::WindowText, QColor(colour.Red, colour.Green, colour.Blue));
    m_ui->lblSum->setPalette(paper);
    m_ui->lblSum->setText(QString::fromStdString(text));
}

void frmMain::ShowMessage(const std::string& text, MessageIcon icon) {
    ShowWorking(false);
    ShowMessageBox(this, text, icon);
    ShowWorking(m_solving);
}

bool frmMain::AskYesNo(const std::string& question, MessageIcon icon, Answer proposed) {
    ShowWorking(false);
    const bool yes = AskYesNoBox(this, question, icon, proposed);
    ShowWorking(m_solving);
    return yes;
}

std::string frmMain::InputBox(const std::string& prompt, const std::string& title,
                              const std::string& proposal) {
    ShowWorking(false);
    std::string answer = AskTextBox(this, prompt, title, proposal);
    ShowWorking(m_solving);
    return answer;
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
    m_status->show();
    SetStatus(text);
}

void frmMain::SetStatus(const std::string& text) {
    m_status->SetStatus(QString::fromStdString(text));
}

void frmMain::SetProgress(int done, int total) {
    m_status->SetProgress(done, total);
}

void frmMain::HideStatus() {
    m_status.reset();
    SetBusy(false);
    DoEvents();
}

/// In the status window it is soon overwritten; the status bar keeps it.
void frmMain::Notice(const std::string& text) {
    m_ui->statusBar->showMessage(QString::fromStdString(text));
    SetStatus(text);
}

void frmMain::EndProgram() {
    constexpr int failed = 2;
    std::_Exit(failed);
}

}  // namespace quarnel02
