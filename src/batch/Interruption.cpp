#include "batch/Interruption.h"

#include <pthread.h>
#include <unistd.h>

#include <chrono>
#include <mutex>
#include <system_error>

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

/// Tells the waiting thread that it is no longer needed.
constexpr int kStopWaiting = SIGUSR1;

struct Scratch {
    std::mutex Mutex;    ///< not given back by a thread that ends the program
    fs::path Directory;  ///< empty while there is none
};

Scratch& TheScratch() {
    static Scratch scratch;
    return scratch;
}

bool IsIgnored(int signal) {
    struct sigaction action {};
    return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

/// The solve goes on meanwhile, and may make a file while the directory is being emptied.
void RemoveWhileInUse(const fs::path& directory) {
    constexpr int most_tries = 1000;
    std::error_code error;
    for (int attempt = 0; attempt < most_tries && fs::exists(directory, error); ++attempt) {
        fs::remove_all(directory, error);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

[[noreturn]] void EndProgram(int signal) {
    constexpr int ended_by_signal = 128;
    const std::scoped_lock lock(TheScratch().Mutex);
    if (!TheScratch().Directory.empty()) {
        RemoveWhileInUse(TheScratch().Directory);
    }
    ::_exit(ended_by_signal + signal);
}

}  // namespace

ScratchDirectory::ScratchDirectory() {
    const std::scoped_lock lock(TheScratch().Mutex);
    m_directory.emplace();
    TheScratch().Directory = m_directory->Path();
}

ScratchDirectory::~ScratchDirectory() {
    const std::scoped_lock lock(TheScratch().Mutex);
    m_directory.reset();
    TheScratch().Directory.clear();
}

EndOnSignals::EndOnSignals() {
    sigemptyset(&m_signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        if (!IsIgnored(signal)) {
            sigaddset(&m_signals, signal);
        }
    }
    sigaddset(&m_signals, kStopWaiting);
    pthread_sigmask(SIG_BLOCK, &m_signals, &m_before);
    m_thread = std::thread([this] { Wait(); });
}

EndOnSignals::~EndOnSignals() {
    m_over = true;
    pthread_kill(m_thread.native_handle(), kStopWaiting);
    m_thread.join();
    pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
}

void EndOnSignals::Wait() const {
    int signal = 0;
    while (sigwait(&m_signals, &signal) != 0) {
    }
    if (signal != kStopWaiting || !m_over) {
        EndProgram(signal);
    }
}

}  // namespace quarnel02
