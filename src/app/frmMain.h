#pragma once

#include <QMainWindow>
#include <QTimer>
#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "app/FileCommands.h"
#include "app/ReportLauncher.h"
#include "app/frmFile.h"
#include "shell/MainForm.h"

class QLineEdit;
class QProgressBar;

namespace quarnel02 {

class FieldBox;
class frmGuide;
class frmStatus;

namespace Ui {
class frmMain;
}

/// The main window. It holds the controls and passes their events on; what the events do stands
/// in the procedures they call.
class frmMain : public QMainWindow, public MainForm {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(frmMain)

  public:
    explicit frmMain(std::filesystem::path applicationDirectory);
    ~frmMain() override;

    /// Begins an untitled model. False when that failed, which the user has then been told.
    bool StartUp();

    /// Runs what an event does. A run-time error ends it with one critical message; the program
    /// lives on. False after an error.
    bool RunEvent(const std::function<void()>& event);

    /// How reports are opened; tests put their own in its place.
    void SetLauncher(std::unique_ptr<ReportLauncher> launcher);

    [[nodiscard]] std::string Text(TextBox box) const override;
    void SetText(TextBox box, const std::string& text) override;
    void SetTitle(const std::string& title) override;
    [[nodiscard]] int DemandCount() const override;
    [[nodiscard]] int SelectedDemand() const override;
    void SelectDemand(int line) override;
    [[nodiscard]] std::string DemandLine(int line) const override;
    void ClearDemand() override;
    void AddDemandLine(const std::string& text) override;
    void RemoveDemandLine(int line) override;
    void ShowDemandSum(const std::string& text, Colour colour) override;
    void ShowMessage(const std::string& text, MessageIcon icon) override;
    bool AskYesNo(const std::string& question, MessageIcon icon, Answer proposed) override;
    std::string InputBox(const std::string& prompt, const std::string& title,
                         const std::string& proposal) override;
    void DoEvents() override;
    void SetBusy(bool busy) override;
    void StartProgram(const std::string& commandLine) override;
    void ShowStatus(const std::string& text) override;
    void SetStatus(const std::string& text) override;
    void SetProgress(int done, int total) override;
    void HideStatus() override;
    void Notice(const std::string& text) override;
    [[noreturn]] void EndProgram() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    using Procedure = void (*)(MainForm&);

    void LayOut();
    void ConnectParameters();
    void ConnectDemand();
    void ConnectSolve();
    void ConnectFileMenu();
    void ConnectOtherMenus();
    void ConnectEditors();

    bool RunCommand(const std::function<void()>& command);
    void SaveOnEntering(FieldBox& box, Procedure save);
    void SaveOnLeaving(FieldBox& box, Procedure save);
    bool SaveFocusedBox();
    void AfterError();
    void ChangeDemand(Procedure change);
    void Solve(int shifts);
    void SolveStochastic();
    void ShowWorking(bool working);
    void OpeningFileMenu();
    void ShowGuide();
    void ShowAbout();

    [[nodiscard]] QLineEdit& Box(TextBox box) const;

    std::unique_ptr<Ui::frmMain> m_ui;
    frmFile m_dialog;
    FileCommands m_commands;
    std::array<RecentItem, 4> m_recentItems;
    std::unique_ptr<ReportLauncher> m_launcher;
    frmGuide* m_guide = nullptr;
    QProgressBar* m_progress = nullptr;
    std::unique_ptr<frmStatus> m_status;  ///< while a stochastic solve runs
    bool m_solving = false;
    QTimer m_afterError;
    FieldBox* m_refused = nullptr;  ///< box to go back to after the message
};

}  // namespace quarnel02
