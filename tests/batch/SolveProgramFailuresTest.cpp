// The batch program when it cannot design a line: exit status, one line on standard error, and
// nothing left behind.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "support/SolveRun.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::ModelScript;
using test::NamesIn;
using test::ProgramResult;
using test::SolveRun;
using test::WorkedExample;

using Lines = std::vector<std::string>;

/// Status 1, nothing printed, and one line on standard error with these words.
void ExpectError(const ProgramResult& result, const Lines& words) {
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Out, "");
    EXPECT_EQ(std::count(result.Err.begin(), result.Err.end(), '\n'), 1) << result.Err;
    EXPECT_TRUE(result.Err.ends_with("\n")) << result.Err;
    for (const std::string& word : words) {
        EXPECT_NE(result.Err.find(word), std::string::npos) << word << " in: " << result.Err;
    }
}

/// Status 2, this message, and behind it what would have a line.
void ExpectNotSolved(const ProgramResult& result, const std::string& message,
                     const std::string& whyNot = "") {
    EXPECT_EQ(result.Status, 2);
    EXPECT_EQ(result.Out, "");
    EXPECT_EQ(result.Err, message + "\n" + whyNot);
}

ProgramResult Solve(const SolveRun& run, const std::string& model,
                    const std::string& demand = "100000") {
    return run({model, "--shifts", "1", "--demand", demand});
}

/// The worked example with something spoilt.
std::string Spoilt(const SolveRun& run, const std::function<void(ModelScript&)>& spoil) {
    ModelScript script = WorkedExample();
    spoil(script);
    return run.Make("line.mdb", script);
}

class BadFile : public testing::Test {
  protected:
    ~BadFile() override { EXPECT_TRUE(Run.LeftNothing()); }
    void ExpectRefused(const std::string& path, const Lines& words = {}) {
        Lines all = words;
        all.push_back(path);
        ExpectError(Solve(Run, path), all);
    }
    std::string Write(const std::string& name, const std::string& content) {
        WriteFile(Run.File(name), content);
        return PathText(Run.File(name));
    }

    SolveRun Run;
};

TEST_F(BadFile, DoesNotExist) {
    ExpectRefused(PathText(Run.File("no such.mdb")), {"does not exist"});
}

TEST_F(BadFile, IsADirectory) {
    ExpectRefused(PathText(Run.File("tmp")), {"directory"});
}

TEST_F(BadFile, IsEmpty) {
    ExpectRefused(Write("empty.mdb", ""), {"empty"});
}

TEST_F(BadFile, IsAText) {
    ExpectRefused(Write("text.mdb", "Tasks, Resources\n1, 2\n"));
}

TEST_F(BadFile, IsTruncated) {
    const std::string whole = ReadFile(Run.Make("line.mdb", WorkedExample()));
    ExpectRefused(Write("half.mdb", whole.substr(0, whole.size() / 2)));
    ExpectRefused(Write("head.mdb", whole.substr(0, 100)));
    ExpectRefused(Write("magic.mdb", whole.substr(0, 16)));
}

TEST_F(BadFile, IsGarbled) {
    std::string content = ReadFile(Run.Make("line.mdb", WorkedExample()));
    for (std::size_t at = 100; at < content.size(); at += 3) {
        content[at] = static_cast<char>(content[at] ^ 0x5A);
    }
    ExpectRefused(Write("garbled.mdb", content));
}

TEST_F(BadFile, HasNoTables) {
    MakeModelFile(Run.File("other.mdb"), "CREATE TABLE Stock (Item TEXT);");
    ExpectRefused(PathText(Run.File("other.mdb")), {"no table Gen"});
}

TEST_F(BadFile, LacksOneTable) {
    ExpectRefused(Run.Make("line.mdb", "DROP TABLE Matrix;"), {"Matrix"});
}

TEST_F(BadFile, LacksTheRowOfGen) {
    ExpectRefused(Run.Make("line.mdb", "DELETE FROM Gen;"), {"Gen"});
}

TEST(SolveProgramErrors, NamesADemandThatIsNoPositiveNumber) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    for (const char* demand : {"abc", "0", "-5", "12,5", "0,250", "1e400"}) {
        SCOPED_TRACE(demand);
        ExpectError(Solve(run, model, demand), {"Demand"});
    }
    ExpectError(Solve(run, model, ""), {"--demand"});
    EXPECT_TRUE(run.LeftNothing());
}

TEST(SolveProgramErrors, NamesTheVolumesWhenThereAreSeveral) {
    const SolveRun run;
    const auto model = Spoilt(run, [](ModelScript& script) {
        script.Demand = {{90000, 60}, {5000, 40}};
    });
    ExpectError(run({model, "--shifts", "1"}), {model, "5,000", "90,000", "--demand"});
}

