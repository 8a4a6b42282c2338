#pragma once

#include <QMainWindow>
#include <QTimer>
#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/InputShield.h"
#include "app/ReportLauncher.h"
#include "app/WindowMemory.h"
#include "app/frmFile.h"
#include "commands/FileCommands.h"
#include "commands/ResultMarks.h"
#include "report/Document.h"
#include "shell/MainForm.h"

class QLabel;
class QLineEdit;
class QProgressBar;

namespace quarnel02 {

enum class PictureCommand;
class ElidedLabel;
class FieldBox;
class PictureBox;
class ResultBoxes;
class frmGuide;
class frmStudy;
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

    /// Opens the model that the program was started with; what is wrong with it the user is told.
    void OpenGiven(const std::filesystem::path& file);

    /// Comes to the front for a further start of the program, and soon opens its file if it has
    /// one. False while a solve, a dialog or a menu has to be finished first.
    bool OpenAnother(const std::filesystem::path& file);

    [[nodiscard]] CurrentModel& Current() { return m_commands.Current(); }
    [[nodiscard]] EditHistory& History() { return m_commands.History(); }

    /// Runs what an event does, and then shows whether results and file still belong to the model.
    /// A run-time error ends it with one critical message; the program lives on. False after an
    /// error.
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
    void Look() override;
    void HideStatus() override;
    void Notice(const std::string& text) override;
    [[noreturn]] void EndProgram() override;

  protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    using Procedure = void (*)(MainForm&, CurrentModel&);
    class SolveScope;
    class DialogScope;

    void LayOut();
    void LayOutStatusBar();
    void LayOutMark();
    void LimitSize();
    void WidenLeftPane();
    void ChooseSize();
    void ConnectParameters();
    void ConnectDemand();
    void ConnectSolve();
    void ConnectFileMenu();
    void ConnectSheetFiles();
    void ConnectEditMenu();
    void ConnectOtherMenus();
    void ConnectEditors();
    void ConnectToolBar();
    void ConnectResults();
    void ConnectFirstSteps();
    void ConnectLeaves();

    bool Attempt(const std::function<void()>& event);
    bool RunCommand(const std::function<void()>& command);
    bool Store(FieldBox& box, Procedure save);
    void SaveOnEntering(FieldBox& box, Procedure save);
    void SaveOnLeaving(FieldBox& box, Procedure save);
    bool SaveFocusedBox();
    void AfterError();
    FieldBox* BoxAtFault(FieldBox& left, Procedure save);
    void ChangeLine(Procedure change);
    void AddDemand();
    void EditTasks();
    void Solve(int shifts);
    void SolveStochastic();
    void Design(const std::function<void()>& solve, const char* report);
    void ShowCancelled(const QString& before);
    void ShowWorking(bool working);
    void ShowState();
    void ShowMarks();
    void ShowSteps();
    void ShowFile();
    void ShowBriefly(const QString& text);
    void ShowDesign();
    void ShowResults();
    void ShowTitles();
    void DescribePictures();
    void ShowColours();
    void ShowSumColour();
    void ShowIcons();
    void FitToolBar();
    void RecallLayout();
    void RememberLayout();
    void EnableDemandButtons();
    void OpeningFileMenu();
    void Import();
    void ExportWorkbook();
    void ExportCsvFiles();
    [[nodiscard]] QString UserDirectory();
    void RememberDirectory(const QString& file);
    void NamePictureCommands();
    [[nodiscard]] PictureBox& PictureInMind() const;
    [[nodiscard]] const Picture& PictureOf(const PictureBox& box) const;
    [[nodiscard]] QString TitleOf(const PictureBox& box) const;
    [[nodiscard]] QString MarkOfPictures() const;
    [[nodiscard]] QString ProposedName(const QString& what) const;
    void TakeOut(const PictureBox& box, PictureCommand command);
    void NoteSaved(const std::optional<QString>& file);
    [[nodiscard]] Document Report() const;
    void SaveReport();
    void FillExamplesMenu();
    void FillRecoverMenu(const std::vector<KeptModel>& models);
    void ShowGuide();
    void ShowStudy();
    void ShowAbout();

    [[nodiscard]] QLineEdit& Box(TextBox box) const;

    std::unique_ptr<Ui::frmMain> m_ui;
    frmFile m_dialog;
    FileCommands m_commands;
    std::array<RecentItem, 4> m_recentItems;
    std::unique_ptr<ReportLauncher> m_launcher;
    ResultMarks m_marks;
    InputShield m_shield;
    WindowMemory m_memory;
    ResultBoxes* m_boxes = nullptr;
    int m_toolBarWidth = 0;               ///< with all its texts; 0 until it is known
    PictureBox* m_lastPicture = nullptr;  ///< that had the focus last
    frmGuide* m_guide = nullptr;
    frmStudy* m_study = nullptr;
    QProgressBar* m_progress = nullptr;
    ElidedLabel* m_file = nullptr;    ///< in the status bar: product and file
    QLabel* m_saved = nullptr;        ///< "saved", or "*" for a model that differs from its file
    ElidedLabel* m_size = nullptr;    ///< tasks and resources
    ElidedLabel* m_design = nullptr;  ///< what the pictures show
    Colour m_sumColour;               ///< of lblSum on light paper
    std::unique_ptr<frmStatus> m_status;  ///< while a stochastic solve runs
    QString m_notice;                     ///< the last one of a solve
    bool m_solving = false;
    int m_events = 0;  ///< that run inside one another
    QTimer m_afterError;
    FieldBox* m_refused = nullptr;  ///< box to go back to after the message
};

}  // namespace quarnel02
