#include "shell/ModelCheck.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "support/ModelScript.h"
#include "support/RunTimeErrors.h"
#include "support/ScriptedForm.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::ModelScript;
using test::ScriptedForm;
using test::TestModel;

using Lines = std::vector<std::string>;

/// Two tasks, two resources that can do both, and two demand rows.
std::string Sound() {
    ModelScript model;
    model.Tasks = 2;
    model.Resources = {{"Robot"}, {"  Arm "}};
    model.Matrix = {{1, 1, 10, 1}, {1, 2, 10, 1}, {2, 1, 10, 1}, {2, 2, 10, 1}};
    model.Demand = {{5000, 60}, {1000, 40}};
    return model.Sql() +
           "INSERT INTO Tasks VALUES (1, 'Base plate');\nINSERT INTO Tasks VALUES (2, 'Glue "
           "seal');\n";
}

std::string RefusalOf(const std::string& change) {
    const TestModel model(Sound() + change);
    return ExpectRunTimeError(ErrorKind::NotAModel, [&] { RequireUsableModel(model.Open()); });
}

void ExpectUsable(const std::string& change) {
    const TestModel model(Sound() + change);
    EXPECT_NO_THROW(RequireUsableModel(model.Open())) << change;
}

TEST(RequireUsableModel, AcceptsASoundModel) {
    ExpectUsable("");
}

struct Fault {
    const char* Change;
    const char* Message;
};

class ModelFaults : public testing::TestWithParam<Fault> {};

TEST_P(ModelFaults, AreNamedAsOnScreen) {
    EXPECT_EQ(RefusalOf(GetParam().Change), GetParam().Message);
}

INSTANTIATE_TEST_SUITE_P(
    Parameters, ModelFaults,
    testing::Values(
        Fault{"UPDATE Gen SET Days = 0;",
              "Working days per year is 0; it must be above 0 and at most 366."},
        Fault{"UPDATE Gen SET Days = 366.5;",
              "Working days per year is 366.5; it must be above 0 and at most 366."},
        Fault{"UPDATE Gen SET Days = NULL;",
              "Working days per year is empty; it must be above 0 and at most 366."},
        Fault{"UPDATE Gen SET ACF = -0.1;",
              "Annual capital factor (ACF) is -0.1; it must be at least 0."},
        Fault{"UPDATE Gen SET LaborCost = -1;", "Labour cost is -1 $/h; it must be at least 0."},
        Fault{"UPDATE Gen SET TransportTime = -1;",
              "Transport time is -1 s; it must be at least 0."},
        Fault{"UPDATE Gen SET Penalty = -1;", "Penalty is -1 $/unit; it must be at least 0."}));

INSTANTIATE_TEST_SUITE_P(
    Resources, ModelFaults,
    testing::Values(
        Fault{"UPDATE Resources SET UpTime = 0 WHERE ResourceId = 1;",
              "Resource 1 (Robot): uptime is 0 %; it must be above 0 and at most 100."},
        Fault{"UPDATE Resources SET UpTime = NULL WHERE ResourceId = 2;",
              "Resource 2 (Arm): uptime is empty; it must be above 0 and at most 100."},
        Fault{"UPDATE Resources SET ShortName = '   ', StatPerWrk = 0 WHERE ResourceId = 2;",
              "Resource 2: stations per worker is 0; it must be above 0."},
        Fault{"UPDATE Resources SET ShortName = 'Ro' || char(10) || 'bot', ICF = -1 WHERE "
              "ResourceId = 1;",
              "Resource 1 (Ro bot): investment factor (ICF) is -1; it must be at least 0."},
        Fault{"UPDATE Resources SET FixedCost = -1 WHERE ResourceId = 1;",
              "Resource 1 (Robot): fixed cost is -1 $; it must be at least 0."},
        Fault{"UPDATE Resources SET VarCost = -1 WHERE ResourceId = 1;",
              "Resource 1 (Robot): variable cost is -1 $/h; it must be at least 0."},
        Fault{"UPDATE Resources SET ToolChange = -1 WHERE ResourceId = 1;",
              "Resource 1 (Robot): tool change time is -1 s; it must be at least 0."},
        Fault{"UPDATE Resources SET ResourceId = 1;",
              "Resource 1 (Arm): resource 1 (Robot) has the same number. Delete one of them in "
              "the resource editor."},
        Fault{"UPDATE Resources SET ResourceId = 5 WHERE ResourceId = 2;",
              "Task 1 (Base plate) on resource 2: the matrix has figures of them, but the model "
              "has no resource 2. Add it in the resource editor."},
        Fault{"UPDATE Resources SET ResourceId = NULL WHERE ResourceId = 2;",
              "A resource has no number. Delete it in the resource editor and add it again."}));

