// The batch program beside the bare designs in memory, on generated models, in one run. What the
// command costs beyond the design is the price of process, model file, tables, run files and
// report.

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Command.h"
#include "FileBench.h"
#include "Times.h"
#include "basic/Files.h"
#include "line/CheapestLine.h"
#include "line/ReportedChain.h"
#include "line/StochasticDesign.h"
#include "shell/LoadLineModel.h"
#include "study/Alternatives.h"
#include "study/Sensitivity.h"
#include "study/VolumeRanges.h"

namespace fs = std::filesystem;

namespace quarnel02::bench {
namespace {

struct Options {
    std::string Disk = ".";
    std::string Tmpfs = "/dev/shm";
    int Runs = 5;
};

struct Case {
    bool Stochastic;
    int Tasks;
    int Resources;
};

constexpr Case kCases[] = {{false, 10, 5}, {false, 25, 10}, {false, 50, 25},
                           {true, 12, 6},  {true, 20, 10},  {true, 50, 25}};

struct Figures {
    double Disk = 0;   ///< of the command with its files on a disk, ms
    double Tmpfs = 0;  ///< of the command with its files in memory, ms
    double Bare = 0;   ///< of the design in memory, ms
    int Files = 0;
    double Peak = 0;  ///< megabytes
};

std::string Program(const char* name) {
    return std::string(QUARNEL02_PROGRAMS) + "/" + name;
}

std::string SizeText(const Case& size) {
    return std::to_string(size.Tasks) + "x" + std::to_string(size.Resources);
}

/// A directory for models and the scratch files of the program.
class Place {
  public:
    explicit Place(const fs::path& parent) {
        ::setenv("TMPDIR", fs::absolute(parent).c_str(), 1);
        m_directory = std::make_unique<TemporaryDirectory>();
    }
    [[nodiscard]] const fs::path& Path() const { return m_directory->Path(); }
    [[nodiscard]] fs::path Model(const Case& size) const {
        fs::path file = Path() / (SizeText(size) + ".mdb");
        if (!fs::exists(file)) {
            Run({Program("quarnel02-generate"), file.string(), "--tasks",
                 std::to_string(size.Tasks), "--resources", std::to_string(size.Resources)},
                Path());
        }
        return file;
    }

