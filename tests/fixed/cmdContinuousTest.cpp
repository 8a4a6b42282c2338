#include "fixed/cmdContinuous.h"

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
ModelScript WithDemand(const std::vector<std::pair<double, double>>& demand) {
    ModelScript model = test::WorkedExample();
    model.Demand = demand;
    return model;
}

/// State that no command sets, to see what one leaves alone.
FixedDemandState Untouched() {
    return {9, "old demand", 77, "old limit", 1.25};
}

struct Command : LoadedModel {
    explicit Command(const ModelScript& script) : LoadedModel(script) {
        Form.FixedDemandSolve = Untouched();
    }
    void Press(std::int16_t index) { cmdContinuous_Click(Form, index); }
    [[nodiscard]] std::string Opened() const {
        return "start: notepad.exe " + PathText(Copy.File("RunRpt.txt"));
    }
};

void ExpectState(const Command& command, const FixedDemandState& expected) {
    const FixedDemandState& state = command.Form.FixedDemandSolve;
    EXPECT_EQ(state.ShiftCount, expected.ShiftCount);
    EXPECT_EQ(state.FixedDemand, expected.FixedDemand);
    EXPECT_EQ(state.StationLimit, expected.StationLimit);
    EXPECT_EQ(state.StationLimitText, expected.StationLimitText);
    EXPECT_EQ(state.AvailableCycleTime, expected.AvailableCycleTime);
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
    ExpectState(command, {1, "100000", -1, "--", 72});
}

TEST(cmdContinuous, TakesTheOnlyDemandRowWithoutAsking) {
    Command command(WithDemand({{5000, 100}}));
    command.Form.YesNoAnswers = {false};
    command.Press(2);
    EXPECT_EQ(command.Form.Events, (Lines{"select: 0", "do events", kNo, command.Opened()}));
    // 250 x 2 x 8 x 3600 / 5000
    ExpectState(command, {2, "5,000", -1, "--", 2880});
}

TEST(cmdContinuous, TakesTheTextThatTheOnlyRowShows) {
    Command command(WithDemand({{5000.6, 100}}));
    command.Form.YesNoAnswers = {false};
    command.Press(1);
    EXPECT_EQ(command.Form.FixedDemandSolve.FixedDemand, "5,001");
}

