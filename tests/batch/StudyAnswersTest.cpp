// What a study is asked for, and whether its answer is about that.

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "basic/NumberFormat.h"
#include "batch/Json.h"
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

std::string Out(const SolveRun& run, const Lines& words) {
    const ProgramResult result = run(words);
    EXPECT_EQ(result.Status, 0) << result.Err;
    return result.Out;
}

json JsonOf(const SolveRun& run, Lines words) {
    words.insert(words.end(), {"--format", "json"});
    return json::parse(run(words).Out);
}

std::string WorkedWith(const SolveRun& run, const std::vector<DemandPoint>& demand) {
    ModelScript script = WorkedExample();
    script.Demand = demand;
    return run.Make("line.mdb", script);
}

TEST(StudyAnswers, VolumesAreWholeNumbersFromOneToTheMost) {
    const SolveRun run;
    for (const char* option : {"--from", "--to"}) {
        for (const char* volume : {"0", "-1", "0.5", "2000000001", "1e300"}) {
            const ProgramResult result = run({kWorked, "--study", "volumes", option, volume});
            EXPECT_EQ(result.Status, 1) << volume;
            EXPECT_EQ(result.Out, "");
            EXPECT_EQ(result.Err, std::string("quarnel02-solve: ") + option + ": " + volume +
                                      " must be a whole number from 1 to 2,000,000,000.\n");
        }
    }
    EXPECT_EQ(JsonOf(run, {kWorked, "--study", "volumes", "--from", "1", "--to", "1"})["to"], 1);
    const Lines most = {kWorked,      "--study", "volumes",   "--from",
                        "2000000000", "--to",    "2000000000"};
    EXPECT_EQ(JsonOf(run, most)["to"], 2000000000);
}

TEST(StudyAnswers, VolumesReachTwiceTheLargestDemand) {
    const SolveRun run;
    const auto to = [&](const std::vector<DemandPoint>& demand, const char* from) {
        return JsonOf(run, {WorkedWith(run, demand), "--study", "volumes", "--from", from})["to"];
    };
    EXPECT_EQ(to({{200000, 50}, {100000, 50}}, "1"), 400000);
    EXPECT_EQ(to({{100000, 50}, {200000, 50}}, "1"), 400000);
    EXPECT_EQ(to({{100.25F, 100}}, "1"), 201);
    EXPECT_EQ(to({{1900000000, 100}}, "2000000000"), 2000000000);
}

TEST(StudyAnswers, AVolumeThatCannotBeIsRefusedByEveryStudy) {
    const SolveRun run;
    for (const char* study : {"alternatives", "sensitivity", "scenarios", "why-not"}) {
        for (const char* volume : {"0", "-5"}) {
            const ProgramResult result =
                run({kWorked, "--study", study, "--shifts", "1", "--demand", volume});
            EXPECT_EQ(result.Status, 1) << study << volume;
            EXPECT_EQ(result.Out, "");
            EXPECT_TRUE(result.Err.starts_with("quarnel02-solve: Fixed Demand")) << result.Err;
        }
    }
}

TEST(StudyAnswers, NoVolumesSayWhyThereIsNoLineForTheFirst) {
    const SolveRun run;
    const Lines words = {"--shifts", "1", "--station-limit", "1"};
    const auto why = [&](Lines more) {
        more.insert(more.end(), words.begin(), words.end());
        const ProgramResult result = run(more);
        return result.Err + (result.Status == 0 ? result.Out : "");
    };
    const std::string first = why({kWorked, "--study", "why-not", "--demand", "1000000"});
    EXPECT_NE(first, why({kWorked, "--study", "why-not", "--demand", "3000000"}));
    EXPECT_EQ(why({kWorked, "--study", "volumes", "--from", "1000000", "--to", "3000000"}),
              "There is no feasible solution.\n" + first);
}

TEST(StudyAnswers, AlternativesAreThoseOfTheShifts) {
    const SolveRun run;
    const Lines words = {kPump, "--study", "alternatives", "--shifts", "2", "--demand", "300000"};
    const json study = JsonOf(run, words);
    EXPECT_EQ(study["shifts"], 2);
    const std::string text = Out(run, words);
    ASSERT_FALSE(study["replacements"].empty());
    const auto best = study["rows"][0]["line"].get<std::string>();
    for (const json& next : study["replacements"]) {
        const auto line = next["line"].get<std::string>();
        const auto difference = next["difference"].get<double>();
        EXPECT_GT(difference, 0);
        EXPECT_NE(best.find(line.substr(line.rfind(' '))), std::string::npos) << line;
        EXPECT_NE(text.find("\nStation " + next["station"].dump() + ": the next best is " + line +
                            ", " + Format(difference, "#,##0") + " more.\n"),
                  std::string::npos)
            << text;
    }
}

TEST(StudyAnswers, CapacitiesReckonWithThePenaltyOfTheModel) {
    const SolveRun run;
    const std::string model = run.Make(
        "line.mdb",
        ReadFile(std::filesystem::path(QUARNEL02_SOURCES) / ".." / "examples" / "pump.sql") +
            "UPDATE Gen SET Penalty = 5;");
    const json best = JsonOf(run, {model, "--study", "alternatives", "--stochastic"})["rows"][0];
    const json design = JsonOf(run, {model, "--stochastic"});
    ASSERT_GT(design["penalty"], 0);
    EXPECT_EQ(best["penalty"], design["penalty"]);
    EXPECT_EQ(best["expected_cost"], design["expected_cost"]);
    EXPECT_EQ(best["capacity"], design["capacity"]);
}

