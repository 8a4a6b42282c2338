#include "commands/cmdContinuous.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "support/LoadedModel.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::LoadedModel;
using test::ModelScript;

using Lines = std::vector<std::string>;

constexpr const char* kDemand = "What is the fixed demand for this product? -> ";
constexpr const char* kNo = "ask[none]: Do you want to limit parallel stations? -> no";
constexpr const char* kYes = "ask[none]: Do you want to limit parallel stations? -> yes";
constexpr const char* kLimit =
    "input[Quarnel02|]: What is the maximum number of stations allowed? -> ";

/// The worked example with these demand rows.
ModelScript WithDemand(const std::vector<DemandPoint>& demand) {
    ModelScript model = test::WorkedExample();
    model.Demand = demand;
    return model;
}

struct Command : LoadedModel {
    using LoadedModel::LoadedModel;
    void Press(std::int16_t index) { cmdContinuous_Click(Form, index); }
    [[nodiscard]] std::string Opened() const {
        return "start: notepad.exe " + PathText(Copy.File("RunRpt.txt"));
    }
};

/// What a solve has taken the answers for, as the report has it.
struct Taken {
    std::string Shifts;
    std::string Limit;
    std::string Volume;
    std::string AvailableTime;  ///< seconds
};

void ExpectTaken(const Command& command, const Taken& taken) {
    const std::string report = command.Report();
    for (const std::string& line :
         {"# of Shifts: " + taken.Shifts, "Station Limit: " + taken.Limit,
          "Annual Volume: " + taken.Volume, "Max Cycle Time:  " + taken.AvailableTime}) {
        EXPECT_NE(report.find("\n" + line + "\n"), std::string::npos) << line << "\n" << report;
    }
}

TEST(cmdContinuous, AsksForTheDemandWithoutProposalWhenTheListIsEmpty) {
    Command command(WithDemand({}));
    command.Form.SetText(TextBox::txtVolume, "4711");
    command.Form.InputAnswers = {"100000"};
    command.Form.YesNoAnswers = {false};
    command.Press(1);
    EXPECT_EQ(
        command.Form.Events,
        (Lines{std::string("input[Fixed Demand|]: ") + kDemand + "100000", kNo, command.Opened()}));
    ExpectTaken(command, {"1", "--", "100,000", "72.00"});
}

TEST(cmdContinuous, TakesTheOnlyDemandRowWithoutAsking) {
    Command command(WithDemand({{5000, 100}}));
    command.Form.YesNoAnswers = {false};
    command.Press(2);
    EXPECT_EQ(command.Form.Events, (Lines{"select: 0", "do events", kNo, command.Opened()}));
    // 250 x 2 x 8 x 3600 / 5000
    ExpectTaken(command, {"2", "--", "5,000", "2880.00"});
}

TEST(cmdContinuous, TakesTheTextThatTheOnlyRowShows) {
    Command command(WithDemand({{5000.6F, 100}}));
    command.Form.YesNoAnswers = {false};
    command.Press(1);
    EXPECT_NE(command.Report().find("\nAnnual Volume: 5,001\n"), std::string::npos);
    // 250 x 8 x 3600 / 5001, not / 5000.6
    EXPECT_NE(command.Report().find("\nMax Cycle Time:  1439.71\n"), std::string::npos);
}

TEST(cmdContinuous, SaysThatTheOnlyRowHasNoVolume) {
    // A volume below a half is shown as an empty text.
    for (const float volume : {0.0F, 0.25F}) {
        Command command(WithDemand({{volume, 100}}));
        command.Press(1);
        EXPECT_EQ(command.Form.Events,
                  (Lines{"select: 0", "do events",
                         "message[information]: The volume of the only demand row is 0. Enter a "
                         "volume above 0 and press Update, or press Delete to be asked for the "
                         "demand."}));
        EXPECT_FALSE(command.HasReport());
    }
}

