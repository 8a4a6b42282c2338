#include "study/Scenarios.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "basic/Numbers.h"
#include "line/CheapestLine.h"
#include "line/RandomDemand.h"
#include "line/RandomLine.h"
#include "line/StochasticDesign.h"
#include "study/LargestVolume.h"
#include "study/StudyTables.h"
#include "study/VolumePieces.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::OneOf;
using test::Roll;

/// 36 s on a bench of 100 $/year that costs 10 $/h, 3.6 s on a press of 1,000 $/year without
/// running cost; a year of 100 days, no labour. At 6,000 units the bench costs 100 + 600 $.
test::ModelScript BenchOrPress() {
    test::ModelScript model;
    model.Tasks = 1;
    model.Days = 100;
    model.ACF = 0.1;
    model.LaborCost = 0;
    model.Penalty = 50;
    model.Resources = {{"Bench", 0, 1000, 10}, {"Press", 0, 10000, 0}};
    model.Matrix = {{1, 1, 36, 1}, {2, 1, 3.6, 2}};
    model.Demand = {{6000, 50}, {12000, 50}};
    return model;
}

DesignOrder Fixed(double volume = 6000) {
    return {BenchOrPress().Model(), FixedDemandRequest{volume, 1, {}}};
}

std::vector<ScenarioOutcome> Solved(const DesignOrder& base, const std::string& differences) {
    return SolveScenarios(base, std::vector<Scenario>{{"Other", differences}});
}

TEST(Scenarios, StandBesideTheBase) {
    const auto outcomes = Solved(Fixed(), "Demand = 8000");
    ASSERT_EQ(outcomes.size(), 2U);
    EXPECT_EQ(outcomes[0].Name, "Base");
    EXPECT_NEAR(static_cast<double>(outcomes[0].Cost), 700, 0.01);
    EXPECT_NEAR(outcomes[0].Table.Totals.Machine, 600, 0.01);
    EXPECT_NEAR(outcomes[0].Table.Totals.Capital, 100, 0.01);
    EXPECT_EQ(outcomes[0].Difference, 0);
    EXPECT_EQ(outcomes[0].Capacity, 80000);  // 100 days of 28,800 s, 36 s each
    EXPECT_EQ(outcomes[1].Name, "Other");
    EXPECT_NEAR(static_cast<double>(outcomes[1].Cost), 900, 0.01);
    EXPECT_NEAR(*outcomes[1].Difference, 200, 0.01);
    EXPECT_FALSE(outcomes[1].LineChanges);
    EXPECT_EQ(outcomes[1].Problem, "");
}

TEST(Scenarios, ChangeTheLine) {
    const auto outcomes = Solved(Fixed(), "Bench.VarCost +60%");  // 100 + 960 against 1,000
    EXPECT_TRUE(outcomes[1].LineChanges);
    EXPECT_EQ(outcomes[1].Table.Rows[0].Group.Resource, 2);
    EXPECT_NEAR(*outcomes[1].Difference, 300, 0.01);
}

TEST(Scenarios, ApplyAllOfTheirDifferencesToTheBase) {
    const auto outcomes = Solved(Fixed(), "Demand +50%; Shifts = 2; Bench.FixedCost = 2000");
    const ScenarioOutcome& both = outcomes[1];
    EXPECT_EQ(both.Order.Fixed->Volume, 9000);
    EXPECT_EQ(both.Order.Fixed->Shifts, 2);
    // The press, 1,000 against 200 + 900: 1,600,000 of 3.6 s, and one by the tolerance.
    EXPECT_EQ(both.Capacity, 1600001);
    EXPECT_NEAR(static_cast<double>(both.Cost), 1000, 0.01);
}

TEST(Scenarios, MayHaveNoLine) {
    const auto outcomes = Solved(Fixed(900000), "StationLimit = 1");
    EXPECT_TRUE(outcomes[0].HasLine);
    EXPECT_FALSE(outcomes[1].HasLine);
    EXPECT_EQ(outcomes[1].Problem, "");
    EXPECT_FALSE(outcomes[1].Difference.has_value());
    EXPECT_TRUE(outcomes[1].LineChanges);
}

