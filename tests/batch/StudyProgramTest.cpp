// The batch program as a process of its own: studies, and designs as JSON.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "batch/ShippedModels.h"
#include "support/SolveRun.h"

namespace quarnel02 {
namespace {

using nlohmann::json;
using test::kPump;
using test::kWorked;
using test::ModelScript;
using test::ProgramResult;
using test::SolveRun;
using test::WorkedExample;

using Lines = std::vector<std::string>;

/// What a run that ends well has printed.
std::string Out(const Lines& words) {
    const SolveRun run;
    const ProgramResult result = run(words);
    EXPECT_EQ(result.Status, 0) << result.Err;
    EXPECT_EQ(result.Err, "");
    EXPECT_TRUE(run.LeftNothing());
    return result.Out;
}

json OneLine(const std::string& out) {
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 1) << out;
    return json::parse(out);
}

// One machine at 61.11 s: in one shift of 250 days 72 s are left for each of 100,000 units, so that
// a station makes 7,200,000 s / 61.11 s = 117,818 units. It costs 3,780 of capital and 30,000 of
// labour a shift, and 20 $/h x 55 s of machine time a unit.
TEST(StudyProgram, PrintsTheRangesOfVolumes) {
    EXPECT_EQ(Out({kWorked, "--study", "volumes", "--to", "250000", "--format", "csv"}),
              "shifts,from,to,line,cost_from,cost_to,investment,best\n"
              "1,1,117818,Press 1-2,33780.305,69779.945,12600,1\n"
              "1,117819,235636,Press x2 1-2,85560.125,103559.945,25200,1\n"
              "1,235637,250000,Press x3 1-2,125340.06,126802.96,37800,1\n"
              "2,1,235636,Press 1-2,63780.305,135779.89,12600,0\n"
              "2,235637,250000,Press x2 1-2,163560.1,165754.44,25200,0\n"
              "3,1,250000,Press 1-2,93780.305,170168.89,12600,0\n");
}

TEST(StudyProgram, LooksAtTheVolumesThatItIsTold) {
    EXPECT_EQ(Out({kWorked, "--study", "volumes", "--from", "117,818", "--to", "117819", "--shifts",
                   "1", "--format", "csv"}),
              "shifts,from,to,line,cost_from,cost_to,investment,best\n"
              "1,117818,117818,Press 1-2,69779.945,69779.945,12600,1\n"
              "1,117819,117819,Press x2 1-2,85560.125,85560.125,25200,1\n");
    // The largest demand row is 200,000.
    const std::string usual =
        Out({kWorked, "--study", "volumes", "--shifts", "3", "--format", "csv"});
    EXPECT_NE(usual.find("\n3,353455,400000,"), std::string::npos) << usual;
}

TEST(StudyProgram, KeepsToTheStationLimitOfVolumes) {
    EXPECT_EQ(Out({kWorked, "--study", "volumes", "--shifts", "1", "--station-limit", "1", "--to",
                   "250000", "--format", "csv"}),
              "shifts,from,to,line,cost_from,cost_to,investment,best\n"
              "1,1,117818,Press 1-2,33780.305,69779.945,12600,1\n"
              "1,117819,185143,Press 1; Press 2,106833,129274.336,25200,0\n");
}

TEST(StudyProgram, PrintsTheCheapestLines) {
    const std::string out = Out({kPump, "--study", "alternatives", "--shifts", "2", "--demand",
                                 "60000", "--format", "csv"});
    EXPECT_TRUE(
        out.starts_with("rank,cost,difference,investment,labour,line\n"
                        "1,202003.88,0,25710,184320,Bench 1-8; Assist 9-12\n"
                        "2,203042.2,"))
        << out;
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 11);
}

TEST(StudyProgram, PrintsATableForReading) {
    const std::string out =
        Out({kWorked, "--study", "alternatives", "--shifts", "2", "--demand", "60000"});
    EXPECT_EQ(out,
              "rank        cost   difference  investment   labour  line\n"
              "   1  82,113.336            0      12,600   60,000  Press 1-2\n"
              "   2     147,560  65,446.6641      25,200  120,000  Press 1; Press 2\n");
}

TEST(StudyProgram, SaysWhatIsNextBestAtEachStation) {
    const std::string out = Out({kPump, "--study", "alternatives", "--shifts", "2", "--demand",
                                 "60000", "--format", "json"});
    const json study = OneLine(out);
    EXPECT_EQ(study["version"], 1);
    EXPECT_EQ(study["study"], "alternatives");
    EXPECT_EQ(study["volume"], 60000);
    EXPECT_EQ(study["station_limit"], nullptr);
    ASSERT_EQ(study["rows"].size(), 10U);
    EXPECT_EQ(study["rows"][0]["line"], "Bench 1-8; Assist 9-12");
    EXPECT_TRUE(study["replacements"].empty());  // no other resource can do the tasks in time
}

