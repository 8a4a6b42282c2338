#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "model/Database.h"
#include "model/RecordSet.h"
#include "shell/DemandList.h"
#include "shell/Dialogs.h"
#include "shell/PictureBoxes.h"
#include "shell/SolveStatus.h"
#include "shell/TextBoxes.h"

namespace quarnel02 {

/// Title of the main window, and of the boxes that have none of their own.
inline constexpr const char* kApplicationTitle = "Quarnel02";

/// What the last press of a shift button has left for the solver and the report.
struct FixedDemandState {
    std::int16_t ShiftCount = 0;          ///< shifts per day, 1 to 3
    std::string FixedDemand;              ///< units per year, as answered
    std::int16_t StationLimit = -1;       ///< parallel stations per pathway; -1 is no limit
    std::string StationLimitText = "--";  ///< the limit as typed; "--" is no limit
    double AvailableCycleTime = 0;        ///< seconds per unit
};

/// The main form as commands see it: everything that the smaller interfaces offer, and what is
/// left. The desktop window, the batch program and the tests' scripted form are the forms there
/// are.
class MainForm : public Dialogs,
                 public DemandList,
                 public SolveStatus,
                 public TextBoxes,
                 public PictureBoxes {
  public:
    /// `applicationDirectory` holds the template, the working copy and the reports.
    explicit MainForm(std::filesystem::path applicationDirectory);

    /// Title of the window.
    virtual void SetTitle(const std::string& title) = 0;

    /// Ends the whole program without cleaning up: the last thing that a procedure does. A window
    /// does not return from it.
    virtual void EndProgram() = 0;

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

    FixedDemandState FixedDemandSolve;
    Database Model;            ///< shared handle on the working copy, last opened
    RecordSet GenRecords;      ///< left open on Gen by the solve command
    RecordSet PathwayRecords;  ///< pathways being costed

  private:
    std::filesystem::path m_applicationDirectory;
};

}  // namespace quarnel02
