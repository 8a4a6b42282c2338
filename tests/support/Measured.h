#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <exception>
#include <functional>
#include <string>

namespace quarnel02::test {

#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kIsSanitized = true;
#else
inline constexpr bool kIsSanitized = false;
#endif
#if defined(__OPTIMIZE__)
inline constexpr bool kIsOptimised = true;
#else
inline constexpr bool kIsOptimised = false;
#endif

/// What an action came to in a process of its own.
struct Measured {
    std::string Message;   ///< of the exception that it ended with; "" for none
    bool Ended = false;    ///< by itself, not by a signal
    double Seconds = 0;    ///< of processor time
    double Megabytes = 0;  ///< most memory that the process had
};

/// Runs the action in a child process, which is killed after two minutes.
inline Measured MeasuredRun(const std::function<void()>& action) {
    constexpr unsigned longest = 120;
    constexpr double micro = 1e-6;
    constexpr double kilobytes = 1024;
    std::array<int, 2> pipe{};
    EXPECT_EQ(::pipe(pipe.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(longest);
        std::string message;
        try {
            action();
        } catch (const std::exception& error) {
            message = error.what();
        }
        [[maybe_unused]] const auto written = ::write(pipe[1], message.data(), message.size());
        ::_exit(0);
    }
    ::close(pipe[1]);
    Measured result;
    std::array<char, 4096> piece{};
    for (ssize_t got = 0; (got = ::read(pipe[0], piece.data(), piece.size())) > 0;) {
        result.Message.append(piece.data(), static_cast<std::size_t>(got));
    }
    ::close(pipe[0]);
    int status = 0;
    rusage usage{};
    ::wait4(child, &status, 0, &usage);
    result.Ended = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    result.Seconds = static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
                     micro * static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec);
    result.Megabytes = static_cast<double>(usage.ru_maxrss) / kilobytes;
    return result;
}

/// Whatever a file holds, the program is done with it in 3 seconds and 300 MB; half as much again
/// is allowed, because a processor that others use, too, takes longer for the same. Other builds
/// than the one that users have are slower, and sanitizers keep memory of their own.
inline void ExpectModest(const Measured& run) {
    constexpr double most_seconds = kIsSanitized ? 30 : kIsOptimised ? 4.5 : 9;
    constexpr double most_megabytes = 300;
    EXPECT_TRUE(run.Ended) << "killed by a signal";
    EXPECT_LT(run.Seconds, most_seconds);
    if (!kIsSanitized) {
        EXPECT_LT(run.Megabytes, most_megabytes);
    }
}

}  // namespace quarnel02::test
