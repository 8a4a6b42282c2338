#include "batch/Options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <string_view>

#include "basic/RunTimeError.h"
#include "basic/Version.h"

namespace quarnel02 {

namespace {

using Names = std::vector<std::string_view>;

constexpr const char* kFooter =
    "Example: design the pump line for two shifts and 60,000 units a year, with at most\n"
    "3 parallel stations, and keep report and pictures:\n"
    "  quarnel02-solve pump.mdb --shifts 2 --demand 60000 --station-limit 3 \\\n"
    "      --out results --pictures\n"
    "Example: the cheapest lines for all volumes up to 200,000, as a table:\n"
    "  quarnel02-solve pump.mdb --study volumes --to 200000 --format csv\n"
    "\n"
    "Exit status: 0 solved; 1 error (one line on standard error); 2 the model has no\n"
    "solution, is not complete, or its line leaves tasks out, in which case there is a\n"
    "report (the system's message on standard error); 128 + N ended by signal N.\n"
    "Of several models the worst counts: 1 before 2 before 0.";

/// An option with a value that is taken as it is typed.
struct ValueOption {
    const char* Name;
    const char* Help;
    const char* TypeName;
    std::optional<std::string> Options::*Field;
};

constexpr std::array kValueOptions = {
    ValueOption{"--demand",
                "Annual demand in units; may be left out when the model has one demand row", "V",
                &Options::Demand},
    ValueOption{"--station-limit",
                "Largest number of parallel stations of one kind; without it, no limit", "K",
                &Options::StationLimit},
    ValueOption{"--keep-run-files",
                "Empty or new directory in which to keep the run files, for inspection", "DIR",
                &Options::KeepRunFiles},
    ValueOption{"--out", "Directory in which to leave the report as well", "DIR",
                &Options::OutDirectory},
    ValueOption{"--pdf",
                "Write the report with its pictures to this file, as PDF; needs the desktop "
                "package",
                "FILE", &Options::Pdf},
    ValueOption{"--save", "Write the solved model to this file, never over MODEL", "FILE",
                &Options::SaveAs},
    ValueOption{"--from", "First annual volume of a study of volumes; without it, 1", "A",
                &Options::From},
    ValueOption{"--to",
                "Last annual volume of a study of volumes; without it, twice the largest volume of "
                "the demand rows",
                "B", &Options::To},
    ValueOption{"--share", "By how many percent a study of sensitivity varies figures; usually 10",
                "P", &Options::Share},
};

struct FlagOption {
    const char* Name;
    const char* Help;
    bool Options::*Field;
};

constexpr std::array kFlagOptions = {
    FlagOption{"--progress", "Print the status texts on standard error", &Options::Progress},
    FlagOption{"--pictures", "Leave the pictures there too, as SVG files", &Options::Pictures},
};

struct FormatName {
    const char* Name;
    FormatUse Use;
};

constexpr std::array kFormats = {
    FormatName{"text", FormatUse::Print},  FormatName{"csv", FormatUse::Print},
    FormatName{"json", FormatUse::Print},  FormatName{"sqlite", FormatUse::Save},
    FormatName{"access", FormatUse::Save},
};

/// An option that means nothing without another one.
struct Need {
    const char* Option;
    const char* Other;
};

constexpr std::array kNeeds = {
    Need{"--demand", "--shifts"},       Need{"--keep-run-files", "--stochastic"},
    Need{"--progress", "--stochastic"}, Need{"--pictures", "--out"},
    Need{"--from", "--study"},          Need{"--to", "--study"},
    Need{"--share", "--study"},
};

/// A study and the options that go with it, besides --format and --jobs.
struct StudyOptions {
    const char* Study;
    bool NeedsDesign;  ///< --shifts or --stochastic
    Names Allowed;
};

const std::vector<StudyOptions>& Studies() {
    static const std::vector<StudyOptions> studies = {
        {"volumes", false, {"--shifts", "--from", "--to", "--station-limit"}},
        {"alternatives", true, {"--shifts", "--stochastic", "--demand", "--station-limit"}},
        {"sensitivity",
         true,
         {"--shifts", "--stochastic", "--demand", "--station-limit", "--share"}},
        {"scenarios", true, {"--shifts", "--stochastic", "--demand", "--station-limit"}},
        {"why-not", true, {"--shifts", "--stochastic", "--demand", "--station-limit"}}};
    return studies;
}

bool IsGiven(const CLI::App& app, const char* option) {
    return app.count(option) > 0;
}

[[noreturn]] void RefuseTogether(const std::string& option, const std::string& other,
                                 const std::string& remedy = "") {
    throw CLI::ExcludesError(option + " does not go with " + other + "." + remedy,
                             CLI::ExitCodes::ExcludesError);
}

void RequireOneDesign(const CLI::App& app) {
    const std::size_t given =
        (IsGiven(app, "--shifts") ? 1U : 0U) + (IsGiven(app, "--stochastic") ? 1U : 0U);
    if (given != 1) {
        throw CLI::RequiredError::Option(1, 1, given, "--shifts,--stochastic");
    }
}

void RequireStudy(const CLI::App& app, const StudyOptions& study) {
    static const Names everywhere = {"--study", "--format", "--jobs"};
    for (const CLI::Option* option : app.get_options()) {
        const std::string name = option->get_name();
        const auto names = [&](std::string_view each) { return each == name; };
        if (option->count() > 0 && name.starts_with("--") &&
            std::none_of(everywhere.begin(), everywhere.end(), names) &&
            std::none_of(study.Allowed.begin(), study.Allowed.end(), names)) {
            RefuseTogether(name, "--study " + std::string(study.Study));
        }
    }
    if (study.NeedsDesign) {
        RequireOneDesign(app);
    }
}

/// Each of several models would write over the results of the one before.
void RequireOneModel(const CLI::App& app, const Options& options) {
    for (const char* option : {"--out", "--pdf", "--save", "--keep-run-files"}) {
        if (options.Models.size() > 1 && IsGiven(app, option)) {
            RefuseTogether(option, "several models", " Solve them one by one.");
        }
    }
}

void RequireNeed(const CLI::App& app, const Need& need) {
    if (IsGiven(app, need.Option) && !IsGiven(app, need.Other)) {
        throw CLI::RequiresError(need.Option, need.Other);
    }
}

void RequireNeeds(const CLI::App& app, const Options& options) {
    for (const Need& need : kNeeds) {
        RequireNeed(app, need);
    }
    if (options.Study != "volumes") {
        RequireNeed(app, {"--station-limit", "--shifts"});
    }
}

void RequireDesignOptions(const CLI::App& app, const Options& options) {
    RequireOneDesign(app);
    if (std::find(options.Formats.begin(), options.Formats.end(), "csv") != options.Formats.end()) {
        RefuseTogether("--format csv", "a design", " Use json, or name a --study.");
    }
}

void DescribeDesign(CLI::App& app, Options& options) {
    constexpr int most_shifts = 3;
    app.add_option("--shifts", options.Shifts,
                   "For a fixed demand: shifts of 8 hours per day, 1 to 3")
        ->check(CLI::Range(1, most_shifts))
        ->type_name("N");
    app.add_flag("--stochastic", options.Stochastic, "For the model's demand distribution");
}

std::vector<std::string> StudyNames() {
    std::vector<std::string> names;
    for (const StudyOptions& study : Studies()) {
        names.emplace_back(study.Study);
    }
    return names;
}

std::vector<std::string> FormatNames() {
    std::vector<std::string> names;
    names.reserve(kFormats.size());
    for (const FormatName& format : kFormats) {
        names.emplace_back(format.Name);
    }
    return names;
}

void DescribeMany(CLI::App& app, Options& options) {
    constexpr int most_jobs = 1024;
    app.add_option("--study", options.Study,
                   "Instead of a report: volumes, alternatives, sensitivity, scenarios or why-not")
        ->check(CLI::IsMember(StudyNames()))
        ->type_name("KIND");
    app.add_option(
           "--format", options.Formats,
           "What is printed: text, csv (studies only) or json; and how --save writes: sqlite "
           "(this program's own) or access (Access 2000 to 2003), without it that of MODEL")
        ->check(CLI::IsMember(FormatNames()))
        ->allow_extra_args(false)
        ->type_name("F");
    app.add_option("--jobs", options.Jobs, "How many of several models are solved at once")
        ->check(CLI::Range(1, most_jobs))
        ->type_name("N");
}

}  // namespace

void Describe(CLI::App& app, Options& options) {
    app.footer(kFooter);
    app.set_version_flag("--version", std::string("quarnel02-solve ") + Version());
    app.add_option("MODEL", options.Models,
                   "Model files (.mdb), also of Access; they are never changed")
        ->required()
        ->type_name("FILE");
    DescribeDesign(app, options);
    for (const auto& [name, help, type, field] : kValueOptions) {
        app.add_option(name, options.*field, help)->type_name(type);
    }
    for (const auto& [name, help, field] : kFlagOptions) {
        app.add_flag(name, options.*field, help);
    }
    DescribeMany(app, options);
}

void RequireCombination(const CLI::App& app, const Options& options) {
    for (const StudyOptions& study : Studies()) {
        if (options.Study == study.Study) {
            RequireStudy(app, study);
        }
    }
    if (!options.Study) {
        RequireDesignOptions(app, options);
    }
    RequireNeeds(app, options);
    RequireOneModel(app, options);
}

std::optional<std::string> FormatFor(const Options& options, FormatUse use) {
    std::optional<std::string> chosen;
    for (const FormatName& format : kFormats) {
        const std::string name = format.Name;
        if (format.Use != use || std::find(options.Formats.begin(), options.Formats.end(), name) ==
                                     options.Formats.end()) {
            continue;
        }
        if (chosen) {
            throw RunTimeError(
                ErrorKind::TypeMismatch,
                "--format is given both as " + *chosen + " and as " + name + ". Give one of them.");
        }
        chosen = name;
    }
    return chosen;
}

}  // namespace quarnel02
