#pragma once

#include <optional>
#include <string>
#include <vector>

namespace CLI {  // NOLINT(readability-identifier-naming): not ours
class App;
}

namespace quarnel02 {

/// What the command line says, as typed.
struct Options {
    std::vector<std::string> Models;
    int Shifts = 0;  ///< 0 when it is not given
    bool Stochastic = false;
    std::optional<std::string> Study;
    std::optional<std::string> Demand;
    std::optional<std::string> StationLimit;
    std::optional<std::string> From;
    std::optional<std::string> To;
    std::optional<std::string> Share;
    std::vector<std::string> Formats;  ///< of whatever meaning, see FormatFor
    int Jobs = 1;
    bool Progress = false;
    bool Pictures = false;
    std::optional<std::string> OutDirectory;
    std::optional<std::string> KeepRunFiles;
    std::optional<std::string> Pdf;
    std::optional<std::string> SaveAs;
};

/// What a format is the format of; `--format` may be given once for each.
enum class FormatUse { Print, Save };

/// Describes all options to a parser that fills `options`.
void Describe(CLI::App& app, Options& options);

/// Refuses options that do not go together. Throws CLI::ParseError, which names them.
void RequireCombination(const CLI::App& app, const Options& options);

/// The format that was chosen for a use; none when it was not. Throws TypeMismatch for two.
std::optional<std::string> FormatFor(const Options& options, FormatUse use);

}  // namespace quarnel02
