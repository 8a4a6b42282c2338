// The batch program with several models on its command line.

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "batch/Jobs.h"
#include "generate_model.h"
#include "support/SolveRun.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::ProgramResult;
using test::SolveRun;
using test::WorkedExample;

using Lines = std::vector<std::string>;

class SeveralModels : public testing::Test {
  protected:
    void SetUp() override {
        auto labour = WorkedExample();
        labour.LaborCost = 20;
        First = Run.Make("first.mdb", WorkedExample());
        Second = Run.Make("second.mdb", labour);
        None = PathText(Run.File("none.mdb"));
    }
    ~SeveralModels() override { EXPECT_TRUE(Run.LeftNothing()); }

    ProgramResult Solve(Lines words) const {
        words.insert(words.end(), {"--shifts", "1", "--demand", "100000"});
        return Run(words);
    }

    SolveRun Run;
    std::string First;
    std::string Second;
    std::string None;
};

TEST_F(SeveralModels, AreSolvedInTheirOrder) {
    for (const char* jobs : {"1", "2", "9"}) {
        const ProgramResult result = Solve({Second, First, "--jobs", jobs});
        EXPECT_EQ(result.Status, 0) << result.Err;
        const std::string alone = Run({First, "--shifts", "1", "--demand", "100000"}).Out;
        const std::string other = Run({Second, "--shifts", "1", "--demand", "100000"}).Out;
        EXPECT_NE(alone, other);
        EXPECT_EQ(result.Out,
                  "==> " + Second + " <==\n" + other + "==> " + First + " <==\n" + alone);
        EXPECT_EQ(result.Err, "");
    }
}

TEST_F(SeveralModels, AreSolvedAlthoughOneFails) {
    const ProgramResult result = Solve({First, None, Second, "--format", "json", "--jobs", "2"});
    EXPECT_EQ(result.Status, 1);
    const std::size_t second = result.Out.find('\n') + 1;
    const std::size_t third = result.Out.find('\n', second) + 1;
    EXPECT_TRUE(result.Out.starts_with("{\"version\":1,\"model\":\"" + First + "\",\"design\":"));
    EXPECT_EQ(result.Out.substr(second, third - second),
              "{\"version\":1,\"model\":\"" + None + "\",\"error\":\"" + None +
                  " does not exist. Check the name and the directory.\"}\n");
    EXPECT_TRUE(result.Out.substr(third).starts_with("{\"version\":1,\"model\":\"" + Second));
    EXPECT_EQ(result.Err,
              "quarnel02-solve: " + None + " does not exist. Check the name and the directory.\n");
}

TEST_F(SeveralModels, HaveTheWorstStatus) {
    const auto status = [&](const Lines& models) {
        Lines words = models;
        words.insert(words.end(),
                     {"--shifts", "1", "--demand", "5000000", "--station-limit", "30"});
        return Run(words);
    };
    auto slow = WorkedExample();
    slow.Days = 5;
    const std::string short_year = Run.Make("short.mdb", slow);
    EXPECT_EQ(status({First, Second}).Status, 0);
    const ProgramResult one = status({First, short_year});
    EXPECT_EQ(one.Status, 2);
    EXPECT_TRUE(one.Err.starts_with(short_year + ": There is not a feasible solution!\n"))
        << one.Err;
    EXPECT_EQ(status({short_year, None, First}).Status, 1);
}

TEST_F(SeveralModels, ShareTheColumnsOfATable) {
    const ProgramResult result = Run({None, First, Second, "--study", "volumes", "--shifts", "1",
                                      "--to", "100000", "--format", "csv"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Out, "model,shifts,from,to,line,cost_from,cost_to,investment,best\n" + First +
                              ",1,1,100000,Press 1-2,33780.305,64335.555,12600,1\n" + Second +
                              ",1,1,100000,Press 1-2,43780.305,74335.555,12600,1\n");
}

TEST(Jobs, RunAtOnceAndEndInOrder) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    std::vector<int> done;
    RunJobs(
        6, 6,
        [](int number) {
            std::this_thread::sleep_for(std::chrono::milliseconds(300 - 50 * number));
            return number;
        },
        [&](int number, const JobResult& result) {
            EXPECT_EQ(result.Status, number);
            done.push_back(number);
        });
    EXPECT_EQ(done, (std::vector<int>{0, 1, 2, 3, 4, 5}));
    EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(1000));  // one by one: 1,050
}

TEST(Jobs, AreNoMoreAtOnceThanAllowed) {
    const TemporaryDirectory directory;
    const auto running = [&] { return directory.Path() / "running"; };
    int overlaps = 0;
    RunJobs(
        4, 1,
        [&](int /*number*/) {
            const bool alone = fs::create_directory(running());
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            fs::remove(running());
            return alone ? 0 : 7;
        },
        [&](int /*number*/, const JobResult& result) { overlaps += result.Status; });
    EXPECT_EQ(overlaps, 0);
}

TEST(Jobs, ThatCrashTouchNoOther) {
    std::vector<int> statuses;
    RunJobs(
        3, 2,
        [](int number) {
            if (number == 1) {
                std::raise(SIGKILL);
            }
            return 0;
        },
        [&](int /*number*/, const JobResult& result) { statuses.push_back(result.Status); });
    EXPECT_EQ(statuses, (std::vector<int>{0, 128 + SIGKILL, 0}));
}

/// A model that takes long enough to be interrupted.
TEST(SeveralModelsInterrupted, LeaveNothing) {
    const TemporaryDirectory folder;
    const fs::path temporary = folder.Path() / "tmp";
    fs::create_directory(temporary);
    const std::string model = PathText(folder.Path() / "line.mdb");
    MakeModelFile(model, ReadFile(QUARNEL02_SCHEMA_FILE) + GeneratedModelScript(55, 20, 1));
    test::ProgramRun solve({std::string(QUARNEL02_PROGRAMS) + "/quarnel02-solve", model, model,
                            model, "--study", "sensitivity", "--stochastic", "--jobs", "2"},
                           {{"TMPDIR", PathText(temporary)}});
    const auto working = [&] {
        std::error_code ignored;
        return std::distance(fs::directory_iterator(temporary, ignored), {}) >= 2;
    };
    for (int wait = 0; wait < 4000 && !working(); ++wait) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    ASSERT_TRUE(working());
    solve.Send(SIGTERM);
    EXPECT_EQ(solve.Result().Status, 128 + SIGTERM);
    EXPECT_TRUE(fs::is_empty(temporary));
}

}  // namespace
}  // namespace quarnel02