TEST(cmdContinuous, ProposesTheLastRowWhenNoneIsSelected) {
    Command command(WithDemand({{100000, 50}, {200000, 50}}));
    command.Form.InputAnswers = {"150000"};
    command.Form.YesNoAnswers = {false};
    command.Press(3);
    EXPECT_EQ(command.Form.Events,
              (Lines{"select: 1", std::string("input[Fixed Demand|200,000]: ") + kDemand + "150000",
                     kNo, command.Opened()}));
    EXPECT_EQ(command.Form.SelectedDemand(), 1);
    // 250 x 3 x 8 x 3600 / 150000
    ExpectTaken(command, {"3", "--", "150,000", "144.00"});
}

TEST(cmdContinuous, ProposesWhatTheBoxShowsWhenARowIsSelected) {
    Command command(WithDemand({{100000, 50}, {200000, 50}}));
    command.Form.SelectDemand(0);
    command.Form.Events.clear();
    command.Form.InputAnswers = {"100,000"};
    command.Form.YesNoAnswers = {false};
    command.Press(1);
    EXPECT_EQ(command.Form.Events,
              (Lines{std::string("input[Fixed Demand|100,000]: ") + kDemand + "100,000", kNo,
                     command.Opened()}));
    EXPECT_EQ(command.Form.SelectedDemand(), 0);
}

TEST(cmdContinuous, ProposesWhatTheUserTypedOverASelectedRow) {
    Command command(WithDemand({{100000, 50}, {200000, 50}}));
    command.Form.SelectDemand(0);
    command.Form.SetText(TextBox::txtVolume, "123");
    command.Form.Events.clear();
    command.Form.InputAnswers = {""};
    command.Press(1);
    EXPECT_EQ(command.Form.Events, Lines{std::string("input[Fixed Demand|123]: ") + kDemand});
}

TEST(cmdContinuous, ChangesOnlyPicturesWhenTheDemandIsCancelled) {
    Command command(WithDemand({}));
    const auto tables = command.DerivedTables();
    for (Picture& picture : command.Form.picGraph) {
        picture.Print("old");
    }
    command.Form.InputAnswers = {""};
    command.Press(2);
    EXPECT_EQ(command.Form.Events, Lines{std::string("input[Fixed Demand|]: ") + kDemand});
    for (const Picture& picture : command.Form.picGraph) {
        EXPECT_TRUE(picture.Figures().empty());
    }
    EXPECT_EQ(command.DerivedTables(), tables);
}

TEST(cmdContinuous, ChangesNothingWhenTheLimitIsCancelled) {
    Command command(WithDemand({}));
    const auto tables = command.DerivedTables();
    command.Form.InputAnswers = {"50000", ""};
    command.Form.YesNoAnswers = {true};
    command.Press(3);
    EXPECT_EQ(command.Form.Events,
              (Lines{std::string("input[Fixed Demand|]: ") + kDemand + "50000", kYes, kLimit}));
    EXPECT_EQ(command.DerivedTables(), tables);
    EXPECT_FALSE(command.HasReport());
}

/// Solves the worked example for 100,000 units in one shift with this answer to the limit.
Command& Limited(Command& command, const std::string& answer) {
    command.Form.InputAnswers = {"100000", answer};
    command.Form.YesNoAnswers = {true};
    command.Press(1);
    return command;
}

TEST(cmdContinuous, LimitsTheStations) {
    Command command(WithDemand({}));
    ExpectTaken(Limited(command, "3"), {"1", "3", "100,000", "72.00"});
    EXPECT_EQ(command.Form.Events,
              (Lines{std::string("input[Fixed Demand|]: ") + kDemand + "100000", kYes,
                     std::string(kLimit) + "3", command.Opened()}));
    EXPECT_NE(command.Report().find("\nStation Limit: 3\n"), std::string::npos);
}

TEST(cmdContinuous, KeepsTheTextOfAFractionalLimitAndRoundsItsValueHalfToEven) {
    Command command(WithDemand({}));
    ExpectTaken(Limited(command, "2.5"), {"1", "2.5", "100,000", "72.00"});
    // 61.11 s of work for both tasks in 24 s each: three stations, which is over 2, not over 3.
    command.Solve(1, "300000", "2.5");
    EXPECT_EQ(command.States().at(1), "2");
    command.Solve(1, "300000", "3");
    EXPECT_NE(command.States().at(1), "2");
}

