#include "batch/Jobs.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <system_error>
#include <vector>

#include "basic/Immovable.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

constexpr int kEndedBySignal = 128;

struct CloseFile {
    void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
/// A temporary file without a name.
using TemporaryFile = std::unique_ptr<std::FILE, CloseFile>;

[[noreturn]] void ThrowSystemError(const char* what) {
    throw RunTimeError(ErrorKind::FileAccess, std::string(what) + " cannot be made: " +
                                                  std::generic_category().message(errno) + ".");
}

TemporaryFile MakeTemporaryFile() {
    TemporaryFile file(std::tmpfile());
    if (!file) {
        ThrowSystemError("A temporary file");
    }
    return file;
}

std::string ContentOf(std::FILE* file) {
    constexpr std::size_t block = 65536;
    std::string content;
    std::vector<char> bytes(block);
    std::rewind(file);
    while (const std::size_t count = std::fread(bytes.data(), 1, block, file)) {
        content.append(bytes.data(), count);
    }
    return content;
}

/// Signals that end the program, and the one that says that a job has ended, are waited for.
class WaitedSignals : Immovable {
  public:
    WaitedSignals() {
        sigemptyset(&m_signals);
        sigaddset(&m_signals, SIGCHLD);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
            struct sigaction action {};
            if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler != SIG_IGN) {
                sigaddset(&m_signals, signal);
            }
        }
        ::sigprocmask(SIG_BLOCK, &m_signals, &m_before);
    }
    ~WaitedSignals() { Restore(); }

    void Restore() const { ::sigprocmask(SIG_SETMASK, &m_before, nullptr); }

    [[nodiscard]] int Next() const {
        int signal = 0;
        while (::sigwait(&m_signals, &signal) != 0) {
        }
        return signal;
    }

  private:
    sigset_t m_signals{};
    sigset_t m_before{};
};

/// A job and its process.
struct Running {
    pid_t Process = -1;  ///< -1 once it has ended
    TemporaryFile Out;
    TemporaryFile Err;
    int Status = 0;
};

class Pool {
  public:
    Pool(int count, int atOnce, const std::function<int(int)>& job)
        : m_count(count), m_atOnce(atOnce), m_job(job) {}

    void Run(const std::function<void(int, const JobResult&)>& done) {
        for (int next = 0; next < m_count;) {
            StartSome();
            if (auto& first = m_jobs[static_cast<std::size_t>(next)]; first.Process == -1) {
                done(next, {ContentOf(first.Out.get()), ContentOf(first.Err.get()), first.Status});
                first = Running();
                ++next;
                continue;
            }
            Await();
        }
    }

  private:
    [[nodiscard]] int RunningCount() const {
        return static_cast<int>(std::count_if(
            m_jobs.begin(), m_jobs.end(), [](const Running& job) { return job.Process != -1; }));
    }

    void StartSome() {
        while (static_cast<int>(m_jobs.size()) < m_count && RunningCount() < m_atOnce) {
            Start(static_cast<int>(m_jobs.size()));
        }
    }

    void Start(int number) {
        Running job{-1, MakeTemporaryFile(), MakeTemporaryFile(), 0};
        std::cout.flush();
        job.Process = ::fork();
        if (job.Process == -1) {
            ThrowSystemError("A process");
        }
        if (job.Process == 0) {
            BeJob(number, job);
        }
        m_jobs.push_back(std::move(job));
    }

    [[noreturn]] void BeJob(int number, const Running& job) const {
        m_signals.Restore();
        ::dup2(::fileno(job.Out.get()), STDOUT_FILENO);
        ::dup2(::fileno(job.Err.get()), STDERR_FILENO);
        const int status = m_job(number);
        std::cout.flush();
        std::cerr.flush();
        ::_exit(status);  // what else is open belongs to the first process
    }

    void Await() {
        const int signal = m_signals.Next();
        if (signal != SIGCHLD) {
            EndAll(signal);
        }
        for (Running& job : m_jobs) {
            NoteEnd(job, WNOHANG);
        }
    }

    static void NoteEnd(Running& job, int options) {
        int status = 0;
        if (job.Process != -1 && ::waitpid(job.Process, &status, options) == job.Process) {
            job.Process = -1;
            job.Status =
                WIFSIGNALED(status) ? kEndedBySignal + WTERMSIG(status) : WEXITSTATUS(status);
        }
    }

    [[noreturn]] void EndAll(int signal) {
        for (const Running& job : m_jobs) {
            if (job.Process != -1) {
                ::kill(job.Process, SIGTERM);
            }
        }
        for (Running& job : m_jobs) {
            NoteEnd(job, 0);
        }
        std::cout.flush();
        ::_exit(kEndedBySignal + signal);
    }

    int m_count;
    int m_atOnce;
    const std::function<int(int)>& m_job;
    WaitedSignals m_signals;
    std::vector<Running> m_jobs;  ///< that were started
};

}  // namespace

void RunJobs(int count, int atOnce, const std::function<int(int)>& job,
             const std::function<void(int, const JobResult&)>& done) {
    Pool(count, atOnce, job).Run(done);
}

}  // namespace quarnel02
