// quarnel02-solve: designs the assembly line of a model file from the shell.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <iostream>
#include <optional>
#include <string>

#include "basic/FailureText.h"
#include "basic/RunTimeError.h"
#include "batch/Interruption.h"
#include "batch/Options.h"
#include "batch/SolveFile.h"

namespace {

constexpr int kError = 1;
constexpr int kNotSolved = 2;

std::optional<quarnel02::ModelFormat> SaveFormatOf(const quarnel02::Options& options) {
    const auto format = quarnel02::FormatFor(options, quarnel02::FormatUse::Save);
    if (!format) {
        return std::nullopt;
    }
    if (!options.SaveAs) {
        throw quarnel02::RunTimeError(
            quarnel02::ErrorKind::TypeMismatch,
            "--format sqlite and --format access say how --save writes the model. Give --save FILE "
            "too.");
    }
    return *format == "access" ? quarnel02::ModelFormat::Access : quarnel02::ModelFormat::Sqlite;
}

quarnel02::SolveRequest ToRequest(const quarnel02::Options& options) {
    quarnel02::SolveRequest request;
    request.Model = options.Models.front();
    request.Shifts = static_cast<std::int16_t>(options.Shifts);
    request.Stochastic = options.Stochastic;
    request.Demand = options.Demand;
    request.StationLimit = options.StationLimit;
    request.Progress = options.Progress;
    request.OutDirectory = options.OutDirectory;
    request.Pictures = options.Pictures;
    request.KeepRunFiles = options.KeepRunFiles;
    request.SaveAs = options.SaveAs;
    request.SaveFormat = SaveFormatOf(options);
    return request;
}

quarnel02::SolveOutcome SolveUnlessInterrupted(const quarnel02::SolveRequest& request) {
    const quarnel02::EndOnSignals ending;
    return quarnel02::SolveFile(request);
}

int Solve(const quarnel02::SolveRequest& request) {
    const auto outcome = SolveUnlessInterrupted(request);
    std::cout << outcome.Report << std::flush;
    for (const std::string& message : outcome.Messages) {
        std::cerr << message << '\n';
    }
    if (!std::cout) {
        std::cerr << "quarnel02-solve: the report cannot be written to standard output.\n";
        return kError;
    }
    return outcome.Report.empty() || !outcome.Messages.empty() ? kNotSolved : 0;
}

int Run(int argc, char* argv[]) {
    CLI::App app(
        "Designs the cheapest assembly line for a fixed annual demand, or for a distribution of "
        "demand, and prints the report.",
        "quarnel02-solve");
    quarnel02::Options options;
    quarnel02::Describe(app, options);
    try {
        app.parse(argc, argv);
        quarnel02::RequireCombination(app, options);
    } catch (const CLI::ParseError& error) {
        return app.exit(error);
    }
    try {
        return Solve(ToRequest(options));
    } catch (const std::exception& error) {
        std::cerr << "quarnel02-solve: " << quarnel02::FailureText(error) << '\n';
        return kError;
    }
}

}  // namespace

int main(int argc, char* argv[]) {
    try {
        return Run(argc, argv);
    } catch (const std::exception& error) {
        std::fputs(error.what(), stderr);
        return kError;
    }
}
