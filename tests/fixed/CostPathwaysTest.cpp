#include "fixed/CostPathways.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "commands/SolveFixedDemand.h"
#include "fixed/DrawLinks.h"
#include "fixed/GeneratePathways.h"
#include "shell/LoadLineModel.h"
#include "support/FigureText.h"
#include "support/LoadedModel.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::kAllPathways;
using test::LoadedModel;
using test::ModelScript;
using test::NetworkTexts;
using test::ScriptedForm;
using test::WorkedExample;

using Lines = std::vector<std::string>;

constexpr const char* kInfeasible = "message[critical]: There is not a feasible solution!";

/// Designs a line as after a press of "1 Shift", on the pathways that stand: 7,200,000 s are
/// available for the year's units.
void Cost(LoadedModel& model, double volume, std::optional<std::int16_t> limit = {}) {
    const Database database = model.Copy.Open();
    DesignLine(model.Form, database, LoadLineModel(database), {{volume, 1, limit}, "--"});
}

/// One task of 100 seconds on each resource.
ModelScript OneTask(const std::vector<test::ResourceRow>& resources) {
    ModelScript model;
    model.Tasks = 1;
    model.Resources = resources;
    for (int resource = 1; resource <= static_cast<int>(resources.size()); ++resource) {
        model.Matrix.push_back({resource, 1, 100, 1});
    }
    return model;
}

TEST(CostPathways, SaysSoWhenThereIsNoPathway) {
    ModelScript script;
    script.Tasks = 2;
    LoadedModel model(script);
    const auto before = model.DerivedTables();
    Cost(model, 720000);
    EXPECT_EQ(model.Form.Events,
              Lines{"message[information]: Please complete the task and resource tables first."});
    EXPECT_EQ(model.DerivedTables(), before);
    EXPECT_FALSE(model.HasReport());
}

TEST(CostPathways, SaysSoWhenOnlyPathwaysInOtherStatesAreThere) {
    LoadedModel model(OneTask({{}}));
    RecordSet pathways = model.Form.OpenWorkingCopy().OpenRecordSet(kAllPathways);
    pathways.Edit();
    pathways.Set("Feasible", 3);
    pathways.Update();
    Cost(model, 72000);
    EXPECT_EQ(model.Form.Events,
              Lines{"message[information]: Please complete the task and resource tables first."});
    EXPECT_EQ(model.Copy.RowsOf(kAllPathways, 9), Lines{"1|0|1|3|0|0|0|0|0"});
}

/// The pathway over both tasks of the worked example, its state first.
RecordSet WholeLine(const LoadedModel& model) {
    return model.Copy.Open().OpenRecordSet(
        "SELECT Feasible, Stations, Time, Investment, AnnualLabor, Cost FROM Pathways WHERE PathId "
        "= 2;");
}

TEST(CostPathways, WritesTheWorkedExampleForOneStation) {
    LoadedModel model(WorkedExample());
    Cost(model, 100000);
    const RecordSet row = WholeLine(model);
    EXPECT_EQ(row.Integer("Feasible"), 4);
    EXPECT_EQ(row.Integer("Stations"), 1);
    EXPECT_NEAR(row.Number("Time"), 61.111, 0.0005);
    EXPECT_NEAR(row.Number("Investment"), 12600, 0.005);
    EXPECT_NEAR(row.Number("AnnualLabor"), 60555.55, 0.01);
    EXPECT_NEAR(row.Number("Cost"), 64335.55, 0.01);
}

TEST(CostPathways, WritesTheWorkedExampleForTwoStations) {
    LoadedModel model(WorkedExample());
    Cost(model, 200000);
    const RecordSet row = WholeLine(model);
    EXPECT_EQ(row.Integer("Stations"), 2);
    EXPECT_NEAR(row.Number("Time"), 30.556, 0.0005);
    EXPECT_NEAR(row.Number("Investment"), 25200, 0.005);
    EXPECT_NEAR(row.Number("AnnualLabor"), 90555.55, 0.01);
    EXPECT_NEAR(row.Number("Cost"), 98115.55, 0.01);
}