INSTANTIATE_TEST_SUITE_P(
    Matrix, ModelFaults,
    testing::Values(
        Fault{"UPDATE Matrix SET TaskTime = -2 WHERE TaskId = 2 AND ResourceId = 2;",
              "Task 2 (Glue seal) on resource 2 (Arm): task time is -2 s; it must be at least 0."},
        Fault{"UPDATE Matrix SET ToolCost = -5 WHERE TaskId = 1 AND ResourceId = 2;",
              "Task 1 (Base plate) on resource 2 (Arm): tool cost is -5 $; it must be at least 0."},
        Fault{"UPDATE Matrix SET TaskTime = 0, ToolCost = -5 WHERE TaskId = 1 AND ResourceId = 2;",
              "Task 1 (Base plate) on resource 2 (Arm): tool cost is -5 $; it must be at least 0."},
        Fault{"UPDATE Matrix SET ToolNum = NULL WHERE TaskId = 1 AND ResourceId = 1;",
              "Task 1 (Base plate) on resource 1 (Robot): tool number is empty; it must be a whole "
              "number."},
        Fault{"UPDATE Matrix SET ToolNum = 40000 WHERE TaskId = 1 AND ResourceId = 1;",
              "Task 1 (Base plate) on resource 1 (Robot): tool number is 40000; it must be from "
              "-32,767 to 32,767."},
        Fault{
            "INSERT INTO Matrix VALUES (2, 1, 0, 1, 0);",
            "Task 1 (Base plate) on resource 2 (Arm): the matrix has figures of them twice. Clear "
            "the cell in the matrix editor and enter it again."},
        Fault{"INSERT INTO Matrix VALUES (2, 3, 10, 1, 0);",
              "Task 3 on resource 2 (Arm): the matrix has figures of them, but the model has no "
              "task 3. Add a task in the task editor and delete it again, which drops them."},
        Fault{"INSERT INTO Matrix VALUES (NULL, 2, 10, 1, 0);",
              "A row of the matrix has no task or no resource. Clear the matrix in the matrix "
              "editor and enter it again."}));

TEST(RequireUsableModel, NeedsNoToolWhereThereIsNoTime) {
    ExpectUsable("UPDATE Matrix SET TaskTime = 0, ToolNum = NULL, ToolCost = NULL;");
    ExpectUsable("UPDATE Matrix SET TaskTime = NULL, ToolNum = NULL, ToolCost = NULL;");
}

TEST(RequireUsableModel, LeavesOutWhatIsNeverConsidered) {
    ExpectUsable("INSERT INTO Matrix VALUES (3, 2, -10, 1, 0);");  // left by a deleted resource
    ExpectUsable("UPDATE Gen SET Resources = 1;");
    ExpectUsable("INSERT INTO Tasks VALUES (2, 'Glue again');");  // a number typed by hand
    ExpectUsable("UPDATE Tasks SET TaskId = 0 WHERE TaskId = 1;");
    ExpectUsable("UPDATE Gen SET Tasks = 3;");
}

TEST(RequireUsableModel, NeedsNoTaskTexts) {
    ExpectUsable("DELETE FROM Tasks;");
    EXPECT_EQ(RefusalOf("DELETE FROM Tasks; UPDATE Matrix SET TaskTime = -1 WHERE TaskId = 2;"),
              "Task 2 on resource 1 (Robot): task time is -1 s; it must be at least 0.");
}