TEST(StudyProgram, PrintsTheBestCapacities) {
    const std::string csv =
        Out({kWorked, "--study", "alternatives", "--stochastic", "--format", "csv"});
    EXPECT_EQ(csv,
              "rank,capacity,expected_cost,penalty,investment,line\n"
              "1,600000,90476.664,0,25200,Press x2 1-2\n"
              "2,300000,94613.336,0,12600,Press 1-2\n"
              "3,150000,116974.445,0,12600,Press 1-2\n"
              "4,100000,124335.555,0,12600,Press 1-2\n");
    const json study =
        OneLine(Out({kWorked, "--study", "alternatives", "--stochastic", "--format", "json"}));
    const json& third = study["capacities"][2];
    EXPECT_EQ(third["shortage_probability"], 50);
    EXPECT_EQ(third["unmet_units"], 25000);  // half the time 50,000 of 200,000
    EXPECT_EQ(third["demand"][0]["shifts"], 2);
    EXPECT_EQ(third["demand"][1]["production"], 150000);
    EXPECT_EQ(third["demand"][1]["utilisation"], 1);
    EXPECT_EQ(third["word"], "one unit less costs 15,000 more");
    const std::string text = Out({kPump, "--study", "alternatives", "--stochastic"});
    EXPECT_NE(text.find("\nCapacity 1: one unit less costs 39,936 more.\n"), std::string::npos)
        << text;
}

TEST(StudyProgram, PrintsTheSensitivity) {
    const Lines words = {kWorked,    "--study", "sensitivity", "--shifts", "1",
                         "--demand", "100000",  "--format",    "csv"};
    const std::string usual = Out(words);
    EXPECT_TRUE(usual.starts_with("figure,value,low,cost_low,high,cost_high,changes,break_even\n"))
        << usual;
    // 30,000 of 64,335.55 are labour.
    EXPECT_NE(usual.find("\nLabour cost,15,13.5,61335.555,16.5,67335.555,0,\n"), std::string::npos)
        << usual;
    Lines wider = words;
    wider.insert(wider.end(), {"--share", "20"});
    EXPECT_NE(Out(wider).find("\nLabour cost,15,12,58335.555,18,70335.555,0,\n"),
              std::string::npos);
}

TEST(StudyProgram, PrintsTheSensitivityOfAStochasticDesign) {
    const std::string out =
        Out({kPump, "--study", "sensitivity", "--stochastic", "--format", "csv"});
    EXPECT_TRUE(
        out.starts_with("figure,value,low,cost_low,high,cost_high,changes,break_even,"
                        "capacity_low,capacity_high\n"))
        << out;
    EXPECT_NE(out.find("\nPenalty,18,16.2,256402.84,19.8,256402.84,0,8.42"), std::string::npos)
        << out;
}

TEST(StudyProgram, SaysWhyThereIsNoLine) {
    const Lines words = {kPump,      "--study", "why-not",         "--shifts", "1",
                         "--demand", "600000",  "--station-limit", "1"};
    EXPECT_EQ(Out(words),
              "Tasks 2, 3, 4, 5, 8, 9, 10, 11 and 12: only the station limit of 1 forbids it.\n"
              "There is a line with a station limit of 3 or more.\n"
              "There is a line with 3 shifts.\n"
              "There is a line for up to 247,237 units per year.\n");
    Lines csv = words;
    csv.insert(csv.end(), {"--format", "csv"});
    EXPECT_EQ(Out(csv),
              "has_line,impossible_tasks,overloaded_tasks,forbidden_tasks,smallest_limit,"
              "fewest_shifts,largest_volume\n"
              "0,,,2 3 4 5 8 9 10 11 12,3,3,247237\n");
    EXPECT_EQ(Out({kPump, "--study", "why-not", "--stochastic"}), "There is a line.\n");
}

TEST(StudyProgram, HasNoRowsWithoutALine) {
    const SolveRun run;
    const ProgramResult result = run({kPump, "--study", "alternatives", "--shifts", "1", "--demand",
                                      "600000", "--station-limit", "1", "--format", "csv"});
    EXPECT_EQ(result.Status, 2);
    EXPECT_EQ(result.Out, "rank,cost,difference,investment,labour,line\n");
    EXPECT_TRUE(result.Err.starts_with("There is no feasible solution.\nTasks 2, 3,"))
        << result.Err;
}