TEST(CostPathways, StoresSingles) {
    LoadedModel model(WorkedExample());
    Cost(model, 100000);
    for (const char* field : {"Time", "AnnualLabor", "Cost"}) {
        const double stored = WholeLine(model).Number(field);
        EXPECT_EQ(static_cast<double>(static_cast<float>(stored)), stored) << field;
    }
}

TEST(CostPathways, CostsToolsInTheOrderOfTheirNumbersAndTimesInTheOrderOfTasks) {
    // Tools 2, 1, 2 at 30, 50 and 70 dollars: by number 1 at 50 and 2 at 30; two changes of 4 s
    // in task order, and the first tool is the last one: 10 + 10 + 10 + 8 + 1 = 39 s.
    ModelScript script;
    script.Tasks = 3;
    script.TransportTime = 1;
    script.Resources = {{"Res", 0, 0, 0, 100, 1, 4, 1}};
    script.Matrix = {{1, 1, 10, 2, 30}, {1, 2, 10, 1, 50}, {1, 3, 10, 2, 70}};
    LoadedModel model(script);
    Cost(model, 72000);
    EXPECT_EQ(model.Copy.RowsOf("SELECT Time, Investment FROM Pathways WHERE PathId = 3;", 2),
              Lines{"39|80"});
}

/// Up to six tasks of one resource, with few tools at many costs.
struct SharedTools {
    std::vector<MatrixRow> Rows;

    static SharedTools Arbitrary() {
        SharedTools tools;
        const int tasks = *rc::gen::inRange(2, 7);
        for (int task = 1; task <= tasks; ++task) {
            tools.Rows.push_back({1, task, 10, *rc::gen::inRange(1, 4),
                                  static_cast<double>(*rc::gen::inRange(0, 9))});
        }
        return tools;
    }

    /// What the tools cost a station with all the tasks: each at the cost of its first task.
    [[nodiscard]] std::string FirstCosts() const {
        std::map<int, double> costs;
        for (const MatrixRow& row : Rows) {
            costs.emplace(row.Entry.ToolNum, row.Entry.ToolCost);
        }
        double sum = 0;
        for (const auto& [tool, cost] : costs) {
            sum += cost;
        }
        return NumberText(sum);
    }
};

RC_GTEST_PROP(CostPathways, PaysASharedToolAtTheCostOfItsFirstTaskWhateverTheOrderOfEntry, ()) {
    const SharedTools tools = SharedTools::Arbitrary();
    ModelScript script;
    script.Tasks = static_cast<int>(tools.Rows.size());
    script.Resources.resize(1);
    script.Matrix = tools.Rows;
    std::shuffle(script.Matrix.begin(), script.Matrix.end(),
                 std::mt19937(*rc::gen::arbitrary<unsigned>()));
    LoadedModel model(script);
    Cost(model, 7200);
    RC_ASSERT(model.Copy.RowsOf("SELECT Investment FROM Pathways WHERE PathId = " +
                                    NumberText(script.Tasks) + ";",
                                1) == Lines{tools.FirstCosts()});
}

TEST(CostPathways, KeepsTheCostsOfAPathwayOverTheLimit) {
    // 400 s of work in 100 s: four stations, one more than the limit, on resource 1.
    ModelScript script = OneTask({{"Slow", 0, 1000}, {"Fast", 0, 9000}});
    script.Matrix[0].Entry.TaskTime = 400;
    LoadedModel model(script);
    Cost(model, 72000, 3);
    // Labour: stations x 8 h x 250 d x 20 $/h; capital: stations x fixed cost x 0.25.
    EXPECT_EQ(model.Copy.RowsOf(kAllPathways, 9),
              (Lines{"1|0|1|2|161000|100|4|4000|160000", "2|0|2|4|42250|100|1|9000|40000"}));
}

