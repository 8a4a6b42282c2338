// The batch program for a demand distribution, as a process of its own.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "model/Database.h"
#include "support/SolveRun.h"
#include "support/StochModels.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::ModelScript;
using test::NamesIn;
using test::ProgramResult;
using test::SolveRun;
using test::StagesModel;

using Lines = std::vector<std::string>;

constexpr const char* kReport =
    "Production Report\n"
    "-----------------\n"
    " \n"
    "Demand:     100000\n"
    "Shifts:     1\n"
    "Total Cost: $146,000\n"
    "Penalty:    0\n"
    " \n"
    "Demand:     200000\n"
    "Shifts:     1\n"
    "Total Cost: $200,000\n"
    "Penalty:    0\n"
    " \n";

const std::string kPrinted = std::string(
                                 "Final Solution\n"
                                 "-------------------\n"
                                 "Station Limit: ---\n"
                                 "# of Shifts: 3\n"
                                 "Capacity: 600,000\n"
                                 "\n"
                                 "Sta.  Resource  Qty     Cost      Time    Tasks    Tools\n"
                                 " 1    Robot      2      $94000    30.     1-1      1\n"
                                 " 2    Robot      2      $84400    24.     2-2      2\n"
                                 "Cycle Time: 30. sec\n"
                                 "Max. Cycle Time: 36. sec\n"
                                 "Expected Penalty Cost: $0\n"
                                 "Expected Annualized System Costs: $178,400\n"
                                 "Expected Annualized Fixed Costs: $12,000\n"
                                 "\n") +
                             kReport;

class StochasticProgram : public testing::Test {
  protected:
    ~StochasticProgram() override { EXPECT_TRUE(Run.LeftNothing()); }

    ProgramResult Solve(const Lines& options) const {
        Lines arguments = {Model, "--stochastic"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return Run(arguments);
    }
    static void ExpectSolved(const ProgramResult& result) {
        EXPECT_EQ(result.Status, 0) << result.Err;
        EXPECT_EQ(result.Err, "");
        EXPECT_EQ(result.Out, kPrinted);
    }
    [[nodiscard]] std::string File(const std::string& name) const {
        return PathText(Run.File(name));
    }

    const SolveRun Run;
    const std::string Model = Run.Make("line.mdb", StagesModel());
};

TEST_F(StochasticProgram, PrintsTheSummaryAndTheReport) {
    ExpectSolved(Solve({}));
    EXPECT_EQ(NamesIn(Run.File("")), (Lines{"line.mdb", "tmp"}));
}

TEST_F(StochasticProgram, TakesThePenaltyOfTheModel) {
    const std::string model =
        Run.Make("oven.mdb", test::PenaltyModel().Sql() + "UPDATE Gen SET Penalty = 0.25;");
    const auto result = Run({model, "--stochastic"});
    EXPECT_EQ(result.Status, 0) << result.Err;
    EXPECT_NE(result.Out.find("Expected Penalty Cost: $15,000\n"), std::string::npos) << result.Out;
    EXPECT_NE(result.Out.find("Penalty:    25000\n"), std::string::npos) << result.Out;
}

TEST_F(StochasticProgram, LeavesTheReportInADirectory) {
    ExpectSolved(Solve({"--out", File("out")}));
    EXPECT_EQ(NamesIn(Run.File("out")), Lines{"ProdRpt.txt"});
    EXPECT_EQ(ReadFile(Run.File("out/ProdRpt.txt")), kReport);
}

TEST_F(StochasticProgram, LeavesThePicturesBesideTheReport) {
    ExpectSolved(Solve({"--out", File("out"), "--pictures"}));
    EXPECT_EQ(NamesIn(Run.File("out")), (Lines{"ProdRpt.txt", "costs.svg", "demand.svg", "line.svg",
                                               "network.svg", "summary.svg"}));
    for (const auto& [name, content] :
         {std::pair("network.svg", "rgb(250,250,0)"), std::pair("summary.svg", ">Final Solution<"),
          std::pair("demand.svg", ">Demand Distribution<"),
          std::pair("costs.svg", ">Expected Annual Cost<"),
          std::pair("line.svg", ">Graphical Representation<")}) {
        const std::string svg = ReadFile(Run.File("out") / name);
        EXPECT_TRUE(svg.starts_with("<svg ")) << name;
        EXPECT_NE(svg.find(content), std::string::npos) << name;
    }
}

TEST_F(StochasticProgram, KeepsEveryRunFile) {
    ExpectSolved(Solve({"--keep-run-files", File("deep/kept")}));
    const std::vector<std::pair<std::string, std::uintmax_t>> records = {
        {"EProd", 2 * 16},   {"EShift", 4 * 12},  {"F1T1.R1", 6 * 20}, {"F1T2.R1", 9 * 20},
        {"F2T2.R1", 6 * 20}, {"F2T2.R2", 5 * 20}, {"Final", 10 * 22},  {"Final1", 6 * 22},
        {"Final2", 10 * 22}, {"IT11", 6 * 20},    {"IT12", 9 * 20},    {"IT22", 8 * 20},
        {"Temp1", 9 * 22},   {"Temp2", 9 * 22},   {"TempA", 6 * 20},   {"TempC", 8 * 20}};
    Lines names;
    for (const auto& [name, size] : records) {
        names.push_back(name);
        EXPECT_EQ(fs::file_size(Run.File("deep/kept") / name), size) << name;
    }
    EXPECT_EQ(NamesIn(Run.File("deep/kept")), names);
}

TEST_F(StochasticProgram, KeepsRunFilesInAnEmptyDirectoryOnly) {
    fs::create_directory(Run.File("kept"));
    ExpectSolved(Solve({"--keep-run-files", File("kept")}));
    const Lines kept = NamesIn(Run.File("kept"));
    const std::string first = ReadFile(Run.File("kept") / "Final2");
    const auto result = Solve({"--keep-run-files", File("kept"), "--progress", "--out", File("out"),
                               "--save", File("solved.mdb")});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Out, "");
    EXPECT_EQ(result.Err, "quarnel02-solve: --keep-run-files " + File("kept") +
                              " is not empty. Name an empty directory, or a new one.\n");
    EXPECT_EQ(NamesIn(Run.File("kept")), kept);
    EXPECT_EQ(ReadFile(Run.File("kept") / "Final2"), first);
    EXPECT_EQ(NamesIn(Run.File("")), (Lines{"kept", "line.mdb", "tmp"}));
}

