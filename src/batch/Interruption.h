#pragma once

#include <atomic>
#include <csignal>
#include <filesystem>
#include <optional>
#include <thread>

#include "basic/Files.h"
#include "basic/Immovable.h"

namespace quarnel02 {

/// The directory in which one solve works, removed with everything in it when the object goes, and
/// when a signal ends the program under an EndOnSignals.
class ScratchDirectory : Immovable {
  public:
    /// Throws like TemporaryDirectory.
    ScratchDirectory();
    ~ScratchDirectory();

    [[nodiscard]] const std::filesystem::path& Path() const { return m_directory->Path(); }

  private:
    std::optional<TemporaryDirectory> m_directory;
};

/// While it lives, SIGINT, SIGTERM and SIGHUP remove the scratch directory and end the program with
/// status 128 + the signal's number; one that the program was told to ignore stays ignored.
/// A thread of its own waits for them, so that no work has to be safe inside a signal handler.
class EndOnSignals : Immovable {
  public:
    EndOnSignals();
    ~EndOnSignals();

  private:
    void Wait() const;

    sigset_t m_signals{};
    sigset_t m_before{};
    std::atomic<bool> m_over = false;
    std::thread m_thread;
};

}  // namespace quarnel02