  private:
    std::unique_ptr<TemporaryDirectory> m_directory;
};

std::vector<std::string> CommandFor(const Case& size, const fs::path& model) {
    std::vector<std::string> words = {Program("quarnel02-solve"), model.string()};
    if (size.Stochastic) {
        words.emplace_back("--stochastic");
    } else {
        words.insert(words.end(), {"--shifts", "2", "--demand", "60000"});
    }
    return words;
}

LineModel LineOf(const fs::path& file) {
    Database database = Database::Open(file);
    LineModel line = LoadLineModel(database);
    database.Close();
    return line;
}

/// All that the tables of a fixed-demand design hold.
void DesignForVolume(const LineModel& model) {
    const PreparedLine line = Prepare(model);
    CostedPathways costed = CostAll(line, FixedDemandRequest{60000, 2, {}});
    const std::vector<Way> ways = CheapestWays(line, costed);
    MarkDearer(costed.States, ways);
    SearchReportedChain(ways);
}

double BareMilliseconds(const Case& size, const LineModel& model, int runs) {
    return MedianOf(runs, [&] {
        return MillisecondsOf([&] {
            if (size.Stochastic) {
                DesignForDemand(model, static_cast<float>(model.Parameters().Penalty));
            } else {
                DesignForVolume(model);
            }
        });
    });
}

double CommandMilliseconds(const Case& size, const Place& place, int runs) {
    const auto words = CommandFor(size, place.Model(size));
    return MedianOf(runs, [&] { return Run(words, place.Path()).Milliseconds; });
}

void Print(const Case& size, const Figures& figures) {
    std::cout << std::left << std::setw(12) << (size.Stochastic ? "stochastic" : "fixed")
              << std::setw(7) << SizeText(size) << std::right << std::fixed << std::setprecision(1)
              << std::setw(10) << figures.Disk << std::setw(10) << figures.Tmpfs
              << std::setprecision(2) << std::setw(10) << figures.Bare << std::setprecision(1)
              << std::setw(11) << figures.Disk / figures.Bare << std::setw(12)
              << figures.Tmpfs / figures.Bare << std::setw(8) << figures.Files << std::setw(10)
              << figures.Peak << '\n';
}

/// Commands come first: what this process needs for the designs would count as theirs.
void CompareCommands(const Options& options, const Place& disk, const Place& tmpfs) {
    std::vector<Figures> all;
    for (const Case& size : kCases) {
        const auto counted = RunCountingFiles(CommandFor(size, disk.Model(size)), disk.Path());
        all.push_back({CommandMilliseconds(size, disk, options.Runs),
                       CommandMilliseconds(size, tmpfs, options.Runs), 0, counted.Files,
                       counted.PeakMegabytes});
    }
    std::cout << "Design      Size     Disk/ms  Tmpfs/ms   Bare/ms  Disk/bare  Tmpfs/bare   Files"
                 "   Peak/MB\n";
    for (std::size_t i = 0; i < all.size(); ++i) {
        all[i].Bare = BareMilliseconds(kCases[i], LineOf(disk.Model(kCases[i])), options.Runs);
        Print(kCases[i], all[i]);
    }
    const auto start = [&] { return Run({Program("quarnel02-solve"), "--version"}, disk.Path()); };
    std::cout << "Starting the program alone takes "
              << MedianOf(options.Runs, [&] { return start().Milliseconds; }) << " ms.\n";
}

/// What a study pays for each further volume of a prepared model.
void TimeOneMoreVolume(const Place& disk) {
    constexpr int volumes = 101;
    std::cout << "\nOne more volume of a prepared model, in memory\n"
                 "Size    Pathways        ms  ns/pathway\n";
    for (const Case& size : kCases) {
        if (size.Stochastic) {
            continue;
        }
        const PreparedLine line = Prepare(LineOf(disk.Model(size)));
        double volume = 0;
        const double time = MedianOf(volumes, [&] {
            volume += 997;
            return MillisecondsOf([&] { CheapestLine(line, {volume, 2, {}}); });
        });
        const auto pathways = static_cast<double>(line.Pathways.size());
        std::cout << std::left << std::setw(8) << SizeText(size) << std::right << std::setw(8)
                  << line.Pathways.size() << std::setprecision(3) << std::setw(10) << time
                  << std::setprecision(1) << std::setw(12) << time * 1e6 / pathways << '\n';
    }
}

/// A study of a model, and how often one bare solve would fit into its time.
struct StudyTime {
    double Milliseconds = 0;
    double Multiple = 0;
};

void PrintStudies(const std::string& size, double bare, const std::vector<StudyTime>& times) {
    std::cout << std::left << std::setw(8) << size << std::right << std::fixed
              << std::setprecision(2) << std::setw(9) << bare;
    for (const StudyTime& time : times) {
        std::cout << std::setprecision(1) << std::setw(11) << time.Milliseconds << std::setw(7)
                  << time.Multiple;
    }
    std::cout << '\n';
}

/// What the windows of the studies wait for.
void TimeStudies(const Place& disk, int runs) {
    constexpr int last_volume = 200000;
    const FixedDemandRequest request{60000, 2, {}};
    std::cout << "\nStudies of a prepared model, in memory, and multiples of the bare solve\n"
                 "Size     Bare/ms   Ten best      x    Volumes      x  Sensitiv.      x\n";
    for (const auto& [tasks, resources] :
         {std::pair(10, 5), std::pair(25, 10), std::pair(50, 25)}) {
        const Case size{false, tasks, resources};
        const LineModel model = LineOf(disk.Model(size));
        const PreparedLine line = Prepare(model);
        const double bare =
            MedianOf(runs, [&] { return MillisecondsOf([&] { DesignForVolume(model); }); });
        const auto timed = [&](const auto& study) {
            const double time = MedianOf(runs, [&] { return MillisecondsOf(study); });
            return StudyTime{time, time / bare};
        };
        PrintStudies(SizeText(size), bare,
                     {timed([&] { AlternativesFor(line, request); }), timed([&] {
                          VolumeRanges(line, {1, last_volume, {}});
                      }),
                      timed([&] { SensitivityOf(line, request); })});
    }
}

int Main(int argc, char* argv[]) {
    CLI::App app("Times whole designs beside the bare ones in memory.", "quarnel02-bench");
    Options options;
    app.add_option("--disk", options.Disk, "Directory on a disk")->capture_default_str();
    app.add_option("--tmpfs", options.Tmpfs, "Directory in memory")->capture_default_str();
    app.add_option("--runs", options.Runs, "Runs of which the median counts")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    CLI11_PARSE(app, argc, argv);
    const Place disk(options.Disk);
    const Place tmpfs(options.Tmpfs);
    CompareCommands(options, disk, tmpfs);
    TimeOneMoreVolume(disk);
    TimeStudies(disk, options.Runs);
    TimeModelFiles(disk.Path(), options.Runs);
    return 0;
}

}  // namespace
}  // namespace quarnel02::bench

int main(int argc, char* argv[]) {
    try {
        return quarnel02::bench::Main(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "quarnel02-bench: " << error.what() << '\n';
        return 1;
    }
}