TEST(cmdContinuous, TakesALimitBelowOneForNone) {
    for (const char* answer : {"0", "0.5", "-3"}) {
        Command command(WithDemand({}));
        ExpectTaken(Limited(command, answer), {"1", "--", "100,000", "72.00"});
    }
}

TEST(cmdContinuous, TakesALimitOfExactlyOne) {
    Command command(WithDemand({}));
    ExpectTaken(Limited(command, "1"), {"1", "1", "100,000", "72.00"});
}

TEST(cmdContinuous, FailsOnALimitThatIsNoIntegerBeforeAnythingIsSolved) {
    for (const auto& [answer, kind] :
         {std::pair("abc", ErrorKind::TypeMismatch), std::pair("40000", ErrorKind::Overflow)}) {
        Command command(WithDemand({}));
        const auto tables = command.DerivedTables();
        const auto message = ExpectRunTimeError(kind, [&] { Limited(command, answer); });
        EXPECT_NE(message.find("Station Limit"), std::string::npos) << message;
        EXPECT_EQ(command.DerivedTables(), tables);
    }
}

TEST(cmdContinuous, FailsOnADemandThatIsNoPositiveNumberAndLeavesTheTables) {
    for (const auto& [demand, kind] :
         {std::pair("abc", ErrorKind::TypeMismatch), std::pair("12,5", ErrorKind::TypeMismatch),
          std::pair("0", ErrorKind::DivisionByZero), std::pair("-5", ErrorKind::Overflow)}) {
        Command command(WithDemand({}));
        const auto tables = command.DerivedTables();
        const auto message = ExpectRunTimeError(kind, [&] { command.Solve(1, demand); });
        EXPECT_NE(message.find("Fixed Demand"), std::string::npos) << message;
        EXPECT_EQ(command.DerivedTables(), tables);
        EXPECT_FALSE(command.HasReport());
    }
}

TEST(cmdContinuous, AcceptsASeparatedDemand) {
    Command command(WithDemand({}));
    command.Solve(1, "12,500");
    // 250 x 8 x 3600 / 12500
    ExpectTaken(command, {"1", "--", "12,500", "576.00"});
}

TEST(cmdContinuous, NeverMarksAPathwayOverTheLimitWithoutOne) {
    Command command(WithDemand({}));
    command.Solve(1, "5000000");
    EXPECT_EQ(command.States(), (Lines{"1", "4", "1"}));
    EXPECT_NE(command.Report().find("\nStation Limit: --\n"), std::string::npos);
}

TEST(cmdContinuous, SaysSoWhenNoLineKeepsTheLimit) {
    Command command(WithDemand({}));
    command.Solve(1, "5000000", "2");
    EXPECT_EQ(command.Form.Events.back(), "message[critical]: There is not a feasible solution!");
    EXPECT_EQ(command.States(), (Lines{"2", "2", "2"}));
    EXPECT_FALSE(command.HasReport());
}

TEST(cmdContinuous, SaysSoWhenTheModelIsNotComplete) {
    ModelScript script = WithDemand({});
    script.Matrix.clear();
    Command command(script);
    command.Solve(1, "5000");
    EXPECT_EQ(command.Form.Events.back(),
              "message[information]: Please complete the task and resource tables first.");
}

TEST(cmdContinuous, SaysSoWhenThereAreNoTasksOrResources) {
    ModelScript no_resource = WithDemand({});
    no_resource.Resources.clear();
    no_resource.Matrix.clear();
    for (const ModelScript& script : {no_resource, ModelScript()}) {
        Command command(script);
        command.Solve(1, "5000");
        EXPECT_EQ(command.Form.Events.back(),
                  "message[information]: Please complete the task and resource information tables "
                  "first.");
    }
}

TEST(cmdContinuous, NamesARecordThatCannotBeBeforeAnythingIsSolved) {
    ModelScript script = WithDemand({});
    script.Resources[0].UpTime = 0;
    Command command(script);
    const auto tables = command.DerivedTables();
    const auto network = command.Form.picArc.Figures();
    const auto message =
        ExpectRunTimeError(ErrorKind::NotAModel, [&] { command.Solve(1, "5000"); });
    EXPECT_EQ(message, "Resource 1 (Press): uptime is 0 %; it must be above 0 and at most 100.");
    EXPECT_EQ(command.DerivedTables(), tables);
    EXPECT_EQ(command.Form.picArc.Figures(), network);
    EXPECT_FALSE(command.HasReport());
}