TEST(RequireUsableModel, AcceptsTheLimitsThemselves) {
    ExpectUsable("UPDATE Gen SET Days = 366, ACF = 0, LaborCost = 0, TransportTime = 0;");
    ExpectUsable("UPDATE Resources SET UpTime = 100, FixedCost = 0, ICF = 0;");
    ExpectUsable("UPDATE Matrix SET ToolNum = -32767, ToolCost = 0;");
}

TEST(RequireUsableModel, LeavesTheDemandAside) {
    ExpectUsable("UPDATE Demand SET Prob = 120;");
}

TEST(RequireUsableModel, ChecksALargeModelFast) {
    ModelScript script;
    script.Tasks = 50;
    script.Resources.resize(25);
    for (int resource = 1; resource <= 25; ++resource) {
        for (int task = 1; task <= 50; ++task) {
            script.Matrix.push_back({resource, task, 10, 1});
        }
    }
    const TestModel model(script.Sql());
    const Database database = model.Open();
    const auto start = std::chrono::steady_clock::now();
    RequireUsableModel(database);
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    RecordProperty("milliseconds", std::to_string(taken.count()));
    EXPECT_LT(taken.count(), 200);  // a few milliseconds; the rest is for a loaded machine
}

TEST(RequireUsableDemand, NamesTheRowByItsPlaceInTheList) {
    const TestModel sound(Sound());
    EXPECT_NO_THROW(RequireUsableDemand(sound.Open()));
    for (const auto& [change, message] :
         {Fault{"UPDATE Demand SET Prob = 120 WHERE Volume = 5000;",
                "Demand row 2 (5,000 units): probability is 120 %; it must be at least 0 and at "
                "most 100."},
          Fault{"UPDATE Demand SET Volume = -3 WHERE Volume = 5000;",
                "Demand row 1 (-3 units): volume is -3; it must be at least 0."},
          Fault{
              "INSERT INTO Demand VALUES (NULL, 7), (1e39, 8); UPDATE Demand SET Prob = 120 WHERE "
              "Volume = 1000;",
              "Demand row 1 (1,000 units): probability is 120 %; it must be at least 0 and at "
              "most 100."}}) {
        const TestModel model(Sound() + change);
        EXPECT_EQ(
            ExpectRunTimeError(ErrorKind::NotAModel, [&] { RequireUsableDemand(model.Open()); }),
            message);
    }
}

TEST(RequireUsableDemand, PassesOverRowsThatTheListLeavesOut) {
    const TestModel model(Sound() + "INSERT INTO Demand VALUES (NULL, 120), (-5, NULL);");
    EXPECT_NO_THROW(RequireUsableDemand(model.Open()));
}

bool HasBoth(const std::string& script, Lines& events) {
    const TestModel model(script);
    ScriptedForm form(model.Directory());
    const bool has = HasTasksAndResources(form.OpenWorkingCopy(), form);
    events = form.Events;
    return has;
}

TEST(HasTasksAndResources, SaysSoWhenThereAreNone) {
    const Lines said = {
        "message[information]: Please complete the task and resource information tables first."};
    for (const std::string& change :
         {std::string(), Sound() + "DELETE FROM Resources;",
          Sound() + "DELETE FROM Tasks; UPDATE Gen SET Tasks = 0;",
          Sound() + "DELETE FROM Tasks; UPDATE Gen SET Tasks = NULL;"}) {
        Lines events;
        EXPECT_FALSE(HasBoth(change, events)) << change;
        EXPECT_EQ(events, said);
    }
}

TEST(HasTasksAndResources, LeavesWrongCountsToTheCheck) {
    for (const std::string& change : {Sound(), Sound() + "UPDATE Gen SET Tasks = 0, Resources = 0;",
                                      Sound() + "DELETE FROM Tasks;"}) {
        Lines events;
        EXPECT_TRUE(HasBoth(change, events)) << change;
        EXPECT_EQ(events, Lines{});
    }
}

}  // namespace
}  // namespace quarnel02
