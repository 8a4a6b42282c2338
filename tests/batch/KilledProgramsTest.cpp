// The batch programs, killed at any moment, and run again. KILLS sets how often; scripts/kill-test
// runs hundreds.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <map>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "basic/Digest.h"
#include "files/ReadModel.h"
#include "model/InputDigest.h"
#include "sheets/ModelSheets.h"
#include "sheets/WorkbookFile.h"
#include "support/SmallLine.h"
#include "support/SolveRun.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using Lines = std::vector<std::string>;
using std::chrono::steady_clock;

/// A program and the file or directory that it writes.
struct Job {
    std::string Name;
    const char* Program;
    Lines Arguments;  ///< "@name" is a file of the test's directory
    const char* Target;
};

const std::vector<Job>& Jobs() {
    static const std::vector<Job> jobs = {
        {"SolveAndSave",
         "quarnel02-solve",
         {"@line.mdb", "--shifts", "1", "--demand", "60000", "--save", "@out.mdb"},
         "out.mdb"},
        {"SolveAndSaveForAccess",
         "quarnel02-solve",
         {"@line.mdb", "--stochastic", "--format", "access", "--save", "@out.mdb"},
         "out.mdb"},
        {"SolveWithReport",
         "quarnel02-solve",
         {"@line.mdb", "--stochastic", "--pictures", "--out", "@out"},
         "out"},
        {"ConvertToModel", "quarnel02-convert", {"@line.mdb", "@out.mdb"}, "out.mdb"},
        {"ConvertToWorkbook", "quarnel02-convert", {"@line.mdb", "@out.xlsx"}, "out.xlsx"},
        {"ConvertToCsv", "quarnel02-convert", {"@line.mdb", "@out"}, "out"},
        {"ConvertToSql", "quarnel02-convert", {"@line.mdb", "@out.sql"}, "out.sql"}};
    return jobs;
}

int KillsOfEach() {
    constexpr int in_every_run = 3;
    const char* const asked = std::getenv("KILLS");
    return asked == nullptr ? in_every_run : std::atoi(asked) / static_cast<int>(Jobs().size());
}

class KilledPrograms : public testing::TestWithParam<Job> {
  protected:
    KilledPrograms() {
        Run.Make("line.mdb", test::kSmallLine);
        Run.Make("other.mdb",
                 std::string(test::kSmallLine) + "UPDATE Gen SET Product = 'Old', LaborCost = 16;");
        fs::copy_file(Run.File("line.mdb"), Run.File("line.before"));
    }

    [[nodiscard]] Lines Words(Lines words) const {
        for (std::string& word : words) {
            if (word.starts_with('@')) {
                word = PathText(Run.File(word.substr(1)));
            }
        }
        return words;
    }
    void RunWhole(const Job& job) const {
        const auto result = Run.Program(job.Program, Words(job.Arguments));
        EXPECT_EQ(result.Status, 0) << result.Err;
    }
    /// The target as another model left it.
    void MakeOld(const Job& job) const {
        fs::remove_all(Run.File(job.Target));
        Job old = job;
        old.Arguments[0] = "@other.mdb";
        RunWhole(old);
    }
    void RunKilled(const Job& job, steady_clock::duration after) const {
        Lines words = Words(job.Arguments);
        words.insert(words.begin(), std::string(QUARNEL02_PROGRAMS) + "/" + job.Program);
        test::ProgramRun killed(words, {{"TMPDIR", PathText(Run.File("tmp"))}, {"DISPLAY", ""}});
        std::this_thread::sleep_for(after);
        killed.Send(SIGKILL);
        static_cast<void>(killed.Result());
    }

    /// A digest of what a file says, whatever time stamps it holds; throws when it is not whole.
    [[nodiscard]] std::uint64_t Content(const fs::path& file) const {
        if (file.extension() == ".mdb") {
            ReadModel(file, Run.File("read.seq"), PathText(file));
            return InputDigest(Database::Open(Run.File("read.seq")));
        }
        if (file.extension() == ".xlsx") {
            Run.Make("read.seq", "");
            const Database read = Database::Open(Run.File("read.seq"));
            WriteInputTables(read, TablesOf(ReadWorkbook(file)).Tables);
            return InputDigest(read);
        }
        Digest text;
        text.Add(ReadFile(file));
        return text.Result();
    }
    /// Every file of the target by its name.
    [[nodiscard]] std::map<std::string, std::uint64_t> Contents(const Job& job) const {
        std::map<std::string, std::uint64_t> contents;
        const fs::path target = Run.File(job.Target);
        if (!fs::is_directory(target)) {
            contents[job.Target] = Content(target);
            return contents;
        }
        for (const auto& entry : fs::directory_iterator(target)) {
            const std::string name = PathText(entry.path().filename());
            if (!name.starts_with(".quarnel02-")) {
                contents[name] = Content(entry.path());
            }
        }
        return contents;
    }

    test::SolveRun Run;
};

TEST_P(KilledPrograms, LeaveOldOrNewFilesAndNoLitter) {
    const Job& job = GetParam();
    MakeOld(job);
    const auto old = Contents(job);
    const auto names = test::NamesIn(Run.File(""));
    const auto start = steady_clock::now();
    RunWhole(job);
    const auto whole_run = steady_clock::now() - start;
    const auto renewed = Contents(job);
    ASSERT_NE(old, renewed);

    std::mt19937 random(static_cast<unsigned>(KillsOfEach()));
    std::uniform_real_distribution<double> any_share(0, 1);
    int replaced = 0;
    for (int kill = 0; kill < KillsOfEach() && !HasFailure(); ++kill) {
        SCOPED_TRACE(kill);
        MakeOld(job);
        RunKilled(
            job, std::chrono::duration_cast<steady_clock::duration>(whole_run * any_share(random)));
        const auto left = Contents(job);
        EXPECT_EQ(left.size(), old.size());
        for (const auto& [name, content] : left) {
            EXPECT_TRUE(content == old.at(name) || content == renewed.at(name)) << name;
        }
        replaced += left == old ? 0 : 1;
        EXPECT_EQ(ReadFile(Run.File("line.mdb")), ReadFile(Run.File("line.before")));
        RunWhole(job);
        EXPECT_EQ(Contents(job), renewed);
        EXPECT_EQ(test::NamesIn(Run.File("")), names);
        EXPECT_TRUE(Run.LeftNothing());
    }
    std::cout << KillsOfEach() << " kills, " << replaced << " with something replaced\n";
}

void PrintTo(const Job& job, std::ostream* out) {
    *out << job.Name;
}

INSTANTIATE_TEST_SUITE_P(EveryJob, KilledPrograms, testing::ValuesIn(Jobs()),
                         [](const auto& job) { return job.param.Name; });

}  // namespace
}  // namespace quarnel02