TEST(StudyAnswers, WordsOfCapacitiesSayWhichOneTheyAreOf) {
    const std::string text = Out(SolveRun(), {kWorked, "--study", "alternatives", "--stochastic"});
    EXPECT_NE(text.find("\nCapacity 3: one unit less costs 15,000 more.\n"), std::string::npos)
        << text;
}

TEST(StudyAnswers, WithoutALineForTheLowestDemandTheySayWhy) {
    const SolveRun run;
    ModelScript script = WorkedExample();
    script.Demand = {{1000000000, 50}, {2000000000, 50}};
    for (MatrixRow& row : script.Matrix) {
        row.Entry.TaskTime = 30000;
    }
    const std::string model = run.Make("line.mdb", script);
    const auto result = [&](const char* study) {
        return run({model, "--study", study, "--stochastic", "--format", "csv"});
    };
    const std::string why = run({model, "--study", "why-not", "--stochastic"}).Out;
    EXPECT_NE(why.find("parallel stations are not enough for the lowest volume of the demand, "
                       "1,000,000,000 units per year.\n"),
              std::string::npos)
        << why;
    for (const char* study : {"alternatives", "sensitivity"}) {
        const ProgramResult none = result(study);
        EXPECT_EQ(none.Status, 2);
        EXPECT_EQ(none.Err, "There is no feasible solution.\n" + why);
        EXPECT_EQ(std::count(none.Out.begin(), none.Out.end(), '\n'), 1) << none.Out;
    }
}

TEST(StudyAnswers, AScenarioWithALineIsEnough) {
    const SolveRun run;
    const std::string model =
        run.Make("line.mdb", WorkedExample().Sql() +
                                 "INSERT INTO Scenarios VALUES ('Less', 'Demand = 100000');");
    const ProgramResult result = run({model, "--study", "scenarios", "--shifts", "1", "--demand",
                                      "5000000", "--station-limit", "1", "--format", "json"});
    EXPECT_EQ(result.Status, 0) << result.Err;
    EXPECT_EQ(result.Err, "");
    const json study = json::parse(result.Out);
    EXPECT_TRUE(study["rows"][0]["cost"].is_null());
    EXPECT_EQ(study["rows"][1]["line"], "Press 1-2");
}

TEST(StudyAnswers, SaysWhichStudyItIs) {
    const SolveRun run;
    for (const char* study : {"volumes", "alternatives", "sensitivity", "scenarios", "why-not"}) {
        Lines words = {kWorked, "--study", study};
        if (words.back() != "volumes") {
            words.insert(words.end(), {"--shifts", "1", "--demand", "100000"});
        }
        EXPECT_EQ(JsonOf(run, words)["study"], study);
    }
}

TEST(JsonAnswers, StationsStandInTheOrderOfTheLineWithTheNumbersOfTheirResources) {
    const json stations =
        JsonOf(SolveRun(), {kPump, "--shifts", "1", "--demand", "60000"})["stations"];
    ASSERT_EQ(stations.size(), 3U);  // Bench 1-4; Robot 5-9; Assist 10-12
    const std::vector<std::vector<int>> expected = {{1, 1, 1, 4}, {2, 6, 5, 9}, {3, 2, 10, 12}};
    for (std::size_t place = 0; place < expected.size(); ++place) {
        const json& station = stations[place];
        EXPECT_EQ((std::vector<int>{station["number"], station["resource"], station["first_task"],
                                    station["last_task"]}),
                  expected[place]);
    }
}

/// Beyond 2^53 whole numbers are not exact any more, and beyond 2^63 they are no whole numbers.
TEST(JsonAnswers, FiguresBeyondWholeNumbersStayWhatTheyAre) {
    const SolveRun run;
    ModelScript script = WorkedExample();
    script.Resources.front().FixedCost = 1e20;
    const json design =
        JsonOf(run, {run.Make("line.mdb", script), "--shifts", "1", "--demand", "9"});
    EXPECT_NEAR(design["investment"].get<double>() / 1e20, 1, 0.5) << design;
    EXPECT_GT(design["total_cost"], 0);
}

TEST(JsonAnswers, SayAllMessagesInOneLine) {
    EXPECT_EQ(JsonLine(NoResultJson(Json::object(), {"No line.", "Tasks are missing."})),
              "{\"error\":\"No line. Tasks are missing.\"}\n");
}

TEST(JsonAnswers, BytesThatAreNoTextAreReplaced) {
    EXPECT_EQ(JsonLine({{"name", "A\xFF"}}), "{\"name\":\"A\xEF\xBF\xBD\"}\n");
}

TEST(StudyAnswers, SensitivityWithoutALineSaysWhy) {
    const SolveRun run;
    const Lines words = {"--shifts", "1", "--demand", "600000", "--station-limit", "1"};
    const auto result = [&](const char* study) {
        Lines all = {kPump, "--study", study};
        all.insert(all.end(), words.begin(), words.end());
        return run(all);
    };
    EXPECT_EQ(result("sensitivity").Status, 2);
    EXPECT_EQ(result("sensitivity").Err,
              "There is no feasible solution.\n" + result("why-not").Out);
}

}  // namespace
}  // namespace quarnel02