TEST(cmdContinuous, TakesAStationThatIsExactlyFullForFull) {
    // 250 x 8 x 3600 / 120000 = 60 s. One station: 40,000 $ of labour, 120,000 x 60 s at 3 $/h are
    // 6,000 $, and a quarter of 2,500 $; two would cost 80,000 + 6,000 + 1,250 = 87,250 $.
    ModelScript script;
    script.Tasks = 4;
    script.Resources = {{"Bench", 0, 2500, 3}};
    script.Matrix = {{1, 1, 11.8, 1}, {1, 2, 34.1, 1}, {1, 3, 8.2, 1}, {1, 4, 5.9, 1}};
    Command command(script);
    command.Solve(1, "120000");
    EXPECT_NE(command.Report().find("\n 1    1  Bench   1     $46,625    60.00    1-4       1\n"),
              std::string::npos)
        << command.Report();
    EXPECT_NE(command.Report().find("\nTotal Cost:         $46,625\n"), std::string::npos);
}

TEST(cmdContinuous, SaysWhichTasksTheLineLeavesOutWithinTheLimit) {
    // Task 3 takes 100 s of the 72 s that there are, and one station is the limit.
    ModelScript script = WithDemand({});
    script.Tasks = 3;
    script.Matrix.push_back({1, 3, 100, 1});
    Command command(script);
    Limited(command, "1");
    ASSERT_GE(command.Form.Events.size(), 2U);
    EXPECT_EQ(command.Form.Events[command.Form.Events.size() - 2], command.Opened());
    EXPECT_EQ(command.Form.Events.back(),
              "message[critical]: This line ends after task 2: no resource can do tasks 3 to 3 "
              "within the limits.");
}

TEST(cmdContinuous, LeavesNoOlderReportWhenASolveFails) {
    for (const char* demand : {"abc", "0", "1e30"}) {
        Command command(WithDemand({}));
        command.Solve(1, "100000");
        ASSERT_TRUE(command.HasReport());
        try {
            command.Solve(1, demand);
        } catch (const RunTimeError&) {
            ASSERT_STRNE(demand, "1e30");
        }
        EXPECT_FALSE(command.HasReport()) << demand;
        EXPECT_FALSE(command.Form.LastDesign);
    }
    Command limited(WithDemand({}));
    limited.Solve(1, "100000");
    ExpectRunTimeError(ErrorKind::TypeMismatch, [&] { Limited(limited, "abc"); });
    EXPECT_FALSE(limited.HasReport());
}

TEST(cmdContinuous, KeepsTheReportWhenTheCommandIsCancelled) {
    Command command(WithDemand({}));
    command.Solve(1, "100000");
    EXPECT_EQ(command.Form.LastDesign->Caption, "1 shift, 100,000 units a year");
    command.Form.InputAnswers = {""};
    command.Press(1);
    EXPECT_TRUE(command.HasReport());
    EXPECT_FALSE(command.Form.LastDesign);
    command.Form.InputAnswers = {"5000", ""};
    command.Form.YesNoAnswers = {true};
    command.Press(1);
    EXPECT_TRUE(command.HasReport());
}

TEST(cmdContinuous, RegeneratesThePathwaysFirst) {
    Command command(WithDemand({}));
    RecordSet pathways = command.Form.OpenWorkingCopy().OpenRecordSet(test::kAllPathways);
    while (!pathways.Eof()) {
        pathways.Delete();
        pathways.MoveNext();
    }
    command.Solve(1, "100000");
    EXPECT_EQ(command.States().size(), 3U);
    EXPECT_TRUE(command.HasReport());
}

TEST(cmdContinuous, SolvesAgainWithOtherAnswers) {
    Command command(WithDemand({}));
    command.Solve(1, "200000", "2");
    const std::string first = command.Report();
    command.Solve(3, "100000");
    ExpectTaken(command, {"3", "--", "100,000", "216.00"});
    command.Solve(1, "200000", "2");
    EXPECT_EQ(command.Report(), first);
}

}  // namespace
}  // namespace quarnel02
