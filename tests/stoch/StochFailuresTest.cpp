// Stochastic solves that cannot be done: what they say, and that they leave nothing behind.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "support/FigureText.h"
#include "support/RunTimeErrors.h"
#include "support/StochModels.h"
#include "support/StochSolve.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::ModelScript;
using test::StagesModel;
using test::StochSolve;

using Lines = std::vector<std::string>;

/// Presses, expects that error, and that neither run files nor marks nor a status window stay.
std::string ExpectFailure(StochSolve& solve, ErrorKind kind) {
    const auto tables = solve.DerivedTables();
    const std::string message = ExpectRunTimeError(kind, [&] { solve.Press(); });
    EXPECT_EQ(solve.Files(), Lines{});
    EXPECT_EQ(solve.DerivedTables(), tables);
    const auto shown = solve.EventsOf({"show status"});
    EXPECT_EQ(solve.EventsOf({"hide status"}).size(), shown.size());
    EXPECT_EQ(solve.EventsOf({"start"}), Lines{});
    return message;
}

ModelScript WithDemand(std::vector<std::pair<double, double>> demand) {
    ModelScript model = StagesModel();
    model.Demand = std::move(demand);
    return model;
}

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(StochFailures, AnEleventhDemandPointIsOutOfRange) {
    ModelScript model = WithDemand({});
    for (int point = 1; point <= 10; ++point) {
        model.Demand.emplace_back(point * 1000, 10);
    }
    StochSolve ten(model);
    ten.Press();
    EXPECT_EQ(ten.Files(), Lines{"ProdRpt.txt"});
    model.Demand.emplace_back(11000, 0);
    StochSolve eleven(model);
    EXPECT_TRUE(Contains(ExpectFailure(eleven, ErrorKind::SubscriptOutOfRange), "10 points"));
}

TEST(StochFailures, ANegativeVolumeIsRefusedByName) {
    StochSolve solve(WithDemand({{-5, 50}, {1000, 50}}));
    EXPECT_TRUE(Contains(ExpectFailure(solve, ErrorKind::TypeMismatch), "-5 is negative"));
}

TEST(StochFailures, NoPositiveVolumeIsRefused) {
    StochSolve solve(WithDemand({{0, 50}, {0, 50}}));
    EXPECT_TRUE(Contains(ExpectFailure(solve, ErrorKind::TypeMismatch), "no volume above 0"));
}

TEST(StochFailures, OnlyNegativeVolumesAreRefused) {
    StochSolve solve(WithDemand({{-5, 50}, {-1, 50}}));
    ExpectFailure(solve, ErrorKind::TypeMismatch);
}

TEST(StochFailures, APenaltyMustBeANumber) {
    StochSolve solve(StagesModel(), "much");
    EXPECT_TRUE(Contains(ExpectFailure(solve, ErrorKind::TypeMismatch), "txtPenalty"));
}

TEST(StochFailures, AnUptimeOfZeroIsADivisionByZero) {
    ModelScript model = StagesModel();
    model.Resources[1].UpTime = 0;
    StochSolve solve(model);
    ExpectFailure(solve, ErrorKind::DivisionByZero);
}

TEST(StochFailures, NoWorkingDaysAreRefusedBeforeTheRun) {
    ModelScript model = StagesModel();
    model.Days = 0;
    StochSolve solve(model);
    EXPECT_TRUE(Contains(ExpectFailure(solve, ErrorKind::DivisionByZero), "Days"));
    EXPECT_EQ(solve.EventsOf({"show status"}), Lines{});
}

TEST(StochFailures, StationsPerWorkerOfZeroAreADivisionByZero) {
    ModelScript model = StagesModel();
    model.Resources[0].StatPerWrk = 0;
    StochSolve solve(model);
    ExpectFailure(solve, ErrorKind::DivisionByZero);
}

TEST(StochFailures, ALineOfTooManyStationsIsNoDesign) {
    ModelScript model = StagesModel();
    model.Demand = {{2e9, 50}, {3e9, 50}};  // 360,000 units per station of Robot
    StochSolve solve(model);
    EXPECT_THROW(solve.Press(), ProgramEnded);
    EXPECT_EQ(solve.EventsOf({"message"}),
              Lines{"message[critical]: Error creating intermediate task table"});
}

TEST(StochFailures, AFullDiskEndsTheRunCleanly) {
    StochSolve solve(StagesModel());
    const std::string model = ReadFile(solve.Copy.File());
    std::string message;
    {
        const test::FileSizeLimit limit(100);  // "EProd" of 32 bytes fits, "F1T1.R1" does not
        message = ExpectRunTimeError(ErrorKind::FileAccess, [&] { solve.Press(); });
    }
    EXPECT_TRUE(Contains(message, "F1T1.R1")) << message;
    EXPECT_EQ(solve.Files(), Lines{});
    EXPECT_EQ(ReadFile(solve.Copy.File()), model);
    EXPECT_EQ(solve.Form.Events.back(), "hide status");
}

TEST(StochFailures, AnUnwritableDirectoryEndsTheRunCleanly) {
    StochSolve solve(StagesModel());
    std::filesystem::create_directory(solve.Copy.File("IT11"));  // in the place of a run file
    WriteFile(solve.Copy.File("IT11") / "inside", "");
    const std::string message = ExpectRunTimeError(ErrorKind::FileAccess, [&] { solve.Press(); });
    EXPECT_TRUE(Contains(message, "IT11")) << message;
    EXPECT_EQ(solve.Files(), Lines{"IT11"});
    EXPECT_EQ(solve.Form.Events.back(), "hide status");
}

TEST(StochFailures, ADirectoryThatMayOnlyBeReadEndsTheRunCleanly) {
    StochSolve solve(StagesModel());
    const std::string model = ReadFile(solve.Copy.File());
    std::string message;
    test::SetPermissions(solve.Copy.Directory(), 0555);
    {
        const test::OrdinaryUser user;
        message = ExpectRunTimeError(ErrorKind::FileAccess, [&] { solve.Press(); });
    }
    test::SetPermissions(solve.Copy.Directory(), 0755);
    EXPECT_FALSE(message.empty());
    EXPECT_EQ(solve.Files(), Lines{});
    EXPECT_EQ(ReadFile(solve.Copy.File()), model);
}

/// No resource can do task 2.
ModelScript Impossible() {
    ModelScript model = StagesModel();
    model.Matrix = {{1, 1, 60, 1, 1000}, {2, 1, 24, 1, 1000}};
    return model;
}

TEST(StochFailures, ATaskThatNoResourceCanDoEndsTheProgram) {
    StochSolve solve(Impossible());
    EXPECT_THROW(solve.Press(), ProgramEnded);
    const Lines said = solve.EventsOf({"message", "end program"});
    EXPECT_EQ(said,
              (Lines{"message[critical]: Error creating intermediate task table", "end program"}));
    EXPECT_EQ(solve.EventsOf({"start"}), Lines{});
}

}  // namespace
}  // namespace quarnel02
