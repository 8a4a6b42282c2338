#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "model/Database.h"
#include "model/RecordSet.h"
#include "shell/DesignMade.h"
#include "shell/Picture.h"

namespace quarnel02 {

/// Title of the main window, and of the boxes that have none of their own.
inline constexpr const char* kApplicationTitle = "Quarnel02";

/// The text boxes of the main form that procedures read or fill.
enum class TextBox {
    txtResources,
    txtTasks,
    txtDays,
    txtACF,
    txtLaborCost,
    txtTransTime,
    txtPenalty,
    txtProduct,
    txtVolume,
    txtProb
};
inline constexpr std::size_t kTextBoxes = 10;

enum class MessageIcon { None, Information, Question, Critical };

/// The button of a question that Enter presses.
enum class Answer { Yes, No };

/// What the last press of a shift button has left for the solver and the report.
struct FixedDemandState {
    std::int16_t ShiftCount = 0;          ///< shifts per day, 1 to 3
    std::string FixedDemand;              ///< units per year, as answered
    std::int16_t StationLimit = -1;       ///< parallel stations per pathway; -1 is no limit
    std::string StationLimitText = "--";  ///< the limit as typed; "--" is no limit
    double AvailableCycleTime = 0;        ///< seconds per unit
};

/// The main form as everything below the windows sees it: boxes, demand list, dialogs, pictures
/// and the state that procedures share. The desktop window, the batch program and the tests'
/// scripted form are the forms there are.
class MainForm {
  public:
    /// `applicationDirectory` holds the template, the working copy and the reports.
    explicit MainForm(std::filesystem::path applicationDirectory);
    virtual ~MainForm() = default;
    MainForm(const MainForm&) = delete;
    MainForm& operator=(const MainForm&) = delete;
    MainForm(MainForm&&) = delete;
    MainForm& operator=(MainForm&&) = delete;

    [[nodiscard]] virtual std::string Text(TextBox box) const = 0;
    virtual void SetText(TextBox box, const std::string& text) = 0;

    /// Title of the window.
    virtual void SetTitle(const std::string& title) = 0;

    /// The list of demand rows lstDemand: number of lines, selected line (from 0; -1 is none), and
    /// a selection as by a click, which fills txtVolume and txtProb. Clearing drops the selection.
    [[nodiscard]] virtual int DemandCount() const = 0;
    [[nodiscard]] virtual int SelectedDemand() const = 0;
    virtual void SelectDemand(int line) = 0;
    [[nodiscard]] virtual std::string DemandLine(int line) const = 0;
    virtual void ClearDemand() = 0;
    virtual void AddDemandLine(const std::string& text) = 0;
    virtual void RemoveDemandLine(int line) = 0;
    /// The label lblSum under the list.
    virtual void ShowDemandSum(const std::string& text, Colour colour) = 0;

    /// Modal dialogs. The input box gives "" when it is cancelled.
    virtual void ShowMessage(const std::string& text, MessageIcon icon) = 0;
    virtual bool AskYesNo(const std::string& question, MessageIcon icon, Answer proposed) = 0;
    /// Whether to solve in spite of what `warning` (a sentence) says; the proposed answer is No.
    virtual bool SolveAnyway(const std::string& warning);
    virtual std::string InputBox(const std::string& prompt, const std::string& title,
                                 const std::string& proposal) = 0;

    /// The status window of a long solve: shown with a text, its text and progress replaced (each
    /// repaints it), and taken away. While it is shown the main window cannot be used.
    virtual void ShowStatus(const std::string& text) = 0;
    virtual void SetStatus(const std::string& text) = 0;
    virtual void SetProgress(int done, int total) = 0;
    virtual void HideStatus() = 0;
    /// Something about a running solve that the user should know, beside its status text.
    virtual void Notice(const std::string& text) = 0;

    /// Ends the whole program at once, without cleaning up.
    [[noreturn]] virtual void EndProgram() = 0;

    /// Lets pending screen events run.
    virtual void DoEvents() = 0;
    /// Hourglass pointer on or off.
    virtual void SetBusy(bool busy) = 0;
    /// Starts a program, without waiting for it.
    virtual void StartProgram(const std::string& commandLine) = 0;

    [[nodiscard]] const std::filesystem::path& ApplicationDirectory() const {
        return m_applicationDirectory;
    }
    /// Full path of a file of the application directory.
    [[nodiscard]] std::filesystem::path InApplicationDirectory(const std::string& file) const;

    /// Full path of the working copy, "working.seq".
    [[nodiscard]] std::filesystem::path WorkingCopy() const;

    /// Opens the working copy; the handle becomes the form's shared one. Throws as
    /// Database::Open does.
    Database& OpenWorkingCopy();
    /// Closes the shared handle and record sets; never fails.
    void CloseModel() noexcept;

    /// The model file last opened or saved: its directory, and its name with extension; both ""
    /// for an untitled model.
    std::string CurrentDir;
    std::string CurrentFile;
    bool Changed = false;  ///< the working copy holds changes not yet copied to a model file

    Picture picArc;                   ///< the arc network, 15000 twips wide
    std::array<Picture, 4> picGraph;  ///< results
    FixedDemandState FixedDemandSolve;
    std::optional<DesignMade> LastDesign;  ///< what the pictures show; none without results
    Database Model;                        ///< shared handle on the working copy, last opened
    RecordSet GenRecords;                  ///< left open on Gen by the solve command
    RecordSet PathwayRecords;              ///< pathways being costed

  private:
    std::filesystem::path m_applicationDirectory;
};

}  // namespace quarnel02
