#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "shell/DemandList.h"
#include "shell/Desktop.h"
#include "shell/Dialogs.h"
#include "shell/PictureBoxes.h"
#include "shell/SolveStatus.h"
#include "shell/TextBoxes.h"
#include "shell/WorkingCopy.h"

namespace quarnel02 {

/// Title of the main window, and of the boxes that have none of their own.
inline constexpr const char* kApplicationTitle = "Quarnel02";

/// The main form as commands see it: everything that the smaller interfaces offer, and the working
/// copy that it shows. Procedures below the commands take the smaller interfaces. The desktop
/// window, the batch program and the tests' scripted form are the forms there are.
class MainForm : public Dialogs,
                 public DemandList,
                 public SolveStatus,
                 public TextBoxes,
                 public Desktop,
                 public PictureBoxes {
  public:
    /// `applicationDirectory` holds the template, the working copy and the reports.
    explicit MainForm(std::filesystem::path applicationDirectory);

    /// Title of the window.
    virtual void SetTitle(const std::string& title) = 0;

    /// Ends the whole program without cleaning up: the last thing that a procedure does. A window
    /// does not return from it.
    virtual void EndProgram() = 0;

    [[nodiscard]] const WorkingCopy& Copy() const { return m_copy; }
    /// Copy().Open() of a working copy that is shown (RequireShown).
    [[nodiscard]] Database OpenWorkingCopy() const {
        RequireShown();
        return m_copy.Open();
    }

    /// The working copy has become a model that could not be shown: `show`, before it is used, does
    /// that. Nothing: it is shown.
    void ShowBeforeUse(std::function<void()> show) { m_showFirst = std::move(show); }
    [[nodiscard]] bool ShowsWorkingCopy() const { return !m_showFirst; }
    /// Shows a working copy that is not shown, and throws FileAccess: what was entered meanwhile
    /// was meant for another model. Throws what showing throws.
    void RequireShown() const;

  private:
    WorkingCopy m_copy;
    mutable std::function<void()> m_showFirst;
};

}  // namespace quarnel02