TEST(Scenarios, WithAProblemLeaveTheOthers) {
    const auto outcomes = SolveScenarios(
        Fixed(), std::vector<Scenario>{
                     {"Gone", "Oven.ICF = 2"}, {"Days", "Days +300%"}, {"Good", "Demand = 5000"}});
    EXPECT_EQ(outcomes[1].Problem, "\"Oven.ICF = 2\": the model has no resource \"Oven\".");
    EXPECT_EQ(outcomes[2].Problem, "\"Days +300%\": that would be 400; at most 366 is possible.");
    EXPECT_FALSE(outcomes[2].HasLine);
    EXPECT_NEAR(static_cast<double>(outcomes[3].Cost), 600, 0.01);
}

TEST(Scenarios, AreComparedWithAnyOfThem) {
    auto outcomes = SolveScenarios(
        Fixed(), std::vector<Scenario>{{"Much", "Demand = 8000"},
                                       {"Bad", "x"},
                                       {"None", "Demand = 10000000; StationLimit = 1"}});
    EXPECT_EQ(outcomes[0].Difference, 0);
    EXPECT_NEAR(*outcomes[1].Difference, 200, 0.01);
    Compare(outcomes, 1);
    EXPECT_NEAR(*outcomes[0].Difference, -200, 0.01);
    EXPECT_EQ(outcomes[1].Difference, 0);
    EXPECT_FALSE(outcomes[1].LineChanges);
    for (const std::size_t without : {std::size_t{2}, std::size_t{3}}) {
        EXPECT_FALSE(outcomes[without].Difference);
    }
    EXPECT_FALSE(outcomes[2].LineChanges);
    EXPECT_TRUE(outcomes[3].LineChanges);
    Compare(outcomes, 3);
    EXPECT_FALSE(outcomes[0].Difference);
    EXPECT_TRUE(outcomes[0].LineChanges);
    EXPECT_FALSE(outcomes[3].LineChanges);
}

TEST(Scenarios, OfADistributionHavePenalties) {
    const DesignOrder base{BenchOrPress().Model(), {}};
    const auto outcomes =
        SolveScenarios(base, std::vector<Scenario>{{"None", "Penalty = 0"},
                                                   {"More", "Demand +100%"},
                                                   {"Limit", "StationLimit = 1"}});
    EXPECT_EQ(outcomes[0].Cost, DesignForDemand(base.Model, 50).Line->ExpectedCost);
    EXPECT_EQ(outcomes[2].Order.Model.Demand()[1].Volume, 24000);
    EXPECT_EQ(outcomes[2].Difference, 0);  // the press makes twice as many for nothing
    EXPECT_NE(outcomes[3].Problem.find("a design for a demand distribution is not asked for it"),
              std::string::npos);
    EXPECT_EQ(outcomes[0].CapacityShifts, 3);
}

RC_GTEST_PROP(ScenariosOfRandomModels, AreTheDesignsOfTheChangedModels, ()) {
    test::ModelScript parts = test::RandomModel(Roll(7, 10));
    parts.LaborCost = OneOf({15.0, 22.5});
    parts.Demand = test::RandomDemand();
    parts.Demand.back().Probability = 20;
    const bool stochastic = Roll(0, 1) == 1;
    DesignOrder base{parts.Model(), {}};
    if (!stochastic) {
        base.Fixed = test::RandomRequest(base.Model);
    }
    parts.LaborCost *= 1.25;
    parts.ACF = 0.2;
    const auto outcomes = SolveScenarios(
        Fixed(), std::vector<Scenario>{{"More, much", "Demand = 8000"}, {"Bad", "x"}});
    EXPECT_EQ(CsvText(ScenariosTable(outcomes)),
              "scenario,cost,difference,capital,machine,labour,penalty,investment,shifts,volume,"
              "station_limit,capacity,changes,line,problem\n"
              "Base,700,0,100,600,0,0,1000,1,6000,,80000,0,Bench 1,\n"
              "\"More, much\",900,200,100,800,0,0,1000,1,8000,,80000,0,Bench 1,\n"
              "Bad,,,,,,,,1,6000,,,,,\"\"\"x\"\": write a name, \"\"=\"\" and a number, or a share "
              "such as +10%.\"\n");
}

}  // namespace
}  // namespace quarnel02
