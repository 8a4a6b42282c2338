#pragma once

#include <filesystem>
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
    /// Copy().Open()
    [[nodiscard]] Database OpenWorkingCopy() const { return m_copy.Open(); }

  private:
    WorkingCopy m_copy;
};

}  // namespace quarnel02
