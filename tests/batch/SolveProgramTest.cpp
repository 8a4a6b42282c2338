// The batch program as a process of its own: what it prints and leaves when it designs a line.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "generate_model.h"
#include "model/Database.h"
#include "support/SolveRun.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::NamesIn;
using test::ProgramResult;
using test::RunProgram;
using test::SolveRun;
using test::WorkedExample;

using Lines = std::vector<std::string>;

constexpr const char* kWorkedReport =
    "Solution\n"
    "-------------------\n"
    "# of Shifts: 1\n"
    "Station Limit: --\n"
    "Annual Volume: 100,000\n"
    " \n"
    "Sta.  Resource  Qty     Cost      Time    Tasks    Tools\n"
    " 1    1  Press   1     $64,336    61.11    1-2       1\n"
    " \n"
    "Cycle Time:      61.11\n"
    "Max Cycle Time:  72.00\n"
    " \n"
    "Total Cost:         $64,336\n"
    "Initial Investment: $12,600\n"
    "Annualized Labor:   $60,556\n";

std::string Example(const std::string& name) {
    return std::string(QUARNEL02_PROGRAMS) + "/examples/" + name;
}

void ExpectSolved(const ProgramResult& result) {
    EXPECT_EQ(result.Status, 0) << result.Err;
    EXPECT_EQ(result.Err, "");
    EXPECT_TRUE(result.Out.starts_with("Solution\n")) << result.Out;
}

TEST(SolveProgram, PrintsTheReportOfTheWorkedExample) {
    const SolveRun run;
    const auto result = run({Example("worked-example.mdb"), "--shifts", "1", "--demand", "100000"});
    ExpectSolved(result);
    EXPECT_EQ(result.Out, kWorkedReport);
    EXPECT_TRUE(run.LeftNothing());
}

TEST(SolveProgram, LeavesTheSameReportInADirectory) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    const fs::path out = run.File("deep/er/out");
    const auto result =
        run({model, "--shifts", "1", "--demand", "100,000", "--out", PathText(out)});
    ExpectSolved(result);
    EXPECT_EQ(result.Out, kWorkedReport);
    EXPECT_EQ(NamesIn(out), Lines{"RunRpt.txt"});
    EXPECT_EQ(ReadFile(out / "RunRpt.txt"), kWorkedReport);
    EXPECT_TRUE(run.LeftNothing());
}

TEST(SolveProgram, LeavesThePicturesBesideTheReport) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    const fs::path out = run.File("out");
    ExpectSolved(
        run({model, "--shifts", "1", "--demand", "100000", "--out", PathText(out), "--pictures"}));
    EXPECT_EQ(NamesIn(out), (Lines{"RunRpt.txt", "line.svg", "network.svg", "summary.svg"}));
    for (const auto& [name, content] : {std::pair("network.svg", "rgb(250,250,0)"),
                                        std::pair("summary.svg", ">Solution Summary<"),
                                        std::pair("line.svg", ">Graphical Representation<")}) {
        const std::string svg = ReadFile(out / name);
        EXPECT_TRUE(svg.starts_with("<svg ")) << name;
        EXPECT_TRUE(svg.ends_with("</svg>\n")) << name;
        EXPECT_NE(svg.find(content), std::string::npos) << name;
    }
    EXPECT_TRUE(run.LeftNothing());
}

TEST(SolveProgram, NeverChangesTheModel) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    const std::string before = ReadFile(model);
    const auto written = fs::last_write_time(model);
    ExpectSolved(run({model, "--shifts", "1", "--demand", "100000", "--out",
                      PathText(run.File("out")), "--save", PathText(run.File("solved.mdb"))}));
    EXPECT_EQ(ReadFile(model), before);
    EXPECT_EQ(fs::last_write_time(model), written);
    EXPECT_EQ(NamesIn(run.File("")), (Lines{"line.mdb", "out", "solved.mdb", "tmp"}));
}

TEST(SolveProgram, SolvesAModelThatMayOnlyBeRead) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    fs::permissions(model, fs::perms::owner_read);
    ExpectSolved(run({model, "--shifts", "1", "--demand", "100000", "--save",
                      PathText(run.File("solved.mdb"))}));
}

TEST(SolveProgram, SavesTheSolvedModel) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    const fs::path saved = run.File("solved.mdb");
    ExpectSolved(run({model, "--shifts", "1", "--demand", "100000", "--save", PathText(saved)}));
    EXPECT_NO_THROW(CheckModelFile(saved, "solved.mdb"));
    const Database solved = Database::Open(saved);
    EXPECT_EQ(solved.OpenRecordSet("SELECT * FROM Arcs;").RecordCount(), 3);
    const RecordSet chosen = solved.OpenRecordSet("SELECT * FROM Pathways WHERE Feasible = 4;");
    ASSERT_EQ(chosen.RecordCount(), 1);
    EXPECT_NEAR(chosen.Number("Cost"), 64335.55, 0.01);
    EXPECT_EQ(solved.OpenRecordSet("SELECT * FROM BestPaths;").RecordCount(), 2);
    EXPECT_EQ(solved.OpenRecordSet("SELECT * FROM Matrix;").RecordCount(), 2);
}

