// quarnel02-solve: designs the assembly line of a model file from the shell.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "basic/FailureText.h"
#include "basic/RunTimeError.h"
#include "basic/Version.h"
#include "batch/Interruption.h"
#include "batch/SolveFile.h"

namespace {

constexpr int kError = 1;
constexpr int kNotSolved = 2;

constexpr const char* kFooter =
    "Example: design the pump line for two shifts and 60,000 units a year, with at most\n"
    "3 parallel stations, and keep report and pictures:\n"
    "  quarnel02-solve pump.mdb --shifts 2 --demand 60000 --station-limit 3 \\\n"
    "      --out results --pictures\n"
    "\n"
    "Exit status: 0 solved; 1 error (one line on standard error); 2 the model has no\n"
    "solution, is not complete, or its line leaves tasks out, in which case there is a\n"
    "report (the system's message on standard error); 128 + N ended by signal N.";

/// Options as the command line gives them.
struct Options {
    std::string Model;
    int Shifts = 0;
    std::string Demand;
    std::string StationLimit;
    std::string OutDirectory;
    std::string SaveAs;
    bool Pictures = false;
    bool Stochastic = false;
    std::string KeepRunFiles;
    bool Progress = false;
    std::vector<std::string> Formats;
};

[[noreturn]] void RefuseFormat(const std::string& why) {
    throw quarnel02::RunTimeError(quarnel02::ErrorKind::TypeMismatch, why);
}

void SetSaveFormat(quarnel02::SolveRequest& request, quarnel02::ModelFormat format) {
    if (!request.SaveAs) {
        RefuseFormat(
            "--format sqlite and --format access say how --save writes the model. Give "
            "--save FILE too.");
    }
    if (request.SaveFormat) {
        RefuseFormat("--format is given both as sqlite and as access. Give one of them.");
    }
    request.SaveFormat = format;
}

/// A word that --format takes, and what it says.
struct FormatWord {
    const char* Word;
    void (*Apply)(quarnel02::SolveRequest& request);
};

const std::vector<FormatWord>& FormatWords() {
    static const std::vector<FormatWord> words = {
        {"sqlite", [](auto& request) { SetSaveFormat(request, quarnel02::ModelFormat::Sqlite); }},
        {"access", [](auto& request) { SetSaveFormat(request, quarnel02::ModelFormat::Access); }},
    };
    return words;
}

std::vector<std::string> AllFormatWords() {
    std::vector<std::string> words;
    for (const FormatWord& format : FormatWords()) {
        words.emplace_back(format.Word);
    }
    return words;
}

void ApplyFormats(const Options& options, quarnel02::SolveRequest& request) {
    for (const FormatWord& format : FormatWords()) {
        if (std::count(options.Formats.begin(), options.Formats.end(), format.Word) > 0) {
            format.Apply(request);
        }
    }
}

void Describe(CLI::App& app, Options& options) {
    app.footer(kFooter);
    app.set_version_flag("--version", std::string("quarnel02-solve ") + quarnel02::Version());
    app.add_option("MODEL", options.Model,
                   "Model file (.mdb), also one of Access; it is never changed")
        ->required()
        ->type_name("FILE");
    auto* kind = app.add_option_group("Design", "one of:");
    auto* shifts = kind->add_option("--shifts", options.Shifts,
                                    "For a fixed demand: shifts of 8 hours per day, 1 to 3")
                       ->check(CLI::Range(1, 3))
                       ->type_name("N");
    auto* stochastic =
        kind->add_flag("--stochastic", options.Stochastic, "For the model's demand distribution");
    kind->require_option(1);
    app.add_option("--demand", options.Demand,
                   "Annual demand in units; may be left out when the model has one demand row")
        ->type_name("V")
        ->needs(shifts);
    app.add_option("--station-limit", options.StationLimit,
                   "Largest number of parallel stations of one kind; without it, no limit")
        ->type_name("K")
        ->needs(shifts);
    app.add_option("--keep-run-files", options.KeepRunFiles,
                   "Empty or new directory in which to keep the run files, for inspection")
        ->type_name("DIR")
        ->needs(stochastic);
    app.add_flag("--progress", options.Progress, "Print the status texts on standard error")
        ->needs(stochastic);
    auto* out = app.add_option("--out", options.OutDirectory,
                               "Directory in which to leave the report as well")
                    ->type_name("DIR");
    app.add_flag("--pictures", options.Pictures, "Leave the pictures there too, as SVG files")
        ->needs(out);
    app.add_option("--save", options.SaveAs,
                   "Write the solved model to this file, never over MODEL")
        ->type_name("FILE");
    app.add_option("--format", options.Formats,
                   "Format in which --save writes: sqlite (this program's own) or access (Access "
                   "2000 to 2003); without it, that of MODEL")
        ->check(CLI::IsMember(AllFormatWords()))
        ->allow_extra_args(false)
        ->type_name("F");
}

quarnel02::SolveRequest ToRequest(const CLI::App& app, const Options& options) {
    quarnel02::SolveRequest request;
    request.Model = options.Model;
    request.Shifts = static_cast<std::int16_t>(options.Shifts);
    request.Stochastic = options.Stochastic;
    request.Pictures = options.Pictures;
    request.Progress = options.Progress;
    if (app.count("--keep-run-files") > 0) {
        request.KeepRunFiles = options.KeepRunFiles;
    }
    if (app.count("--demand") > 0) {
        request.Demand = options.Demand;
    }
    if (app.count("--station-limit") > 0) {
        request.StationLimit = options.StationLimit;
    }
    if (app.count("--out") > 0) {
        request.OutDirectory = options.OutDirectory;
    }
    if (app.count("--save") > 0) {
        request.SaveAs = options.SaveAs;
    }
    ApplyFormats(options, request);
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
    Options options;
    Describe(app, options);
    CLI11_PARSE(app, argc, argv);
    try {
        return Solve(ToRequest(app, options));
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