TEST(SolveProgramErrors, SaysThatThereIsNoDemandRow) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    ExpectError(run({model, "--shifts", "1"}), {model, "no demand row", "--demand"});
}

TEST(SolveProgramErrors, NamesTheDemandWhenTheOnlyRowHasNoVolume) {
    const SolveRun run;
    const auto model = Spoilt(run, [](ModelScript& script) { script.Demand = {{0, 100}}; });
    ExpectError(run({model, "--shifts", "1"}), {"demand"});
}

TEST(SolveProgramErrors, NamesALimitThatIsNoNumber) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    for (const char* limit : {"abc", "40000"}) {
        SCOPED_TRACE(limit);
        ExpectError(run({model, "--shifts", "1", "--demand", "5", "--station-limit", limit}),
                    {"Station Limit"});
    }
}

TEST(SolveProgramErrors, NamesAnEmptyLimit) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    ExpectError(run({model, "--shifts", "1", "--demand", "5", "--station-limit", ""}), {"limit"});
}

TEST(SolveProgramErrors, NamesAnUptimeOfZero) {
    const SolveRun run;
    ExpectError(Solve(run, Spoilt(run, [](auto& script) { script.Resources[0].UpTime = 0; })),
                {"Resource 1 (Press): uptime is 0 %"});
}

TEST(SolveProgramErrors, NamesZeroStationsPerWorker) {
    const SolveRun run;
    ExpectError(Solve(run, Spoilt(run, [](auto& script) { script.Resources[0].StatPerWrk = 0; })),
                {"Resource 1 (Press): stations per worker is 0"});
}

TEST(SolveProgramErrors, RefusesTooManyTasks) {
    const SolveRun run;
    ExpectError(Solve(run, Spoilt(run, [](ModelScript& script) { script.Tasks = 256; })),
                {"Tasks", "255"});
}

TEST(SolveProgramErrors, RefusesTooManyPathways) {
    const SolveRun run;
    // 157 resources x 20 x 21 / 2 ranges = 32,970
    const auto model = Spoilt(run, [](ModelScript& script) {
        script.Tasks = 20;
        script.Resources.resize(157);
        script.Matrix.clear();
        for (int resource = 1; resource <= 157; ++resource) {
            for (int task = 1; task <= 20; ++task) {
                script.Matrix.push_back({resource, task, 10, 1});
            }
        }
    });
    ExpectError(Solve(run, model), {"Pathways", "32,767"});
    EXPECT_TRUE(run.LeftNothing());
}

TEST(SolveProgramErrors, RefusesAMatrixRowBeyondTheTasks) {
    const SolveRun run;
    ExpectError(Solve(run, Spoilt(run, [](ModelScript& script) { script.Tasks = 1; })),
                {"Matrix", "task 2"});
}

TEST(SolveProgramErrors, RefusesToSaveOverTheModel) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    fs::create_symlink(model, run.File("link.mdb"));
    const std::string before = ReadFile(model);
    for (const auto& target :
         {model, PathText(run.File("tmp/../line.mdb")), PathText(run.File("link.mdb"))}) {
        SCOPED_TRACE(target);
        ExpectError(run({model, "--shifts", "1", "--demand", "100000", "--save", target}),
                    {"--save", target});
    }
    EXPECT_EQ(ReadFile(model), before);
    EXPECT_EQ(NamesIn(run.File("")), (Lines{"line.mdb", "link.mdb", "tmp"}));
}

TEST(SolveProgramErrors, CannotSaveOnADirectoryOrIntoAMissingOne) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    fs::create_directory(run.File("taken"));
    for (const auto& target :
         {PathText(run.File("taken")), PathText(run.File("missing/new.mdb"))}) {
        SCOPED_TRACE(target);
        ExpectError(run({model, "--shifts", "1", "--demand", "100000", "--save", target}),
                    {target});
    }
    EXPECT_EQ(NamesIn(run.File("")), (Lines{"line.mdb", "taken", "tmp"}));
    EXPECT_TRUE(fs::is_empty(run.File("taken")));
    EXPECT_TRUE(run.LeftNothing());
}

TEST(SolveProgramErrors, CannotMakeADirectoryOfAFile) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    WriteFile(run.File("file"), "x");
    for (const auto& out : {PathText(run.File("file")), PathText(run.File("file/below"))}) {
        ExpectError(run({model, "--shifts", "1", "--demand", "100000", "--out", out}),
                    {"--out", out});
    }
    ExpectError(run({model, "--shifts", "1", "--out", PathText(run.File("file"))}),
                {"file cannot be made a directory. Name another."});  // before anything else
    EXPECT_EQ(ReadFile(run.File("file")), "x");
}

