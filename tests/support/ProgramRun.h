#pragma once

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "basic/Files.h"

namespace quarnel02::test {

/// What a program left behind: exit status (-1 when a signal ended it) and what it wrote.
struct ProgramResult {
    int Status = -1;
    std::string Out;
    std::string Err;
};

/// Changes to the environment of a program; an empty value removes the variable.
using Environment = std::map<std::string, std::string>;

inline void RedirectTo(int descriptor, const std::filesystem::path& file) {
    const int target = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (target < 0 || ::dup2(target, descriptor) < 0) {
        ::_exit(127);
    }
}

[[noreturn]] inline void BecomeProgram(std::vector<char*>& arguments,
                                       const Environment& environment,
                                       const std::filesystem::path& out,
                                       const std::filesystem::path& err) {
    for (const auto& [name, value] : environment) {
        if (value.empty()) {
            ::unsetenv(name.c_str());
        } else {
            ::setenv(name.c_str(), value.c_str(), 1);
        }
    }
    const int nothing = ::open("/dev/null", O_RDONLY);
    ::dup2(nothing, STDIN_FILENO);
    RedirectTo(STDOUT_FILENO, out);
    RedirectTo(STDERR_FILENO, err);
    ::execvp(arguments.front(), arguments.data());
    ::_exit(127);
}

/// Runs a program (by path, or by name along PATH) to its end; the first word is the program.
/// `out` names a file or device for its standard output instead of `ProgramResult::Out`.
inline ProgramResult RunProgram(const std::vector<std::string>& words,
                                const Environment& environment = {},
                                const std::filesystem::path& out = {}) {
    const TemporaryDirectory capture;
    const auto out_file = out.empty() ? capture.Path() / "out" : out;
    const auto err_file = capture.Path() / "err";
    std::vector<std::string> copies = words;
    std::vector<char*> arguments;
    for (std::string& word : copies) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        BecomeProgram(arguments, environment, out_file, err_file);
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out.empty() ? ReadFile(out_file) : "",
            ReadFile(err_file)};
}

}  // namespace quarnel02::test
