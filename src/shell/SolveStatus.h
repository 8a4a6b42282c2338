#pragma once

#include <exception>
#include <string>

#include "basic/Immovable.h"

namespace quarnel02 {

/// Ends a solve that the user wants no more of.
class SolveCancelled : public std::exception {
  public:
    [[nodiscard]] const char* what() const noexcept override { return "The solve was cancelled."; }
};

/// The status window of a long solve. While it is shown the main window cannot be used.
class SolveStatus : Immovable {
  public:
    virtual ~SolveStatus() = default;

    virtual void ShowStatus(const std::string& text) = 0;
    /// Replaces the text, or the share done; the next look shows it.
    virtual void SetStatus(const std::string& text) = 0;
    virtual void SetProgress(int done, int total) = 0;
    /// Called by a solve every few milliseconds while the window is shown: lets the windows live.
    /// Throws SolveCancelled once the user has asked for that.
    virtual void Look() = 0;
    virtual void HideStatus() = 0;
    /// Something about a running solve that the user should know, beside its status text.
    virtual void Notice(const std::string& text) = 0;
};

}  // namespace quarnel02