TEST(StudyProgram, NeedsVolumesThatCanBe) {
    const SolveRun run;
    auto script = WorkedExample();
    script.Demand.clear();
    const std::string model = run.Make("line.mdb", script);
    const auto error = [&](const Lines& words) {
        Lines all = {model, "--study", "volumes"};
        all.insert(all.end(), words.begin(), words.end());
        const ProgramResult result = run(all);
        EXPECT_EQ(result.Status, 1);
        EXPECT_EQ(result.Out, "");
        return result.Err;
    };
    EXPECT_NE(error({}).find("has no demand row with a volume. Say with --to"), std::string::npos);
    EXPECT_NE(error({"--to", "2.5"}).find("--to: 2.5 must be a whole number from 1 to "),
              std::string::npos);
    EXPECT_NE(error({"--from", "x", "--to", "5"}).find("--from"), std::string::npos);
    EXPECT_NE(error({"--from", "9", "--to", "5"}).find("Volumes from 9 to 5"), std::string::npos);
    EXPECT_NE(error({"--to", "5", "--station-limit", ""}).find("--station-limit is empty"),
              std::string::npos);
}

TEST(StudyProgram, NeedsAModelThatIsComplete) {
    const SolveRun run;
    const std::string empty = run.Make("empty.mdb", std::string());
    const ProgramResult result = run({empty, "--study", "volumes", "--to", "9"});
    EXPECT_EQ(result.Status, 2);
    EXPECT_EQ(result.Out, "");
    EXPECT_EQ(result.Err, "Please complete the task and resource information tables first.\n");
    auto script = WorkedExample();
    script.Demand = {{5, 100}};
    const std::string certain = run.Make("certain.mdb", script);
    EXPECT_EQ(run({certain, "--study", "sensitivity", "--stochastic"}).Err,
              "You must first enter a probability distribution for demand.\n");
}

TEST(JsonProgram, PrintsTheFixedDesign) {
    const std::string out =
        Out({kWorked, "--shifts", "1", "--demand", "100000", "--format", "json"});
    EXPECT_TRUE(out.starts_with(
        R"({"version":1,"design":"fixed","shifts":1,"volume":100000,"station_limit":null,)"
        R"("total_cost":64335.555,"investment":12600,"labour":30000,"cycle_time":61.11111,)"
        R"("available_cycle_time":72,"stations":[{"number":1,"resource":1,"name":"Press",)"
        R"("quantity":1,"first_task":1,"last_task":2,"tools":[1],"time":61.11111,)"
        R"("cost":64335.555,"capital":3780,"machine":30555.5)"))
        << out;
    const json design = OneLine(out);
    EXPECT_EQ(design["stations"].size(), 1U);
    EXPECT_EQ(design["stations"][0]["labour"], 30000);
}

TEST(JsonProgram, SaysTheStationLimitAndTheLineOfTheReport) {
    const json design = OneLine(Out({kPump, "--shifts", "1", "--demand", "90,000",
                                     "--station-limit", "2", "--format", "json"}));
    EXPECT_EQ(design["station_limit"], 2);
    EXPECT_EQ(design["volume"], 90000);
    const std::string report =
        Out({kPump, "--shifts", "1", "--demand", "90000", "--station-limit", "2"});
    double sum = 0;
    for (const json& station : design["stations"]) {
        sum += station["cost"].get<double>();
        EXPECT_NE(report.find(station["name"].get<std::string>()), std::string::npos);
    }
    EXPECT_NEAR(sum, design["total_cost"].get<double>(), 0.05);
    EXPECT_NE(report.find("Total Cost:         $238,113"), std::string::npos) << report;
    EXPECT_NEAR(sum, 238113, 0.5);
}

TEST(JsonProgram, PrintsTheStochasticDesign) {
    const json design = OneLine(Out({kWorked, "--stochastic", "--format", "json"}));
    EXPECT_EQ(design["design"], "stochastic");
    EXPECT_EQ(design["capacity"], 600000);
    EXPECT_EQ(design["expected_cost"], 90476.664);
    EXPECT_EQ(design["total_cost"], 90476.664);
    EXPECT_EQ(design["penalty"], 0);
    ASSERT_EQ(design["demand"].size(), 2U);
    EXPECT_EQ(design["demand"][1]["volume"], 200000);
    EXPECT_EQ(design["demand"][1]["probability"], 50);
    EXPECT_EQ(design["demand"][1]["shifts"], 1);
    EXPECT_EQ(design["demand"][1]["production"], 200000);
    EXPECT_EQ(design["stations"][0]["quantity"], 2);
    EXPECT_EQ(design["labour"], design["stations"][0]["labour"]);
    EXPECT_FALSE(design.contains("volume"));
    EXPECT_FALSE(design.contains("cycle_time"));
}