TEST(CostPathways, AcceptsExactlyTheLimit) {
    ModelScript script = OneTask({{}});
    script.Matrix[0].Entry.TaskTime = 400;
    LoadedModel model(script);
    Cost(model, 72000, 4);
    EXPECT_EQ(model.States(), Lines{"4"});
    EXPECT_TRUE(model.HasReport());
}

TEST(CostPathways, EndsWhenNoPathwayIsWithinTheLimitAndKeepsTheCosts) {
    LoadedModel model(WorkedExample());
    Cost(model, 100000, 0);
    EXPECT_EQ(model.Form.Events, Lines{kInfeasible});
    EXPECT_EQ(model.States(), (Lines{"2", "2", "2"}));
    EXPECT_NEAR(WholeLine(model).Number("Cost"), 64335.55, 0.01);
    EXPECT_FALSE(model.HasReport());
    EXPECT_EQ(model.Copy.RowsOf(test::kAllLabels, 4), Lines{});
}

TEST(CostPathways, MarksAllButTheCheapestOfEachArc) {
    LoadedModel model(OneTask({{"Dear", 0, 3000}, {"Cheap", 0, 1000}, {"Middle", 0, 2000}}));
    Cost(model, 72000);
    EXPECT_EQ(model.States(), (Lines{"3", "4", "3"}));
}

TEST(CostPathways, KeepsTheFirstOfEqualAlternatives) {
    LoadedModel model(OneTask({{"Dear", 0, 3000}, {"One", 0, 1000}, {"Two", 0, 1000}}));
    Cost(model, 72000);
    EXPECT_EQ(model.States(), (Lines{"3", "4", "3"}));
}

TEST(CostPathways, PassesOverCheaperAlternativesBeyondTheLimit) {
    ModelScript script = OneTask({{"Free", 0, 0, 0, 100, 1, 0, 1000}, {"Paid", 0, 500}});
    script.Matrix[0].Entry.TaskTime = 400;
    LoadedModel model(script);
    Cost(model, 72000, 3);
    EXPECT_EQ(model.States(), (Lines{"2", "4"}));
}

/// The last figure of the network after each change of it.
struct DrawingLog {
    explicit DrawingLog(ScriptedForm& form) {
        form.picArc.OnChange = [this, &form] {
            const Lines figures = NetworkTexts(form.picArc);
            Drawn.push_back(figures.empty() ? "clear" : figures.back());
        };
    }
    Lines Drawn;
};

TEST(CostPathways, DrawsTheArcsAsItGoesAndThenTheirStates) {
    LoadedModel model(WorkedExample());
    const DrawingLog log(model.Form);
    Cost(model, 100000, 0);
    // Spacing 3750; pathways 1 (first task), 2 (both tasks) and 3 (second task) in order.
    Lines progress;
    for (const char* arc : {"(5625, 1500) radius 1875 from 0 to 3.14159",
                            "(7500, 1500) radius 3750 from 3.14159 to 6.28318",
                            "(9375, 1500) radius 1875 from 0 to 3.14159"}) {
        progress.push_back(std::string("circle ") + arc + " aspect 0.25 width 2 rgb 200,0,0");
    }
    progress.emplace_back("clear");
    ASSERT_GT(log.Drawn.size(), progress.size());
    EXPECT_EQ(Lines(log.Drawn.begin(), log.Drawn.begin() + 4), progress);
}

/// What DrawLinks draws of the working copy as it is.
Lines NetworkOf(LoadedModel& model) {
    ScriptedForm fresh(model.Copy.Directory());
    fresh.SetText(TextBox::txtTasks, model.Form.Text(TextBox::txtTasks));
    DrawLinks(fresh.OpenWorkingCopy(), fresh, fresh.picArc);
    return NetworkTexts(fresh.picArc);
}

TEST(CostPathways, ShowsTheStatesBehindTheMessageThatNothingIsFeasible) {
    LoadedModel model(WorkedExample());
    model.Form.picArc.OnChange = [&] { model.Form.Events.emplace_back("drawn"); };
    Cost(model, 100000, 0);
    EXPECT_EQ(model.Form.Events.back(), kInfeasible);
    EXPECT_EQ(NetworkTexts(model.Form.picArc), NetworkOf(model));
}

