// What the formats of a study hold beside the rows of its table.

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "batch/ShippedModels.h"
#include "support/SolveRun.h"

namespace quarnel02 {
namespace {

using nlohmann::json;
using test::kPump;
using test::ProgramResult;
using test::SolveRun;
using test::WorkedExample;

using Lines = std::vector<std::string>;

Lines With(Lines words, const Lines& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

std::string Out(const Lines& words) {
    const ProgramResult result = SolveRun()(words);
    EXPECT_EQ(result.Status, 0) << result.Err;
    return result.Out;
}

json JsonOf(const Lines& words) {
    return json::parse(Out(With(words, {"--format", "json"})));
}

std::vector<std::string> KeysOf(const json& object) {
    std::vector<std::string> keys;
    for (const auto& [key, value] : object.items()) {
        keys.push_back(key);
    }
    std::sort(keys.begin(), keys.end());
    return keys;
}

/// Every row of the JSON says what the same row of the CSV text says, as far as that has no quotes.
void ExpectRowsOf(const json& study, const std::string& csv) {
    std::string again;
    const std::string head = csv.substr(0, csv.find('\n'));
    for (const json& row : study["rows"]) {
        std::string line;
        for (std::size_t from = 0; from <= head.size();) {
            const std::size_t to = std::min(head.find(',', from), head.size());
            const json& cell = row.at(head.substr(from, to - from));
            line += (from == 0 ? "" : ",") + (cell.is_null()     ? ""
                                              : cell.is_string() ? cell.get<std::string>()
                                                                 : cell.dump());
            from = to + 1;
        }
        again += line + "\n";
    }
    EXPECT_EQ(head + "\n" + again, csv);
}

const Lines kVolumes = {kPump,  "--study", "volumes",         "--from", "20000",
                        "--to", "60000",   "--station-limit", "2"};
const Lines kAlternatives = {kPump,      "--study", "alternatives",    "--shifts", "1",
                             "--demand", "60000",   "--station-limit", "3"};
const Lines kSensitivity = {kPump, "--study", "sensitivity", "--shifts", "1", "--demand", "60000"};

TEST(StudyFormats, VolumesSayTheirSpanAndWhatClassesDoAlone) {
    const json study = JsonOf(kVolumes);
    EXPECT_EQ(KeysOf(study), (Lines{"design", "from", "rows", "single_class", "station_limit",
                                    "study", "to", "version"}));
    EXPECT_EQ(study["version"], 1);
    EXPECT_EQ(study["study"], "volumes");
    EXPECT_EQ(study["design"], "fixed");
    EXPECT_EQ(study["from"], 20000);
    EXPECT_EQ(study["to"], 60000);
    EXPECT_EQ(study["station_limit"], 2);
    ExpectRowsOf(study, Out(With(kVolumes, {"--format", "csv"})));
    ASSERT_EQ(study["single_class"].size(), 1U);  // benches alone can do every task
    EXPECT_EQ(study["single_class"][0]["type"], 0);
    const json& manual = study["single_class"][0]["rows"];
    ASSERT_FALSE(manual.empty());
    for (const json& row : manual) {
        const auto line = row["line"].get<std::string>();
        EXPECT_EQ(line.find("Robot"), std::string::npos) << line;
    }
    EXPECT_TRUE(JsonOf({kPump, "--study", "volumes", "--to", "9"})["station_limit"].is_null());
}

TEST(StudyFormats, VolumesOfOneNumberOfShiftsHaveNoOthers) {
    const json study = JsonOf(With(kVolumes, {"--shifts", "2"}));
    const auto of_two = [](const json& rows) {
        return !rows.empty() && std::all_of(rows.begin(), rows.end(),
                                            [](const json& row) { return row["shifts"] == 2; });
    };
    EXPECT_TRUE(of_two(study["rows"]));
    EXPECT_TRUE(of_two(study["single_class"][0]["rows"]));
}

TEST(StudyFormats, NoVolumesSayWhyThereIsNoLineInTheShiftsThatWereAskedFor) {
    const auto why = [](const Lines& more) {
        const ProgramResult result =
            SolveRun()(With({kPump, "--study", "volumes", "--from", "2000000", "--to", "2000100",
                             "--station-limit", "1"},
                            more));
        EXPECT_EQ(result.Status, 2);
        return result.Err;
    };
    EXPECT_NE(why({}).find("There is no feasible solution.\n"), std::string::npos);
    EXPECT_EQ(why({}).find("There is a line with 3 shifts"), std::string::npos) << why({});
    EXPECT_NE(why({"--shifts", "1"}), why({}));
}

TEST(StudyFormats, AlternativesSayWhatWasAskedAndWhatIsNextBest) {
    const json study = JsonOf(kAlternatives);
    EXPECT_EQ(KeysOf(study), (Lines{"design", "replacements", "rows", "shifts", "station_limit",
                                    "study", "version", "volume"}));
    EXPECT_EQ(study["shifts"], 1);
    EXPECT_EQ(study["volume"], 60000);
    EXPECT_EQ(study["station_limit"], 3);
    ExpectRowsOf(study, Out(With(kAlternatives, {"--format", "csv"})));
    ASSERT_FALSE(study["replacements"].empty());
    const std::string text = Out(kAlternatives);
    for (const json& next : study["replacements"]) {
        const std::string sentence = "\nStation " + next["station"].dump() + ": the next best is " +
                                     next["line"].get<std::string>() + ", ";
        EXPECT_NE(text.find(sentence), std::string::npos) << sentence << text;
    }
    EXPECT_NE(text.find("\n   1  "), std::string::npos) << text;
}

TEST(StudyFormats, CapacitiesHaveTheirDetails) {
    const Lines words = {kPump, "--study", "alternatives", "--stochastic"};
    const json study = JsonOf(words);
    EXPECT_EQ(KeysOf(study), (Lines{"capacities", "design", "rows", "study", "version"}));
    EXPECT_EQ(study["design"], "stochastic");
    ExpectRowsOf(study, Out(With(words, {"--format", "csv"})));
    ASSERT_EQ(study["capacities"].size(), study["rows"].size());
    for (std::size_t place = 0; place < study["rows"].size(); ++place) {
        const json& row = study["rows"][place];
        const json& details = study["capacities"][place];
        EXPECT_EQ(details["capacity"], row["capacity"]);
        const auto cost = row["expected_cost"].get<double>();
        EXPECT_NEAR(details["difference"].get<double>(),
                    cost - study["rows"][0]["expected_cost"].get<double>(), 0.02);
        EXPECT_NEAR(details["capital"].get<double>() + details["machine"].get<double>() +
                        details["labour"].get<double>() + row["penalty"].get<double>(),
                    cost, 0.1);
        double expected = 0;
        const json rows = json::parse(Out({kPump, "--stochastic", "--format", "json"}))["demand"];
        ASSERT_EQ(details["demand"].size(), rows.size());
        for (std::size_t point = 0; point < rows.size(); ++point) {
            EXPECT_EQ(details["demand"][point]["volume"], rows[point]["volume"]);
            expected += details["demand"][point]["cost"].get<double>() *
                        rows[point]["probability"].get<double>() / 100;
        }
        EXPECT_NEAR(expected, cost, 0.1);
    }
}

TEST(StudyFormats, SensitivitySaysWhatWasAsked) {
    const json study = JsonOf(kSensitivity);
    EXPECT_EQ(KeysOf(study),
              (Lines{"design", "rows", "shifts", "station_limit", "study", "version", "volume"}));
    EXPECT_EQ(study["shifts"], 1);
    EXPECT_EQ(study["volume"], 60000);
    ExpectRowsOf(study, Out(With(kSensitivity, {"--format", "csv"})));
    const std::string text = Out(kSensitivity);
    EXPECT_TRUE(text.starts_with("figure ")) << text;
    EXPECT_NE(text.find("\nLabour cost "), std::string::npos);
    const json of_distribution =
        JsonOf({kPump, "--study", "sensitivity", "--stochastic", "--share", "5"});
    EXPECT_EQ(KeysOf(of_distribution), (Lines{"design", "rows", "study", "version"}));
    EXPECT_EQ(of_distribution["rows"][0]["low"],
              of_distribution["rows"][0]["value"].get<double>() * 0.95);
}

TEST(StudyFormats, SharesThatCannotBeAreNamed) {
    for (const char* share : {"0", "100", "-5", "ten", "1e9"}) {
        const ProgramResult result = SolveRun()(With(kSensitivity, {"--share", share}));
        EXPECT_EQ(result.Status, 1) << share;
        EXPECT_EQ(result.Out, "");
        EXPECT_TRUE(result.Err.starts_with("quarnel02-solve: ")) << result.Err;
        EXPECT_EQ(std::count(result.Err.begin(), result.Err.end(), '\n'), 1) << result.Err;
    }
}

TEST(StudyFormats, WhyNotIsATableAndSentences) {
    const Lines words = {kPump,      "--study", "why-not",         "--shifts", "1",
                         "--demand", "600000",  "--station-limit", "1"};
    const json study = JsonOf(words);
    EXPECT_EQ(KeysOf(study), (Lines{"design", "rows", "study", "version"}));
    EXPECT_EQ(study["study"], "why-not");
    ASSERT_EQ(study["rows"].size(), 1U);
    EXPECT_EQ(study["rows"][0]["has_line"], 0);
    EXPECT_EQ(study["rows"][0]["forbidden_tasks"], json({2, 3, 4, 5, 8, 9, 10, 11, 12}));
    EXPECT_EQ(study["rows"][0]["smallest_limit"], 3);
}

TEST(StudyFormats, ScenariosWithoutAnyLineEndWithTwo) {
    const SolveRun run;
    const std::string model =
        run.Make("line.mdb", WorkedExample().Sql() +
                                 "INSERT INTO Scenarios VALUES ('Wages', 'LaborCost +10%');");
    const Lines words = {model, "--study", "scenarios", "--shifts", "1", "--station-limit", "1"};
    const ProgramResult none = run(With(words, {"--demand", "5000000"}));
    EXPECT_EQ(none.Status, 2);
    EXPECT_EQ(none.Err, "There is no feasible solution.\n");
    EXPECT_NE(none.Out.find("Wages"), std::string::npos);
    const ProgramResult some = run(With(words, {"--demand", "100000"}));
    EXPECT_EQ(some.Status, 0);
    EXPECT_TRUE(some.Out.starts_with("scenario ")) << some.Out;
}

TEST(StudyFormats, AModelThatIsNotCompleteIsAnErrorOfTheJson) {
    const SolveRun run;
    const std::string empty = run.Make("empty.mdb", std::string());
    const ProgramResult result = run(
        {empty, "--study", "sensitivity", "--shifts", "1", "--demand", "9", "--format", "json"});
    EXPECT_EQ(result.Status, 2);
    EXPECT_EQ(result.Out,
              "{\"version\":1,\"error\":\"Please complete the task and resource information tables "
              "first.\"}\n");
}

/// Two models and one that does not exist, at once and one by one.
TEST(StudyFormats, OfSeveralModelsSayWhichOneEachIsOf) {
    const SolveRun run;
    const std::string first = run.Make("a.mdb", WorkedExample());
    const std::string second = run.Make("b.mdb", WorkedExample());
    const std::string none = PathText(run.File("none.mdb"));
    for (const char* jobs : {"1", "3"}) {
        const Lines words = {second,         none,       first, "--study",
                             "alternatives", "--shifts", "2",   "--demand",
                             "60000",        "--jobs",   jobs};
        const ProgramResult csv = run(With(words, {"--format", "csv"}));
        EXPECT_EQ(csv.Status, 1);
        EXPECT_EQ(csv.Out, "model,rank,cost,difference,investment,labour,line\n" + second +
                               ",1,82113.336,0,12600,60000,Press 1-2\n" + second +
                               ",2,147560,65446.6640625,25200,120000,Press 1; Press 2\n" + first +
                               ",1,82113.336,0,12600,60000,Press 1-2\n" + first +
                               ",2,147560,65446.6640625,25200,120000,Press 1; Press 2\n");
        const ProgramResult lines = run(With(words, {"--format", "json"}));
        std::vector<std::string> models;
        for (std::size_t from = 0; from < lines.Out.size();) {
            const std::size_t to = lines.Out.find('\n', from);
            const json study = json::parse(lines.Out.substr(from, to - from));
            models.push_back(study["model"].get<std::string>());
            EXPECT_EQ(study.contains("rows"), models.back() != none);
            from = to + 1;
        }
        EXPECT_EQ(models, (Lines{second, none, first}));
        const ProgramResult text = run(words);
        EXPECT_TRUE(text.Out.starts_with("==> " + second + " <==\nrank ")) << text.Out;
        EXPECT_NE(text.Out.find("==> " + first + " <==\nrank "), std::string::npos) << text.Out;
    }
}

}  // namespace
}  // namespace quarnel02