TEST(JsonProgram, SaysWhyThereIsNoDesign) {
    const SolveRun run;
    const ProgramResult result = run({kWorked, "--shifts", "1", "--demand", "5000000",
                                      "--station-limit", "1", "--format", "json"});
    EXPECT_EQ(result.Status, 2);
    EXPECT_EQ(result.Out, "{\"version\":1,\"error\":\"There is not a feasible solution!\"}\n");
    EXPECT_NE(result.Err.find("There is a line with a station limit of 28"), std::string::npos);
}

TEST(JsonProgram, SaysWhatFailed) {
    const SolveRun run;
    const ProgramResult result =
        run({PathText(run.File("none.mdb")), "--shifts", "1", "--format", "json"});
    EXPECT_EQ(result.Status, 1);
    const json error = OneLine(result.Out);
    EXPECT_NE(error["error"].get<std::string>().find("does not exist"), std::string::npos);
    EXPECT_TRUE(result.Err.starts_with("quarnel02-solve: "));
}

TEST(JsonProgram, LeavesTheReportAsItIs) {
    const SolveRun run;
    const auto result = run({kWorked, "--shifts", "1", "--demand", "100000", "--format", "json",
                             "--out", PathText(run.File("out"))});
    EXPECT_EQ(result.Status, 0);
    EXPECT_TRUE(ReadFile(run.File("out/RunRpt.txt")).starts_with("Solution\n"));
}

const Lines kScenarios = {"--study", "scenarios", "--shifts", "1", "--demand", "100000"};

TEST(StudyProgram, SolvesTheScenariosOfTheModel) {
    const SolveRun run;
    const std::string model = run.Make(
        "line.mdb", WorkedExample().Sql() +
                        "INSERT INTO Scenarios VALUES ('Wages', 'LaborCost +10%'),"
                        "('Night', 'Shifts = 2; Demand = 200000'), ('Gone', 'Oven.ICF = 2'),"
                        "('Much', 'StationLimit = 1; Demand = 900000');");
    Lines words = {model};
    words.insert(words.end(), kScenarios.begin(), kScenarios.end());
    words.insert(words.end(), {"--format", "csv"});
    const ProgramResult result = run(words);
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Err, "");
    const Lines expected = {
        "scenario,cost,difference,capital,machine,labour,penalty,investment,shifts,volume,"
        "station_limit,capacity,changes,line,problem",
        "Base,64335.555,0,3780,30555.5553436279,30000,0,12600,1,100000,,117818,0,Press 1-2,",
        "Wages,67335.555,3000,3780,30555.5553436279,33000,0,12600,1,100000,,117818,0,Press 1-2,",
        "Night,124891.11,60555.5546875,3780,61111.1106872559,60000,0,12600,2,200000,,235636,0,"
        "Press 1-2,",
        "Gone,,,,,,,,1,100000,,,,,\"\"\"Oven.ICF = 2\"\": the model has no resource "
        "\"\"Oven\"\".\"",
        "Much,,,,,,,,1,900000,1,,,,"};
    std::string all;
    for (const std::string& line : expected) {
        all += line + "\n";
    }
    EXPECT_EQ(result.Out, all);
}

TEST(StudyProgram, SolvesTheBaseOfAModelWithoutScenarios) {
    const SolveRun run;
    const std::string model = run.Make("old.mdb", WorkedExample().Sql() + "DROP TABLE Scenarios;");
    Lines words = {model};
    words.insert(words.end(), kScenarios.begin(), kScenarios.end());
    words.insert(words.end(), {"--format", "json"});
    const json study = OneLine(run(words).Out);
    ASSERT_EQ(study["rows"].size(), 1U);
    EXPECT_EQ(study["rows"][0]["scenario"], "Base");
    EXPECT_EQ(study["rows"][0]["station_limit"], nullptr);
}

TEST(StudyProgram, SolvesScenariosForADistribution) {
    const SolveRun run;
    const std::string model = run.Make(
        "line.mdb",
        WorkedExample().Sql() +
            "DELETE FROM Demand; INSERT INTO Demand VALUES (100000, 50), (200000, 50);"
            "INSERT INTO Scenarios VALUES ('More', 'Demand +100%'), ('Bad', 'Shifts = 2');");
    const ProgramResult result =
        run({model, "--study", "scenarios", "--stochastic", "--format", "json"});
    const json study = OneLine(result.Out);
    EXPECT_EQ(study["rows"][0]["cost"], 90476.664);
    EXPECT_EQ(study["rows"][0]["capacity"], 600000);
    EXPECT_GT(study["rows"][1]["difference"], 0);
    EXPECT_NE(study["rows"][2]["problem"].get<std::string>().find("is not asked for it"),
              std::string::npos);
}

}  // namespace
}  // namespace quarnel02