TEST(CostPathways, ShowsTheStatesBehindTheMessageThatTablesAreMissing) {
    ModelScript script;
    script.Tasks = 2;
    LoadedModel model(script);
    model.Form.picArc.Print("old");
    model.Form.picArc.OnChange = [&] { model.Form.Events.emplace_back("drawn"); };
    Cost(model, 720000);
    EXPECT_EQ(model.Form.Events.back(),
              "message[information]: Please complete the task and resource tables first.");
    EXPECT_EQ(NetworkTexts(model.Form.picArc), NetworkOf(model));
}

TEST(CostPathways, DesignsTheSameLineAgainAfterRegenerating) {
    LoadedModel model(WorkedExample());
    Cost(model, 100000);
    const auto first = model.DerivedTables();
    GeneratePathways(model.Form.OpenWorkingCopy(), model.Form, model.Form.picArc);
    Cost(model, 100000);
    EXPECT_EQ(model.DerivedTables(), first);
}

/// What a run-time error says; the tables must be as they were before the costing.
std::string ErrorOf(ErrorKind kind, LoadedModel& model) {
    const auto before = model.DerivedTables();
    const auto message = ExpectRunTimeError(kind, [&] { Cost(model, 72000); });
    EXPECT_EQ(model.DerivedTables(), before);
    EXPECT_EQ(NetworkTexts(model.Form.picArc), NetworkOf(model));
    EXPECT_TRUE(model.Form.Events.empty());
    EXPECT_FALSE(model.HasReport());
    return message;
}

TEST(CostPathways, RefusesAnUptimeOfZero) {
    // The second resource spoils the costing when the first one is already costed.
    ModelScript script = OneTask({{}, {}});
    script.Resources[1].UpTime = 0;
    LoadedModel model(script);
    const auto message = ErrorOf(ErrorKind::DivisionByZero, model);
    EXPECT_NE(message.find("Resource 2 (Res): uptime is 0 %"), std::string::npos) << message;
}

TEST(CostPathways, RefusesZeroStationsPerWorker) {
    ModelScript script = OneTask({{}, {}});
    script.Resources[1].StatPerWrk = 0;
    LoadedModel model(script);
    const auto message = ErrorOf(ErrorKind::DivisionByZero, model);
    EXPECT_NE(message.find("Resource 2 (Res): stations per worker is 0"), std::string::npos)
        << message;
}

TEST(CostPathways, TakesAPathwayBeyondTheLargestIntegerForOverTheLimit) {
    // Resource 1 would need 33,000 stations; there is no limit, and resource 2 will do.
    ModelScript script = OneTask({{}, {}});
    script.Matrix[0].Entry.TaskTime = 3.3e6;
    LoadedModel model(script);
    Cost(model, 72000);
    EXPECT_EQ(model.States(), (Lines{"2", "4"}));
    EXPECT_EQ(
        model.Copy.RowsOf("SELECT Stations, Cost, Investment, AnnualLabor FROM Pathways;", 4)[0],
        "32767|0|0|0");
    EXPECT_TRUE(model.HasReport());
}

TEST(CostPathways, FindsNothingFeasibleWhereEveryPathwayNeedsTooManyStations) {
    LoadedModel model(OneTask({{}}));
    Cost(model, 7.2e9);
    EXPECT_EQ(model.Form.Events, Lines{kInfeasible});
    EXPECT_EQ(model.States(), Lines{"2"});
    EXPECT_FALSE(model.HasReport());
}

TEST(CostPathways, NeedsTheResourceOfEveryPathway) {
    LoadedModel model(OneTask({{}, {}}));
    RecordSet resources =
        model.Form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Resources WHERE ResourceId = 2;");
    resources.Delete();
    ErrorOf(ErrorKind::NoCurrentRecord, model);
}

}  // namespace
}  // namespace quarnel02
