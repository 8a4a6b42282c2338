#pragma once

#include <atomic>
#include <csignal>
#include <filesystem>
#include <optional>
#include <thread>

#include "basic/Files.h"

namespace quarnel02 {

/// The directory in which one solve works, removed with everything in it when the object goes, and
/// when a signal ends the program under an EndOnSignals.
class ScratchDirectory {
  public:
    /// Throws like TemporaryDirectory.
    ScratchDirectory();
    ~ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;
    ScratchDirectory(ScratchDirectory&&) = delete;
    ScratchDirectory& operator=(ScratchDirectory&&) = delete;

    [[nodiscard]] const std::filesystem::path& Path() const { return m_directory->Path(); }

  private:
    std::optional<TemporaryDirectory> m_directory;
};

/// While it lives, SIGINT, SIGTERM and SIGHUP remove the scratch directory and end the program with
/// status 128 + the signal's number; one that the program was told to ignore stays ignored.
/// A thread of its own waits for them, so that no work has to be safe inside a signal handler.
class EndOnSignals {
  public:
    EndOnSignals();
    ~EndOnSignals();
    EndOnSignals(const EndOnSignals&) = delete;
    EndOnSignals& operator=(const EndOnSignals&) = delete;
    EndOnSignals(EndOnSignals&&) = delete;
    EndOnSignals& operator=(EndOnSignals&&) = delete;

  private:
    void Wait() const;

    sigset_t m_signals{};
    sigset_t m_before{};
    std::atomic<bool> m_over = false;
    std::thread m_thread;
};

}  // namespace quarnel02
