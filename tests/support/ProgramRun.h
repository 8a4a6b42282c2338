#pragma once

#include <QProcess>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "basic/Immovable.h"

namespace quarnel02::test {

/// What a program left behind: exit status (-1 when a signal ended it) and what it wrote.
struct ProgramResult {
    int Status = -1;
    std::string Out;
    std::string Err;
};

/// Changes to the environment of a program; an empty value removes the variable.
using Environment = std::map<std::string, std::string>;

/// A program that runs beside the test, with nothing on its standard input; killed when the object
/// goes. For tests with and without an application object.
class ProgramRun : Immovable {
  public:
    /// Starts a program (by path, or by name along PATH); the first word is the program. `out`
    /// names a file or device for its standard output instead of `ProgramResult::Out`.
    /// Throws std::runtime_error when it does not start.
    explicit ProgramRun(const std::vector<std::string>& words, const Environment& environment = {},
                        const std::filesystem::path& out = {});
    ~ProgramRun();

    [[nodiscard]] bool IsRunning();
    void Send(int signal) const;
    /// Waits for its end.
    ProgramResult Result();

  private:
    QProcess m_process;
};

/// Runs a program to its end.
inline ProgramResult RunProgram(const std::vector<std::string>& words,
                                const Environment& environment = {},
                                const std::filesystem::path& out = {}) {
    return ProgramRun(words, environment, out).Result();
}

}  // namespace quarnel02::test
