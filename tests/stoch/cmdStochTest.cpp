// The stochastic button: when it starts, what it says on the way, and what it leaves in the
// application directory.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "model/InputDigest.h"
#include "shell/DesignMade.h"
#include "support/StochModels.h"
#include "support/StochSolve.h"

namespace quarnel02 {
namespace {

using test::ModelScript;
using test::StagesModel;
using test::StochSolve;

using Lines = std::vector<std::string>;

constexpr const char* kNoDemand =
    "message[information]: You must first enter a probability distribution for demand.";

ModelScript WithDemand(std::vector<DemandPoint> demand) {
    ModelScript model = StagesModel();
    model.Demand = std::move(demand);
    return model;
}

TEST(cmdStoch, RefusesAModelWithoutDemand) {
    StochSolve solve(WithDemand({}));
    solve.Form.picGraph[0].Print("old");
    solve.Form.picGraph[3].Print("old");
    solve.Press();
    EXPECT_EQ(solve.Form.Events, Lines{kNoDemand});
    EXPECT_EQ(solve.Files(), Lines{});
    for (const Picture& picture : solve.Form.picGraph) {
        EXPECT_TRUE(picture.Figures().empty());
    }
}

TEST(cmdStoch, RefusesASingleDemand) {
    StochSolve solve(WithDemand({{100000, 100}}));
    solve.MakeFile("Final1");
    solve.Press();
    EXPECT_EQ(solve.Form.Events, Lines{kNoDemand});
    EXPECT_EQ(solve.Files(), Lines{"Final1"});  // nothing else happens
}

TEST(cmdStoch, TwoDemandsAreEnough) {
    StochSolve solve(WithDemand({{100000, 50}, {200000, 50}}));
    solve.Press();
    EXPECT_EQ(solve.EventsOf({"message"}), Lines{});
    EXPECT_EQ(solve.Files(), Lines{"ProdRpt.txt"});
}

constexpr const char* kAsked = "ask[question]: The probabilities add up to 85%. Solve anyway? -> ";

TEST(cmdStoch, AsksBeforeItTakesProbabilitiesThatDoNotAddUp) {
    StochSolve solve(WithDemand({{100000, 50}, {200000, 35}}));
    solve.MakeFile("ProdRpt.txt");
    solve.MakeFile("Final1");
    const std::string model = ReadFile(solve.Copy.File());
    solve.Form.YesNoAnswers = {false};
    solve.Press();
    EXPECT_EQ(solve.Form.Events, Lines{kAsked + std::string("no")});
    EXPECT_EQ(solve.Form.ProposedAnswers, std::vector<Answer>{Answer::No});
    EXPECT_EQ(solve.Files(), (Lines{"Final1", "ProdRpt.txt"}));
    EXPECT_EQ(ReadFile(solve.Copy.File()), model);
    EXPECT_FALSE(solve.Form.LastDesign.has_value());

    solve.Form.YesNoAnswers = {true};
    solve.Press();
    EXPECT_EQ(solve.EventsOf({"ask", "message"}),
              (Lines{kAsked + std::string("no"), kAsked + std::string("yes")}));
    EXPECT_EQ(solve.Files(), Lines{"ProdRpt.txt"});
    EXPECT_TRUE(solve.Form.LastDesign.has_value());
}

TEST(cmdStoch, AsksFromMoreThanFiveHundredthsOn) {
    for (const float last : {49.95F, 50.05F, 50.0F}) {
        StochSolve solve(WithDemand({{100000, 50}, {200000, last}}));
        solve.Press();
        EXPECT_EQ(solve.EventsOf({"ask"}), Lines{}) << last;
    }
    for (const auto& [last, sum] : {std::pair(49.94F, "99.94"), std::pair(50.06F, "100.06")}) {
        StochSolve solve(WithDemand({{100000, 50}, {200000, last}}));
        solve.Form.YesNoAnswers = {true};
        solve.Press();
        EXPECT_EQ(solve.EventsOf({"ask"}), Lines{"ask[question]: The probabilities add up to " +
                                                 std::string(sum) + "%. Solve anyway? -> yes"});
    }
}

TEST(cmdStoch, NotesTheDesignThatItShows) {
    StochSolve solve(StagesModel(), "2");
    solve.Form.SetText(TextBox::txtProduct, "Pump");
    solve.Press();
    ASSERT_TRUE(solve.Form.LastDesign.has_value());
    EXPECT_EQ(solve.Form.LastDesign->Caption, "Capacity 600,000 units a year");
    EXPECT_EQ(solve.Form.LastDesign->Product, "Pump");
    EXPECT_EQ(solve.Form.LastDesign->Inputs, InputDigest(solve.Copy.Open()));
    RecordSet demand = solve.Copy.Open().OpenRecordSet("SELECT * FROM Demand;");
    demand.Edit();
    demand.Set("Volume", 100001.0);
    demand.Update();
    EXPECT_NE(solve.Form.LastDesign->Inputs, InputDigest(solve.Copy.Open()));
}

TEST(cmdStoch, ForgetsTheDesignThatItNoLongerShows) {
    StochSolve solve(StagesModel(), "2");
    solve.Press();
    solve.Form.ClearDemand();
    solve.Press();
    EXPECT_FALSE(solve.Form.LastDesign.has_value());
    EXPECT_TRUE(solve.Form.picGraph[0].Figures().empty());
}

TEST(cmdStoch, LeavesOutDemandRowsWithoutANumber) {
    StochSolve whole(StagesModel(), "2");
    whole.Press();
    StochSolve one(StagesModel().Sql() + "INSERT INTO Demand VALUES (NULL, 50);", "2");
    one.Press();
    EXPECT_EQ(one.EventsOf({"notice", "ask", "message"}),
              Lines{"notice: 1 demand row without a number left out."});
    EXPECT_EQ(one.ProductionReport(), whole.ProductionReport());
    StochSolve two(StagesModel().Sql() + "INSERT INTO Demand VALUES (NULL, 50), (7, NULL);", "2");
    two.Press();
    EXPECT_EQ(two.EventsOf({"notice", "ask", "message"}),
              Lines{"notice: 2 demand rows without a number left out."});
    EXPECT_EQ(two.ProductionReport(), whole.ProductionReport());
}

TEST(cmdStoch, ClosesTheModelAtTheEnd) {
    StochSolve solve(StagesModel());
    solve.Press();
}

/// Every text for one arc.
void AddArc(Lines& texts, const std::string& start, const std::string& end,
            const std::string& progress) {
    texts.push_back("status: Creating Resource Tables for Task " + start + " To Task " + end);
    texts.push_back("status: Creating Initial Tables for Task " + start + " To Task " + end);
    texts.push_back("progress: " + progress);
}

void AddTask(Lines& texts, const std::string& task) {
    texts.push_back("status: Creating Intermediate Tables for Task " + task);
    texts.push_back("status: Creating Final Table for Task " + task);
    texts.push_back("status: " + task + " of 3 Tasks Completed");
}

TEST(cmdStoch, SaysWhatItDoesInOrder) {
    ModelScript model = StagesModel();
    model.Tasks = 3;
    model.Matrix.push_back({2, 3, 30, 2, 500});
    StochSolve solve(model);
    solve.Press();
    Lines expected = {"show status: PLEASE WAIT -- PROGRAM IS RUNNING"};
    AddArc(expected, "1", "1", "1/6");
    AddTask(expected, "1");
    AddArc(expected, "1", "2", "2/6");
    AddArc(expected, "2", "2", "3/6");
    AddTask(expected, "2");
    AddArc(expected, "1", "3", "4/6");
    AddArc(expected, "2", "3", "5/6");
    AddArc(expected, "3", "3", "6/6");
    AddTask(expected, "3");
    expected.emplace_back("status: Adding Expected Penalties to Final Table");
    expected.emplace_back("hide status");
    expected.push_back("start: notepad.exe " + PathText(solve.Copy.File("ProdRpt.txt")));
    EXPECT_EQ(solve.EventsOf({"show status", "status", "progress", "hide status", "notice",
                              "message", "start", "end program"}),
              expected);
}

TEST(cmdStoch, MissingResourceIsSaidBeforeAnythingIsBuilt) {
    StochSolve solve(StagesModel().Sql() + "DELETE FROM Resources WHERE ResourceId = 2;");
    solve.MakeFile("Final");
    solve.MakeFile("F1T1.R1");
    solve.MakeFile("ProdRpt.txt");
    solve.Form.SetText(TextBox::txtPenalty, "much");
    solve.Press();
    EXPECT_EQ(solve.Form.Events,
              Lines{"message[information]: Please complete the task and resource information "
                    "tables first."});
    EXPECT_EQ(solve.Files(), Lines{"ProdRpt.txt"});
}

TEST(cmdStoch, MissingPairsAreNoError) {
    StochSolve solve(StagesModel());  // Press has no row for task 1
    solve.Press();
    EXPECT_EQ(solve.EventsOf({"message"}), Lines{});
    EXPECT_EQ(solve.EventsOf({"start"}).size(), 1U);
}

TEST(cmdStoch, LeavesNoRunFilesAndKeepsOtherFiles) {
    StochSolve solve(StagesModel());
    for (const char* name : {"Final", "F1T1.R1", "F9T9.R9", "IT99", "Temp7", "EProd", "EShift",
                             "Final line.mdb", "RunRpt.txt", "ProdRpt.txt"}) {
        solve.MakeFile(name);
    }
    solve.Press();
    EXPECT_EQ(solve.Files(), (Lines{"Final line.mdb", "ProdRpt.txt", "RunRpt.txt"}));
    EXPECT_EQ(ReadFile(solve.Copy.File("RunRpt.txt")), std::string(2640, 's'));
    EXPECT_TRUE(solve.ProductionReport().starts_with("Production Report\n"));
}

TEST(cmdStoch, AnotherPressGivesTheSameReport) {
    StochSolve solve(StagesModel());
    solve.Press();
    const std::string first = solve.ProductionReport();
    const auto states = solve.States();
    solve.Press();
    EXPECT_EQ(solve.ProductionReport(), first);
    EXPECT_EQ(solve.States(), states);
}

}  // namespace
}  // namespace quarnel02