TEST(SolveProgram, SolvesASavedModelAgainToTheSameReport) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    const auto saved = PathText(run.File("solved.mdb"));
    ExpectSolved(run({model, "--shifts", "1", "--demand", "100000", "--save", saved}));
    EXPECT_EQ(run({saved, "--shifts", "1", "--demand", "100000"}).Out, kWorkedReport);
}

TEST(SolveProgram, ReplacesAnOlderFileWhole) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    const fs::path saved = run.File("solved.mdb");
    WriteFile(saved, std::string(1000000, 'x'));
    ExpectSolved(run({model, "--shifts", "1", "--demand", "100000", "--save", PathText(saved)}));
    EXPECT_NO_THROW(CheckModelFile(saved, "solved.mdb"));
    EXPECT_LT(fs::file_size(saved), 1000000U);
}

TEST(SolveProgram, TakesTheOnlyDemandRow) {
    const SolveRun run;
    auto script = WorkedExample();
    script.Demand = {{100000, 100}};
    const auto result = run({run.Make("line.mdb", script), "--shifts", "1"});
    ExpectSolved(result);
    EXPECT_EQ(result.Out, kWorkedReport);
}

TEST(SolveProgram, PrefersTheDemandOfTheCommandLineToTheRows) {
    const SolveRun run;
    auto script = WorkedExample();
    script.Demand = {{200000, 100}};
    EXPECT_EQ(run({run.Make("line.mdb", script), "--shifts", "1", "--demand", "100000"}).Out,
              kWorkedReport);
}

TEST(SolveProgram, LimitsTheStations) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    const auto result = run({model, "--shifts", "1", "--demand", "200000", "--station-limit", "2"});
    ExpectSolved(result);
    EXPECT_NE(result.Out.find("\nStation Limit: 2\n"), std::string::npos);
    EXPECT_NE(result.Out.find("\nTotal Cost:         $98,116\n"), std::string::npos);
}

TEST(SolveProgram, TakesALimitOfZeroForNone) {
    const SolveRun run;
    const auto model = run.Make("line.mdb", WorkedExample());
    EXPECT_EQ(run({model, "--shifts", "1", "--demand", "100000", "--station-limit", "0"}).Out,
              kWorkedReport);
}

TEST(SolveProgram, ReadsAndWritesPathsWithUmlautsBlanksAndCommas) {
    const SolveRun run;
    fs::create_directory(run.File("Straße, größer"));
    const auto model = run.Make("Straße, größer/Pumpe Ü 1,5.mdb", WorkedExample());
    const fs::path out = run.File("Straße, größer/Ergebnis ä");
    const fs::path saved = run.File("Straße, größer/gelöst, neu.mdb");
    ExpectSolved(run({model, "--shifts", "1", "--demand", "100000", "--out", PathText(out),
                      "--pictures", "--save", PathText(saved)}));
    EXPECT_EQ(ReadFile(out / "RunRpt.txt"), kWorkedReport);
    EXPECT_NO_THROW(CheckModelFile(saved, "saved"));
    EXPECT_TRUE(run.LeftNothing());
}

TEST(SolveProgram, DesignsThePumpForEveryVolumeAndShiftCount) {
    const SolveRun run;
    for (const char* demand : {"30000", "60000", "90000", "140000"}) {
        for (const char* shifts : {"1", "2", "3"}) {
            SCOPED_TRACE(std::string(demand) + " in " + shifts);
            const auto result = run({Example("pump.mdb"), "--shifts", shifts, "--demand", demand});
            ExpectSolved(result);
            EXPECT_NE(result.Out.find(std::string("\n# of Shifts: ") + shifts + "\n"),
                      std::string::npos);
        }
    }
    EXPECT_TRUE(run.LeftNothing());
}

TEST(SolveProgram, DesignsALargeLine) {
    const SolveRun run;
    const auto model = run.Make("large.mdb", GeneratedModelScript(50, 25, 1));
    const fs::path saved = run.File("solved.mdb");
    ExpectSolved(run({model, "--shifts", "2", "--demand", "60000", "--save", PathText(saved)}));
    // 25 resources x 50 x 51 / 2 ranges
    EXPECT_EQ(Database::Open(saved).OpenRecordSet("SELECT PathId FROM Pathways;").RecordCount(),
              31875);
}

TEST(SolveProgram, ExplainsItselfWithAnExample) {
    const SolveRun run;
    const auto result = run({"--help"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Err, "");
    for (const char* word : {"Example", "--shifts", "--demand", "--station-limit", "--out",
                             "--pictures", "--save", "MODEL", "Exit status"}) {
        EXPECT_NE(result.Out.find(word), std::string::npos) << word;
    }
}

TEST(SolveProgram, LinksNoWindowToolkit) {
    const auto result = RunProgram({"ldd", std::string(QUARNEL02_PROGRAMS) + "/quarnel02-solve"});
    ASSERT_EQ(result.Status, 0) << result.Err;
    EXPECT_NE(result.Out.find("libsqlite3"), std::string::npos) << result.Out;
    EXPECT_EQ(result.Out.find("Qt"), std::string::npos) << result.Out;
}

}  // namespace
}  // namespace quarnel02
