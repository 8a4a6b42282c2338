#pragma once

#include <string>

#include "basic/Immovable.h"

namespace quarnel02 {

/// What surrounds the windows: pending events, the pointer, other programs.
class Desktop : Immovable {
  public:
    virtual ~Desktop() = default;

    /// Lets pending screen events run.
    virtual void DoEvents() = 0;
    /// Hourglass pointer on or off.
    virtual void SetBusy(bool busy) = 0;
    /// Starts a program, without waiting for it.
    virtual void StartProgram(const std::string& commandLine) = 0;
};

}  // namespace quarnel02
