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

/// Presses, expects that message, and that nothing was touched: not the report of an earlier run,
/// nor run files, nor the model.
void ExpectRefusal(StochSolve& solve, ErrorKind kind, const std::string& message) {
    solve.MakeFile("ProdRpt.txt");
    solve.MakeFile("Final1");
    const std::string model = ReadFile(solve.Copy.File());
    EXPECT_EQ(ExpectRunTimeError(kind, [&] { solve.Press(); }), message);
    EXPECT_EQ(solve.Form.Events, Lines{});
    EXPECT_EQ(solve.Files(), (Lines{"Final1", "ProdRpt.txt"}));
    EXPECT_EQ(ReadFile(solve.Copy.File()), model);
}

ModelScript WithDemand(std::vector<DemandPoint> demand) {
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
        model.Demand.push_back({static_cast<float>(point * 1000), 10});
    }
    StochSolve ten(model);
    ten.Press();
    EXPECT_EQ(ten.Files(), Lines{"ProdRpt.txt"});
    model.Demand.push_back({11000, 0});
    StochSolve eleven(model);
    EXPECT_TRUE(Contains(ExpectFailure(eleven, ErrorKind::SubscriptOutOfRange), "10 points"));
    StochSolve with_a_row_left_out(model.Sql() + "INSERT INTO Demand VALUES (NULL, 50);");
    ExpectFailure(with_a_row_left_out, ErrorKind::SubscriptOutOfRange);
    EXPECT_EQ(with_a_row_left_out.EventsOf({"notice"}), Lines{});
}

TEST(StochFailures, NoPositiveVolumeIsRefused) {
    StochSolve solve(WithDemand({{0, 50}, {0, 50}}));
    EXPECT_TRUE(Contains(ExpectFailure(solve, ErrorKind::TypeMismatch), "no volume above 0"));
}

TEST(StochFailures, RowsLeftOutAreSaidBeforeWhatTheRestLacks) {
    StochSolve solve(WithDemand({{0, 50}, {0, 50}}).Sql() +
                     "INSERT INTO Demand VALUES (NULL, 50);");
    ExpectFailure(solve, ErrorKind::TypeMismatch);
    EXPECT_EQ(solve.EventsOf({"notice"}), Lines{"notice: 1 demand row without a number left out."});
}

TEST(StochFailures, DemandThatCannotBeIsRefusedBeforeTheRun) {
    StochSolve volume(WithDemand({{-5, 50}, {1000, 50}}));
    ExpectRefusal(volume, ErrorKind::NotAModel,
                  "Demand row 1 (-5 units): volume is -5; it must be at least 0.");
    StochSolve probability(WithDemand({{500, 50}, {1000, 150}}));
    ExpectRefusal(probability, ErrorKind::NotAModel,
                  "Demand row 2 (1,000 units): probability is 150 %; it must be at least 0 and at "
                  "most 100.");
}

TEST(StochFailures, FiguresThatCannotBeAreRefusedBeforeTheRun) {
    ModelScript model = StagesModel();
    model.Resources[1].UpTime = 0;
    StochSolve uptime(model);
    ExpectRefusal(uptime, ErrorKind::NotAModel,
                  "Resource 2 (Press): uptime is 0 %; it must be above 0 and at most 100.");
    model = StagesModel();
    model.Resources[0].StatPerWrk = 0;
    StochSolve workers(model);
    ExpectRefusal(workers, ErrorKind::NotAModel,
                  "Resource 1 (Robot): stations per worker is 0; it must be above 0.");
    model = StagesModel();
    model.Days = 0;
    StochSolve days(model);
    ExpectRefusal(days, ErrorKind::NotAModel,
                  "Working days per year is 0; it must be above 0 and at most 366.");
}

TEST(StochFailures, RowsThatAreTwiceAreRefusedBeforeTheRun) {
    ModelScript model = StagesModel();
    model.Matrix.push_back({1, 1, 30, 1});
    StochSolve solve(model);
    ExpectRefusal(solve, ErrorKind::NotAModel,
                  "Task 1 on resource 1 (Robot): the matrix has figures of them twice. Clear the "
                  "cell in the matrix editor and enter it again.");
}

TEST(StochFailures, AResourceThatIsTwiceIsNamedThoughItLeavesAnotherWithoutARow) {
    StochSolve solve(StagesModel().Sql() +
                     "UPDATE Resources SET ResourceId = 1 WHERE ResourceId = 2;");
    ExpectRefusal(solve, ErrorKind::NotAModel,
                  "Resource 1 (Press): resource 1 (Robot) has the same number. Delete one of them "
                  "in the resource editor.");
}

TEST(StochFailures, APenaltyMustBeANumberOfAtLeastZero) {
    StochSolve word(StagesModel(), "much");
    ExpectRefusal(word, ErrorKind::TypeMismatch,
                  "Penalty ($/unit): \"much\" is not a number. Enter digits, for example 12,500 or "
                  "0.25.");
    StochSolve negative(StagesModel(), "-0.5");
    ExpectRefusal(negative, ErrorKind::Overflow,
                  "Penalty ($/unit) is -0.5; it must be at least 0.");
}

constexpr const char* kIncomplete =
    "message[information]: Please complete the task and resource information tables first.";

