#pragma once

#include <string>

#include "basic/Immovable.h"

namespace quarnel02 {

/// The status window of a long solve. While it is shown the main window cannot be used.
class SolveStatus : Immovable {
  public:
    virtual ~SolveStatus() = default;

    virtual void ShowStatus(const std::string& text) = 0;
    /// Replaces the text, or the share done; each repaints the window.
    virtual void SetStatus(const std::string& text) = 0;
    virtual void SetProgress(int done, int total) = 0;
    virtual void HideStatus() = 0;
    /// Something about a running solve that the user should know, beside its status text.
    virtual void Notice(const std::string& text) = 0;
};

}  // namespace quarnel02