TEST_F(StochasticProgram, KeepsTheRunFilesOfATaskThatNoResourceCanDo) {
    ModelScript model = StagesModel();
    model.Matrix = {{1, 1, 60, 1, 1000}};
    const auto result =
        Run({Run.Make("gap.mdb", model), "--stochastic", "--keep-run-files", File("kept")});
    EXPECT_EQ(result.Status, 2);
    EXPECT_EQ(NamesIn(Run.File("kept")),
              (Lines{"EProd", "EShift", "F1T1.R1", "Final1", "IT11", "Temp1", "TempA"}));
}

TEST_F(StochasticProgram, KeepsTheRunFilesOfASolveThatFails) {
    ModelScript model = StagesModel();
    model.Matrix[1].Entry.ToolCost = 3e38;  // task 2, with a factor beyond a single
    model.Resources[0].ICF = 2;
    const auto result =
        Run({Run.Make("dear.mdb", model), "--stochastic", "--keep-run-files", File("kept")});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(NamesIn(Run.File("kept")),
              (Lines{"EProd", "EShift", "F1T1.R1", "Final1", "IT11", "Temp1", "TempA"}));
}

TEST_F(StochasticProgram, TellsItsProgress) {
    const auto result = Solve({"--progress"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Out, kPrinted);
    EXPECT_EQ(result.Err,
              "PLEASE WAIT -- PROGRAM IS RUNNING\n"
              "Creating Resource Tables for Task 1 To Task 1\n"
              "Creating Initial Tables for Task 1 To Task 1\n"
              "Creating Intermediate Tables for Task 1\n"
              "Creating Final Table for Task 1\n"
              "1 of 2 Tasks Completed\n"
              "Creating Resource Tables for Task 1 To Task 2\n"
              "Creating Initial Tables for Task 1 To Task 2\n"
              "Creating Resource Tables for Task 2 To Task 2\n"
              "Creating Initial Tables for Task 2 To Task 2\n"
              "Creating Intermediate Tables for Task 2\n"
              "Creating Final Table for Task 2\n"
              "2 of 2 Tasks Completed\n"
              "Adding Expected Penalties to Final Table\n");
}

TEST_F(StochasticProgram, SavesTheSolvedModelAndNeverChangesTheModel) {
    const std::string before = ReadFile(Model);
    ExpectSolved(Solve({"--save", File("solved.mdb")}));
    EXPECT_EQ(ReadFile(Model), before);
    const Database solved = Database::Open(Run.File("solved.mdb"));
    EXPECT_EQ(solved.OpenRecordSet("SELECT * FROM Pathways WHERE Feasible = 4;").RecordCount(), 2);
    EXPECT_EQ(solved.OpenRecordSet("SELECT * FROM Pathways WHERE Feasible = 1;").RecordCount(), 2);
}

TEST_F(StochasticProgram, DesignsTheExampleModels) {
    const auto result =
        Run({std::string(QUARNEL02_PROGRAMS) + "/examples/pump.mdb", "--stochastic"});
    EXPECT_EQ(result.Status, 0) << result.Err;
    EXPECT_TRUE(result.Out.starts_with("Final Solution\n")) << result.Out;
    EXPECT_NE(result.Out.find("\n\nProduction Report\n"), std::string::npos) << result.Out;
}

TEST_F(StochasticProgram, SaysOnStandardErrorThatATableWasFull) {
    const auto result = Run({Run.Make("long.mdb", test::LongTableModel()), "--stochastic"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_TRUE(result.Out.starts_with("Final Solution\n")) << result.Out;
    EXPECT_TRUE(result.Err.starts_with(
        "Table Temp1 is full at 10000 records: its cost curve ends at a volume of 3,"))
        << result.Err;
    EXPECT_EQ(std::count(result.Err.begin(), result.Err.end(), '\n'), 1) << result.Err;
}

TEST_F(StochasticProgram, SaysThatProbabilitiesDoNotAddUpAndGoesOn) {
    ModelScript model = StagesModel();
    model.Demand = {{100000, 50}, {200000, 35}};
    const auto result = Run({Run.Make("short.mdb", model), "--stochastic"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_TRUE(result.Out.starts_with("Final Solution\n")) << result.Out;
    EXPECT_EQ(result.Err, "The probabilities add up to 85%.\n");
}

TEST_F(StochasticProgram, EndsOnATaskThatNoResourceCanDo) {
    ModelScript model = StagesModel();
    model.Matrix.pop_back();
    model.Matrix.pop_back();
    const auto result = Run({Run.Make("gap.mdb", model), "--stochastic", "--out", File("out"),
                             "--save", File("solved.mdb")});
    EXPECT_EQ(result.Status, 2);
    EXPECT_EQ(result.Out, "");
    EXPECT_EQ(result.Err,
              "Error creating intermediate task table\n\nNo resource can do task 2: none has a "
              "time for it. Enter one in the task-resource matrix.\n"
              "Task 2: no resource can do it. Enter a task time in the matrix.\n");
    EXPECT_EQ(NamesIn(Run.File("")), (Lines{"gap.mdb", "line.mdb", "tmp"}));
}

TEST_F(StochasticProgram, NeedsADistribution) {
    ModelScript model = StagesModel();
    model.Demand.pop_back();
    const auto result = Run({Run.Make("one.mdb", model), "--stochastic"});
    EXPECT_EQ(result.Status, 2);
    EXPECT_EQ(result.Out, "");
    EXPECT_EQ(result.Err, "You must first enter a probability distribution for demand.\n");
}

TEST_F(StochasticProgram, NeedsEveryResource) {
    const auto model =
        Run.Make("rows.mdb", StagesModel().Sql() + "DELETE FROM Resources WHERE ResourceId = 2;");
    const auto result = Run({model, "--stochastic"});
    EXPECT_EQ(result.Status, 2);
    EXPECT_EQ(result.Err, "Please complete the task and resource information tables first.\n");
}

TEST_F(StochasticProgram, ReportsAnErrorOnOneLine) {
    ModelScript model = StagesModel();
    model.Demand = {{-5, 50}, {1000, 50}};
    const auto result = Run({Run.Make("minus.mdb", model), "--stochastic"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Out, "");
    EXPECT_EQ(result.Err,
              "quarnel02-solve: Demand row 1 (-5 units): volume is -5; it must be at least 0.\n");
}

TEST_F(StochasticProgram, RefusesAFileInPlaceOfTheDirectoryForRunFiles) {
    WriteFile(Run.File("kept"), "mine");
    const auto result = Solve({"--keep-run-files", File("kept")});
    EXPECT_EQ(result.Status, 1);
    EXPECT_NE(result.Err.find("--keep-run-files"), std::string::npos) << result.Err;
    EXPECT_EQ(ReadFile(Run.File("kept")), "mine");
}

/// Wrong words have the option parser's own status, beyond those of a solve.
void ExpectWrongUsage(const ProgramResult& result, const std::string& word) {
    EXPECT_GE(result.Status, 100);
    EXPECT_EQ(result.Out, "");
    EXPECT_NE(result.Err.find(word), std::string::npos) << result.Err;
}

TEST_F(StochasticProgram, RefusesWrongUsage) {
    ExpectWrongUsage(Solve({"--shifts", "2"}), "Exactly 1 option from [--shifts,--stochastic]");
    ExpectWrongUsage(Solve({"--demand", "1000"}), "--demand requires --shifts");
    ExpectWrongUsage(Solve({"--station-limit", "3"}), "--station-limit requires --shifts");
    ExpectWrongUsage(Solve({"--pictures"}), "--pictures requires --out");
    ExpectWrongUsage(Run({Model, "--shifts", "1", "--keep-run-files", File("kept")}),
                     "--keep-run-files requires --stochastic");
    ExpectWrongUsage(Run({Model, "--shifts", "1", "--progress"}),
                     "--progress requires --stochastic");
    ExpectWrongUsage(Run({Model}), "Exactly 1 option from [--shifts,--stochastic]");
}

}  // namespace
}  // namespace quarnel02