TEST(StochFailures, AModelWithoutTasksOrResourcesIsNotComplete) {
    ModelScript empty;
    empty.Demand = {{1000, 50}, {2000, 50}};
    ModelScript no_resources = empty;
    no_resources.Tasks = 2;
    ModelScript no_tasks = StagesModel();
    no_tasks.Tasks = 0;
    no_tasks.Matrix.clear();
    for (const ModelScript& model : {empty, no_resources, no_tasks}) {
        StochSolve solve(model);
        solve.MakeFile("ProdRpt.txt");
        solve.Press();
        EXPECT_EQ(solve.Form.Events, Lines{kIncomplete});
        EXPECT_EQ(solve.Files(), Lines{"ProdRpt.txt"});
    }
}

TEST(StochFailures, AFailedRunLeavesNoEarlierReport) {
    StochSolve solve(WithDemand({{0, 50}, {0, 50}}));
    solve.MakeFile("ProdRpt.txt");
    ExpectFailure(solve, ErrorKind::TypeMismatch);  // which looks for files
    EXPECT_FALSE(solve.Form.LastDesign.has_value());
}

/// The last resource, much the best, is alone on the only task of such a model.
ModelScript ManyResources(int count) {
    ModelScript model = StagesModel();
    model.Tasks = 1;
    model.Resources.assign(static_cast<std::size_t>(count), {"Robot", 2, 9000, 36, 100, 1, 54, 1});
    model.Matrix = {{count, 1, 60, 1, 1000}};
    return model;
}

TEST(StochFailures, TakesAtMost4095Resources) {
    StochSolve most(ManyResources(4095));
    most.Press();
    EXPECT_EQ(most.Files(), Lines{"ProdRpt.txt"});
    EXPECT_EQ(most.Copy.RowsOf("SELECT ResourceId FROM Pathways WHERE Feasible = 4;", 1),
              Lines{"4095"});
    StochSolve one_more(ManyResources(4096));
    EXPECT_EQ(ExpectFailure(one_more, ErrorKind::Overflow),
              "Number of resources is 4,096; the stochastic design takes at most 4,095 of them. "
              "Delete some in the resource editor.");
    StochSolve one_missing(ManyResources(4096).Sql() +
                           "DELETE FROM Resources WHERE ResourceId = 7;");
    ExpectFailure(one_missing, ErrorKind::Overflow);
}

TEST(StochFailures, ATaskOfTooManyStationsEndsTheProgram) {
    StochSolve solve(StagesModel().Sql() +
                     "UPDATE Demand SET Volume = Volume * 20000;"  // 360,000 units per station
                     "INSERT INTO Tasks VALUES (1, ' Screw\tcover '), (2, 'Weld');");
    solve.Press();
    EXPECT_TRUE(solve.Form.ProgramHasEnded());
    EXPECT_EQ(solve.EventsOf({"message"}),
              Lines{"message[critical]: Error creating intermediate task table\n\nNo resource can "
                    "do task 1 (Screw cover) within 4,095 parallel stations, even for the lowest "
                    "volume of 2,000,000,000 units a year. Check its times, the working days and "
                    "the demand."});
}

TEST(StochFailures, AFullDiskEndsTheRunCleanly) {
    StochSolve solve(StagesModel());
    const std::string model = ReadFile(solve.Copy.File());
    std::string message;
    {
        const test::FileSizeLimit limit(100);  // "EProd" of 32 bytes fits, "IT11" does not
        message = ExpectRunTimeError(ErrorKind::FileAccess, [&] { solve.Press(); });
    }
    EXPECT_TRUE(Contains(message, "IT11")) << message;
    EXPECT_EQ(solve.Files(), Lines{});
    EXPECT_EQ(ReadFile(solve.Copy.File()), model);
    EXPECT_EQ(solve.Form.Events.back(), "hide status");
}

TEST(StochFailures, WhatHasTheNameOfARunFileStaysAndEndsTheRun) {
    StochSolve solve(StagesModel());
    std::filesystem::create_directory(solve.Copy.File("IT11"));
    std::filesystem::create_directory(solve.Copy.File("ITEMS"));
    WriteFile(solve.Copy.File("Final report.docx"), std::string(2640, 'r'));
    const std::string message = ExpectRunTimeError(ErrorKind::FileAccess, [&] { solve.Press(); });
    EXPECT_TRUE(Contains(message, "IT11") && Contains(message, "Move that elsewhere")) << message;
    EXPECT_EQ(solve.Files(), (Lines{"Final report.docx", "IT11", "ITEMS"}));
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
    solve.Press();
    EXPECT_TRUE(solve.Form.ProgramHasEnded());
    const Lines said = solve.EventsOf({"message", "end program"});
    EXPECT_EQ(said, (Lines{"message[critical]: Error creating intermediate task table\n\nNo "
                           "resource can do task 2: none has a time for it. Enter one in the "
                           "task-resource matrix.",
                           "end program"}));
    EXPECT_EQ(solve.Form.Events.back(), "end program");
    EXPECT_EQ(solve.EventsOf({"hide status"}), Lines{});  // the window goes with the program
    EXPECT_EQ(solve.EventsOf({"start"}), Lines{});
}

}  // namespace
}  // namespace quarnel02
