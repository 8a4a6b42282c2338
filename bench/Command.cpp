#include "Command.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <map>
#include <set>
#include <stdexcept>
#include <thread>

#include "basic/Immovable.h"

namespace fs = std::filesystem;

namespace quarnel02::bench {

namespace {

pid_t Start(std::vector<std::string> words) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t files{};
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int failure =
        posix_spawn(&child, arguments.front(), &files, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    if (failure != 0) {
        throw std::runtime_error(words.front() + " does not start");
    }
    return child;
}

/// Counts the files that are made in the directories directly below another one.
class FileCount : Immovable {
  public:
    explicit FileCount(const fs::path& root) : m_notices(inotify_init1(IN_NONBLOCK)) {
        m_directories[inotify_add_watch(m_notices, root.c_str(), IN_CREATE)] = root;
        m_root = m_directories.begin()->first;
        m_thread = std::thread([this] { Watch(); });
    }
    ~FileCount() {
        Stop();
        ::close(m_notices);
    }
    int Result() {
        Stop();
        if (m_lost) {
            throw std::runtime_error("too many files at once to count them");
        }
        return m_files;
    }

  private:
    void Stop() {
        m_over = true;
        if (m_thread.joinable()) {
            m_thread.join();
        }
    }
    void Watch() {
        constexpr int patience = 20;  // ms
        bool over = false;
        while (!over) {
            over = m_over;
            pollfd notices{m_notices, POLLIN, 0};
            if (::poll(&notices, 1, patience) > 0) {
                Read();
                over = false;
            }
        }
    }
    void Read() {
        alignas(inotify_event) std::array<char, 65536> buffer{};
        const ssize_t size = ::read(m_notices, buffer.data(), buffer.size());
        for (ssize_t at = 0; at < size;) {
            const auto* event = reinterpret_cast<const inotify_event*>(buffer.data() + at);
            Take(*event);
            at += static_cast<ssize_t>(sizeof(inotify_event)) + event->len;
        }
    }
    void Take(const inotify_event& event) {
        if ((event.mask & IN_Q_OVERFLOW) != 0) {
            m_lost = true;
            return;
        }
        const fs::path made = m_directories.at(event.wd) / event.name;
        if (event.wd != m_root) {
            m_files += m_known.erase(made) == 0 ? 1 : 0;
        } else if ((event.mask & IN_ISDIR) != 0) {
            m_directories[inotify_add_watch(m_notices, made.c_str(), IN_CREATE)] = made;
            CountThoseAlreadyIn(made);
        }
    }
    /// Files made before the directory was watched; of some a notice may still come.
    void CountThoseAlreadyIn(const fs::path& directory) {
        std::error_code ignored;
        for (const auto& entry : fs::directory_iterator(directory, ignored)) {
            m_known.insert(entry.path());
            ++m_files;
        }
    }

    int m_notices;
    int m_root = 0;
    std::map<int, fs::path> m_directories;  ///< by watch
    std::set<fs::path> m_known;
    int m_files = 0;
    bool m_lost = false;
    std::atomic<bool> m_over = false;
    std::thread m_thread;
};

}  // namespace

CommandCost Run(const std::vector<std::string>& words, const fs::path& temporary) {
    using Clock = std::chrono::steady_clock;
    ::setenv("TMPDIR", temporary.c_str(), 1);
    const auto start = Clock::now();
    const pid_t child = Start(words);
    int status = 0;
    rusage used{};
    ::wait4(child, &status, 0, &used);
    const std::chrono::duration<double, std::milli> time = Clock::now() - start;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        throw std::runtime_error(words.front() + " fails");
    }
    constexpr double kilobytes = 1024;
    return {time.count(), static_cast<double>(used.ru_maxrss) / kilobytes, 0};
}

CommandCost RunCountingFiles(const std::vector<std::string>& words, const fs::path& temporary) {
    FileCount files(temporary);
    CommandCost cost = Run(words, temporary);
    cost.Files = files.Result();
    return cost;
}

}  // namespace quarnel02::bench