TEST(cmdContinuous, EndsWhenTheOnlyRowShowsNoVolume) {
    // A volume of 0 is shown as an empty text.
    Command command(WithDemand({{0, 100}}));
    command.Press(1);
    EXPECT_EQ(command.Form.Events, (Lines{"select: 0", "do events"}));
    FixedDemandState expected = Untouched();
    expected.ShiftCount = 1;
    ExpectState(command, expected);
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
    ExpectState(command, {3, "150000", -1, "--", 144});
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

TEST(cmdContinuous, ChangesOnlyShiftsAndPicturesWhenTheDemandIsCancelled) {
    Command command(WithDemand({}));
    const auto tables = command.DerivedTables();
    for (Picture& picture : command.Form.picGraph) {
        picture.Print("old");
    }
    command.Form.InputAnswers = {""};
    command.Press(2);
    EXPECT_EQ(command.Form.Events, Lines{std::string("input[Fixed Demand|]: ") + kDemand});
    FixedDemandState expected = Untouched();
    expected.ShiftCount = 2;
    ExpectState(command, expected);
    for (const Picture& picture : command.Form.picGraph) {
        EXPECT_TRUE(picture.Figures().empty());
    }
    EXPECT_EQ(command.DerivedTables(), tables);
}

TEST(cmdContinuous, KeepsTheDemandWhenTheLimitIsCancelled) {
    Command command(WithDemand({}));
    const auto tables = command.DerivedTables();
    command.Form.InputAnswers = {"50000", ""};
    command.Form.YesNoAnswers = {true};
    command.Press(3);
    EXPECT_EQ(command.Form.Events,
              (Lines{std::string("input[Fixed Demand|]: ") + kDemand + "50000", kYes, kLimit}));
    FixedDemandState expected = Untouched();
    expected.ShiftCount = 3;
    expected.FixedDemand = "50000";
    ExpectState(command, expected);
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
    ExpectState(Limited(command, "3"), {1, "100000", 3, "3", 72});
    EXPECT_EQ(command.Form.Events,
              (Lines{std::string("input[Fixed Demand|]: ") + kDemand + "100000", kYes,
                     std::string(kLimit) + "3", command.Opened()}));
    EXPECT_NE(command.Report().find("\nStation Limit: 3\n"), std::string::npos);
}

TEST(cmdContinuous, KeepsTheTextOfAFractionalLimitAndRoundsItsValueHalfToEven) {
    Command command(WithDemand({}));
    ExpectState(Limited(command, "2.5"), {1, "100000", 2, "2.5", 72});
}

TEST(cmdContinuous, TakesALimitBelowOneForNoneAndKeepsTheOldText) {
    for (const char* answer : {"0", "0.5", "-3"}) {
        Command command(WithDemand({}));
        ExpectState(Limited(command, answer), {1, "100000", -1, "old limit", 72});
        EXPECT_TRUE(command.HasReport());
    }
}

TEST(cmdContinuous, TakesALimitOfExactlyOne) {
    Command command(WithDemand({}));
    ExpectState(Limited(command, "1"), {1, "100000", 1, "1", 72});
}

TEST(cmdContinuous, FailsOnALimitThatIsNoIntegerBeforeAnythingIsSolved) {
    for (const auto& [answer, kind] :
         {std::pair("abc", ErrorKind::TypeMismatch), std::pair("40000", ErrorKind::Overflow)}) {
        Command command(WithDemand({}));
        const auto tables = command.DerivedTables();
        const auto message = ExpectRunTimeError(kind, [&] { Limited(command, answer); });
        EXPECT_NE(message.find("Station Limit"), std::string::npos) << message;
        FixedDemandState expected = Untouched();
        expected.ShiftCount = 1;
        expected.FixedDemand = "100000";
        ExpectState(command, expected);
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
        ExpectState(command, {1, demand, -1, "--", 1.25});
        EXPECT_EQ(command.DerivedTables(), tables);
        EXPECT_FALSE(command.HasReport());
    }
}

TEST(cmdContinuous, AcceptsASeparatedDemand) {
    Command command(WithDemand({}));
    command.Solve(1, "12,500");
    // 250 x 8 x 3600 / 12500
    ExpectState(command, {1, "12,500", -1, "--", 576});
    EXPECT_NE(command.Report().find("\nAnnual Volume: 12,500\n"), std::string::npos);
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

TEST(cmdContinuous, RegeneratesThePathwaysFirst) {
    Command command(WithDemand({}));
    RecordSet pathways = command.Form.Model.OpenRecordSet(test::kAllPathways);
    while (!pathways.Eof()) {
        pathways.Delete();
        pathways.MoveNext();
    }
    command.Solve(1, "100000");
    EXPECT_EQ(command.States().size(), 3U);
    EXPECT_TRUE(command.HasReport());
}

TEST(cmdContinuous, LeavesGenAndTheWorkingCopyOpen) {
    Command command(WithDemand({}));
    command.Solve(1, "100000");
    EXPECT_TRUE(command.Form.Model.IsOpen());
    EXPECT_EQ(command.Form.GenRecords.Number("Days"), 250);
}

TEST(cmdContinuous, SolvesAgainWithOtherAnswers) {
    Command command(WithDemand({}));
    command.Solve(1, "200000", "2");
    const std::string first = command.Report();
    command.Solve(3, "100000");
    ExpectState(command, {3, "100000", -1, "--", 216});
    command.Solve(1, "200000", "2");
    EXPECT_EQ(command.Report(), first);
}

}  // namespace
}  // namespace quarnel02