TEST(SolveProgramErrors, CannotPrintOnAFullDevice) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    ExpectError(run({model, "--shifts", "1", "--demand", "100000"}, "/dev/full"),
                {"standard output"});
}

TEST(SolveProgramErrors, LeavesNoFilesWhenTheModelIsNotSolved) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    const fs::path old = run.File("old.mdb");
    WriteFile(old, "kept");
    ExpectNotSolved(
        run({model, "--shifts", "1", "--demand", "5000000", "--station-limit", "1", "--out",
             PathText(run.File("out")), "--pictures", "--save", PathText(old)}),
        "There is not a feasible solution!",
        "Tasks 1 and 2: only the station limit of 1 forbids it.\n"
        "There is a line with a station limit of 28 or more.\n"
        "There is a line for up to 185,143 units per year.\n");
    EXPECT_EQ(ReadFile(old), "kept");
    EXPECT_EQ(NamesIn(run.File("")), (Lines{"line.mdb", "old.mdb", "tmp"}));
    EXPECT_TRUE(run.LeftNothing());
}

TEST(SolveProgramMessages, SaysThatTheModelIsNotComplete) {
    const SolveRun run;
    ExpectNotSolved(Solve(run, run.Make("empty.mdb", std::string())),
                    "Please complete the task and resource information tables first.");
    ExpectNotSolved(Solve(run, Spoilt(run, [](ModelScript& script) { script.Matrix.clear(); })),
                    "Please complete the task and resource tables first.",
                    "Tasks 1 and 2: no resource can do them. Enter a task time in the matrix.\n");
}

TEST(SolveProgramMessages, TakesMoreStationsThanAnIntegerHoldsForInfeasible) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    ExpectNotSolved(Solve(run, model, "1e12"), "There is not a feasible solution!",
                    "Tasks 1 and 2: even 32,767 parallel stations are not enough for this volume.\n"
                    "There is a line for up to 2,000,000,000 units per year.\n");
}

/// One resource that can do these tasks of four.
std::string WithTasks(const SolveRun& run, const std::vector<int>& tasks) {
    return Spoilt(run, [&](ModelScript& script) {
        script.Tasks = 4;
        script.Matrix.clear();
        for (const int task : tasks) {
            script.Matrix.push_back({1, task, 10, 1});
        }
    });
}

TEST(SolveProgramMessages, ReportsALineThatEndsEarlyAndSaysWhere) {
    const SolveRun run;
    const auto model = Spoilt(run, [](ModelScript& script) {
        std::erase_if(script.Matrix, [](const auto& row) { return row.Task == 2; });
    });
    const auto result = Solve(run, model);
    EXPECT_EQ(result.Status, 2);
    EXPECT_TRUE(result.Out.starts_with("Solution\n")) << result.Out;
    EXPECT_EQ(result.Err,
              "This line ends after task 1: no resource can do tasks 2 to 2 within the limits.\n"
              "Task 2: no resource can do it. Enter a task time in the matrix.\n");
}

TEST(SolveProgramMessages, SaysThatANodeIsNotReached) {
    // Nothing ends at node 3, where the station for task 3 starts.
    const SolveRun run;
    ExpectNotSolved(Solve(run, WithTasks(run, {1, 3, 4})), "There is no feasible solution.",
                    "Task 2: no resource can do it. Enter a task time in the matrix.\n");
}

TEST(SolveProgramMessages, SaysThatNoStationStartsTheLine) {
    // The only station starts at node 2; no label leads back to node 1.
    const SolveRun run;
    ExpectNotSolved(
        Solve(run, WithTasks(run, {2})), "There is no feasible solution!",
        "Tasks 1, 3 and 4: no resource can do them. Enter a task time in the matrix.\n");
}

TEST(SolveProgramUsage, HasStatusesOfItsOwn) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    const std::vector<Lines> wrong = {
        {},
        {model},
        {"--shifts", "1"},
        {model, "--shifts", "4"},
        {model, "--shifts", "0"},
        {model, "--shifts", "two"},
        {model, "--shifts", "1", "--demand"},
        {model, "--shifts", "1", "--demand", "100000", "--pictures"},
        {model, "--shifts", "1", "--unknown"},
        {model, "another.mdb", "--shifts", "1", "--save", "solved.mdb"},
    };
    for (const Lines& arguments : wrong) {
        const auto result = run(arguments);
        EXPECT_GT(result.Status, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(result.Out, "");
        EXPECT_FALSE(result.Err.empty());
    }
    EXPECT_TRUE(run.LeftNothing());
}

}  // namespace
}  // namespace quarnel02
