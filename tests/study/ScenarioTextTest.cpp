#include "study/ScenarioText.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

#include "line/RandomLine.h"
#include "support/ModelScript.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::OneOf;
using test::Roll;

/// Resources Bench, Press, two called Robot, one without a name and "Pick-Place v2.1".
LineModel Model() {
    test::ModelScript model;
    model.Tasks = 1;
    for (const char* name : {"Bench", "Press", "Robot", "Robot", "", "Pick-Place v2.1"}) {
        model.Resources.push_back({name, 0, 1000, 10});
    }
    return model.Model();
}

std::vector<Difference> Read(const std::string& text) {
    return DifferencesOf(Model(), text);
}

std::string ErrorOf(const std::string& text) {
    return test::ExpectRunTimeError(ErrorKind::TypeMismatch, [&] { Read(text); });
}

TEST(ScenarioText, SetsFigures) {
    EXPECT_EQ(Read("Demand = 80000"),
              (std::vector<Difference>{{ScenarioTarget::Demand, {}, false, 80000.0}}));
    EXPECT_EQ(Read("Bench.FixedCost = 120,000"),
              (std::vector<Difference>{
                  {ScenarioTarget::Figure, {FigureKind::FixedCost, 1}, false, 120000.0}}));
    EXPECT_EQ(Read("Shifts = 2; StationLimit = 3"),
              (std::vector<Difference>{{ScenarioTarget::Shifts, {}, false, 2.0},
                                       {ScenarioTarget::StationLimit, {}, false, 3.0}}));
    EXPECT_EQ(Read("StationLimit = none"),
              (std::vector<Difference>{{ScenarioTarget::StationLimit, {}, false, {}}}));
}

TEST(ScenarioText, ChangesFiguresByShares) {
    EXPECT_EQ(Read("LaborCost +10%"),
              (std::vector<Difference>{
                  {ScenarioTarget::Figure, {FigureKind::LaborCost, 0}, true, 10.0}}));
    EXPECT_EQ(Read("Press.TaskTimes - 2.5 %"),
              (std::vector<Difference>{
                  {ScenarioTarget::Figure, {FigureKind::TaskTimes, 2}, true, -2.5}}));
}

TEST(ScenarioText, TakesLinesBlanksAndAnyLetterCase) {
    const auto expected = Read("Penalty = 20; Bench.UpTime = 90");
    EXPECT_EQ(Read("  penalty=20 ;; \n BENCH . uptime = 90;\r\n"), expected);
    EXPECT_EQ(expected.size(), 2U);
    EXPECT_TRUE(Read("").empty());
    EXPECT_TRUE(Read(" ; \n").empty());
}

TEST(ScenarioText, CallsResourcesByNameOrNumber) {
    const auto resource = [](const std::string& text) {
        return Read(text).front().Figure.Resource;
    };
    EXPECT_EQ(resource("#2.ICF = 1"), 2);
    EXPECT_EQ(resource("Resource 5.ICF = 1"), 5);
    EXPECT_EQ(resource("Pick-Place v2.1.ICF = 1"), 6);
    EXPECT_EQ(resource("Pick-Place v2.1.ICF -5%"), 6);
    EXPECT_EQ(resource("#4.ICF +5%"), 4);
}

TEST(ScenarioText, NamesWhatIsWrong) {
    EXPECT_EQ(ErrorOf("LaborCost"),
              "\"LaborCost\": write a name, \"=\" and a number, or a share such as +10%.");
    EXPECT_EQ(ErrorOf("LaborCost = "), "\"LaborCost =\": \"\" is no number.");
    EXPECT_EQ(ErrorOf("Shifts = two"), "\"Shifts = two\": \"two\" is no number.");
    EXPECT_EQ(ErrorOf("LaborCost +10"),
              "\"LaborCost +10\": write the change as a share, such as +10%, or \"=\" and the new "
              "value.");
    EXPECT_NE(ErrorOf("Wages = 5").find("there is no figure \"Wages\". There are Demand, Shifts"),
              std::string::npos);
    EXPECT_EQ(ErrorOf("Oven.ICF = 1"), "\"Oven.ICF = 1\": the model has no resource \"Oven\".");
    EXPECT_EQ(ErrorOf("Robot.ICF = 1"),
              "\"Robot.ICF = 1\": resources 3 and 4 are both called so. Write #3 or #4.");
    EXPECT_EQ(ErrorOf("ICF = 1"), "\"ICF = 1\": say of which resource, for example Bench.ICF.");
    EXPECT_EQ(ErrorOf("Bench.Days = 1"),
              "\"Bench.Days = 1\": Days is no figure of a resource. Leave out what is in front of "
              "it.");
    EXPECT_EQ(ErrorOf("Days = 200; Demand = 5; days +10%"),
              "\"days +10%\": this figure has a difference already. Remove one.");
}

TEST(ScenarioText, RefusesValuesThatCannotBe) {
    EXPECT_EQ(ErrorOf("Shifts = 4"),
              "\"Shifts = 4\": Shifts must be a whole number of at least 1 and at most 3.");
    EXPECT_EQ(ErrorOf("Bench.UpTime = 0"),
              "\"Bench.UpTime = 0\": UpTime must be above 0 and at most 100.");
    EXPECT_EQ(ErrorOf("Penalty = -1"), "\"Penalty = -1\": Penalty must be at least 0.");
    EXPECT_EQ(ErrorOf("StationLimit = 1.5"),
              "\"StationLimit = 1.5\": StationLimit must be a whole number of at least 1 and at "
              "most 32767.");
    EXPECT_EQ(ErrorOf("Shifts +10%"),
              "\"Shifts +10%\": Shifts takes no share. Write \"=\" and the new value.");
    EXPECT_EQ(ErrorOf("Bench.TaskTimes = 5"),
              "\"Bench.TaskTimes = 5\": task times change by a share, such as -5%.");
    EXPECT_EQ(ErrorOf("Days -100%"), "\"Days -100%\": nothing would be left of Days.");
    EXPECT_EQ(ErrorOf("ACF -101%"), "\"ACF -101%\": nothing would be left of ACF.");
    EXPECT_EQ(Read("ACF -100%").size(), 1U);
}

TEST(ScenarioText, IsWrittenAsItIsRead) {
    for (const std::string text :
         {"Demand = 80000", "StationLimit = none", "Bench.FixedCost = 120000", "LaborCost +10%",
          "#3.UpTime = 90", "#4.ICF -2.5%", "Resource 5.VarCost = 0.5",
          "Pick-Place v2.1.TaskTimes -5%", "Demand +1E-20%", "Penalty = 20; Shifts = 3"}) {
        EXPECT_EQ(DifferencesText(Model(), Read(text)), text);
    }
}

RC_GTEST_PROP(ScenarioTextOfRandomDifferences, ReadsBack, ()) {
    const LineModel model = Model();
    std::vector<Difference> differences;
    for (const ModelFigure& figure : ExpectedFiguresOf(model)) {
        if (Roll(0, 4) == 0) {
            const bool by_share = Roll(0, 1) == 1 || figure.Kind == FigureKind::TaskTimes;
            differences.push_back({ScenarioTarget::Figure, figure, by_share,
                                   OneOf({0.1, 1.0, 12.5, 99.0, 1e-7, 33.333333333})});
        }
    }
    RC_ASSERT(DifferencesOf(model, DifferencesText(model, differences)) == differences);
}

}  // namespace
}  // namespace quarnel02
