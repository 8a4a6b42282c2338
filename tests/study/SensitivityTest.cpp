// What single figures do to the cheapest line, against designs of models with that figure changed.

#include "study/Sensitivity.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "line/CheapestLine.h"
#include "line/RandomLine.h"
#include "study/AllLines.h"
#include "study/BreakEvens.h"
#include "study/CheapestLines.h"
#include "study/PlainCosts.h"
#include "study/VolumePieces.h"
#include "support/ModelScript.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::OneOf;
using test::PlainCosts;
using test::Roll;

/// Figures are odd, so that lines seldom cost the same.
LineModel RandomOddModel() {
    test::ModelScript parts = test::RandomModel(Roll(7, 10));
    parts.LaborCost = Roll(0, 3) * 7.13;
    for (test::ResourceRow& resource : parts.Resources) {
        resource.FixedCost = Roll(0, 9000) * 1.37;
        resource.VarCost = Roll(0, 200) * 0.17;
        resource.UpTime = Roll(500, 1000) * 0.1;
    }
    for (MatrixRow& row : parts.Matrix) {
        row.Entry.TaskTime *= 1 + Roll(0, 100) * 0.0171;
        row.Entry.ToolCost += Roll(0, 1000) * 1.13;
    }
    return parts.Model();
}

/// Whether there is but one cheapest line.
bool IsClear(const PreparedLine& line, const FixedDemandRequest& request) {
    const auto two = CheapestLines(line, CostAll(line, request), 2);
    return two.size() == 1 || (two.size() == 2 && two[1].Cost - two[0].Cost > 1e-5F * two[0].Cost);
}

bool Stays(const LineModel& model, const FixedDemandRequest& request,
           const std::vector<StationGroup>& groups, double margin) {
    const PlainCosts costs(model, request);
    const auto cost = costs.Of(groups);
    return cost && *cost <= costs.Least() * (1 + margin);
}

RC_GTEST_PROP(BreakEvensOfRandomModels, AreWhereTheLineChanges, ()) {
    const PreparedLine line = Prepare(RandomOddModel());
    FixedDemandRequest request = test::RandomRequest(line.Model);
    const auto figures = FiguresOf(line.Model);
    const ModelFigure figure =
        figures[static_cast<std::size_t>(Roll(0, static_cast<int>(figures.size()) - 1))];
    const auto design = CheapestLine(line, request);
    const BreakEvens break_evens(line, request);
    const auto nearest = break_evens.NearestTo(figure);
    const double value = ValueOf(line.Model, figure);
    if (!design || value == 0) {
        RC_ASSERT(!nearest.has_value());
        return;
    }
    const bool clear = IsClear(line, request);
    RC_CLASSIFY(clear && nearest.has_value(), "break-even");
    RC_CLASSIFY(clear && !nearest.has_value(), "none");
    if (!clear) {
        return;
    }
    const auto groups = GroupsOf(*design);
    const auto with = [&](double changed) { return WithValue(line.Model, figure, changed); };
    const StepSpan steps = StepsOf(line.Model, figure);
    const double one = ShareAt(figure.Kind, steps.From);
    const double other = ShareAt(figure.Kind, steps.To);
    const double low = value * std::min(one, other);
    const double high = value * std::max(one, other);
    // A step of the workers per station is the larger one of the stations per worker.
    const double times = figure.Kind == FigureKind::StatPerWrk && nearest ? *nearest / value : 1;
    const double step = value / kStepsOfToday * std::max(1.0, times * times);
    const double reach = nearest ? std::fabs(*nearest - value) - 2 * step : high;
    for (int tries = 0; tries < 300 && reach > 0; ++tries) {
        const double away = reach * (tries / 2 + 1) / 150 * (tries % 2 == 0 ? 1 : -1);
        if (value + away >= low && value + away <= high) {
            RC_ASSERT(Stays(with(value + away), request, groups, 1e-9));
        }
    }
    if (nearest) {
        // There both may cost the very same; a step behind it they do not.
        const double behind = *nearest + (*nearest > value ? step : -step);
        const bool at_once = !Stays(with(*nearest), request, groups, 1e-13);
        RC_ASSERT(at_once || !Stays(with(behind), request, groups, 1e-13));
        RC_ASSERT(*nearest >= low * (1 - 1e-9));
        RC_ASSERT(*nearest <= high * (1 + 1e-9));
    }
}

RC_GTEST_PROP(SensitivityOfRandomModels, HasTheDesignsOfTheChangedModels, ()) {
    const PreparedLine line = Prepare(test::RandomModel(Roll(7, 10)).Model());
    const FixedDemandRequest request = test::RandomRequest(line.Model);
    const double share = OneOf({0.1, 0.03, 0.5});
    const auto rows = SensitivityOf(line, request, share);
    const auto today = CheapestLine(line, request);
    RC_ASSERT(rows.empty() == !today.has_value());
    RC_CLASSIFY(std::any_of(rows.begin(), rows.end(), [](const auto& row) { return row.Changes; }),
                "with changes");
    for (const SensitivityRow& row : rows) {
        bool changes = false;
        bool near_rounding = false;
        for (const auto& [value, cost] :
             {std::pair(row.Low, row.CostLow), std::pair(row.High, row.CostHigh)}) {
            const PreparedLine changed = Prepare(WithValue(line.Model, row.Figure, value));
            const auto design = CheapestLine(changed, request);
            RC_ASSERT(design.has_value() == cost.has_value());
            if (!design) {
                changes = true;
                continue;
            }
            RC_ASSERT(*cost == design->Cost);
            const auto former = test::CostOf(changed, request, GroupsOf(*today));
            const float off = former ? std::fabs(*former - design->Cost) : 0;
            const bool tie = former && off <= 2e-6F * *former;
            changes = changes || (GroupsOf(*design) != GroupsOf(*today) && !tie);
            near_rounding =
                near_rounding || (former && off > 5e-7F * *former && off < 5e-6F * *former);
        }
        RC_ASSERT(near_rounding || row.Changes == changes);
    }
}

/// A year of 100 days without labour.
test::ModelScript ShortYear(int tasks) {
    test::ModelScript model;
    model.Tasks = tasks;
    model.Days = 100;
    model.ACF = 0.1;
    model.LaborCost = 0;
    return model;
}

/// One task: 36 s on a bench of 100 $/year that costs 10 $/h, 3.6 s on a press of 1,000 $/year
/// without running cost. At 6,000 units the bench costs 100 + 600 $.
test::ModelScript BenchOrPressModel() {
    test::ModelScript model = ShortYear(1);
    model.Resources = {{"Bench", 0, 1000, 10}, {"Press", 0, 10000, 0}};
    model.Matrix = {{1, 1, 36, 1}, {2, 1, 3.6, 2}};
    return model;
}

PreparedLine BenchOrPress() {
    return Prepare(BenchOrPressModel().Model());
}

const SensitivityRow& RowOf(const std::vector<SensitivityRow>& rows, const std::string& name) {
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const SensitivityRow& each) { return each.Name == name; });
    EXPECT_NE(row, rows.end()) << name;
    return *row;
}

TEST(Sensitivity, FindsTheBreakEvens) {
    const auto rows = SensitivityOf(BenchOrPress(), {6000, 1, {}});
    EXPECT_EQ(rows.size(), 4U + 2 * 7);
    // 1,000 a + 600 = 10,000 a.
    EXPECT_NEAR(RowOf(rows, "Annual capital factor (ACF)").BreakEven.value(), 0.6 / 9, 1e-5);
    EXPECT_NEAR(RowOf(rows, "Bench: variable cost").BreakEven.value(), 15, 1e-3);
    EXPECT_NEAR(RowOf(rows, "Bench: task times").BreakEven.value(), 150, 1e-2);
    EXPECT_NEAR(RowOf(rows, "Bench: fixed cost").BreakEven.value(), 4000, 0.1);
    EXPECT_NEAR(RowOf(rows, "Press: fixed cost").BreakEven.value(), 7000, 0.2);
    EXPECT_NEAR(RowOf(rows, "Press: investment factor (ICF)").BreakEven.value(), 0.7, 1e-4);
    // Labour and transport are 0; the stations have time for more.
    EXPECT_FALSE(RowOf(rows, "Labour cost").BreakEven.has_value());
    EXPECT_FALSE(RowOf(rows, "Bench: uptime").BreakEven.has_value());
    EXPECT_FALSE(RowOf(rows, "Working days per year").BreakEven.has_value());
}

TEST(Sensitivity, CountsAnotherStationAsAChange) {
    // 70,000 units leave 41.14 s for one; 1,000 more units would not matter, 14 % more time does.
    test::ModelScript bench = BenchOrPressModel();
    bench.Resources.pop_back();
    bench.Matrix.pop_back();
    const PreparedLine line = Prepare(bench.Model());
    const auto rows = SensitivityOf(line, {70000, 1, {}}, 0.2);
    const SensitivityRow& times = RowOf(rows, "Bench: task times");
    EXPECT_TRUE(times.Changes);
    EXPECT_NEAR(times.BreakEven.value(), 100 * 8.0 / 7, 0.002);
    EXPECT_NEAR(RowOf(rows, "Working days per year").BreakEven.value(), 87.5, 0.002);
    EXPECT_NEAR(RowOf(rows, "Bench: uptime").BreakEven.value(), 87.5, 0.002);
    EXPECT_EQ(RowOf(rows, "Bench: uptime").High, 100);
    EXPECT_FALSE(RowOf(rows, "Bench: variable cost").Changes);
    const auto within_limit = SensitivityOf(line, {70000, 1, std::int16_t{1}}, 0.2);
    EXPECT_FALSE(RowOf(within_limit, "Bench: task times").CostHigh.has_value());
    EXPECT_TRUE(RowOf(within_limit, "Bench: task times").CostLow.has_value());
    EXPECT_NEAR(RowOf(within_limit, "Bench: task times").BreakEven.value(), 100 * 8.0 / 7, 0.002);
}

TEST(Sensitivity, SeesWhereTheToolChangeGetsLongerThanTheTransport) {
    // A bench for two tasks of 10 s with two tools: 20 s, a tool change, and the longer one of
    // transport and tool change. A second costs 6,000 units x 10 $/h / 3,600 s = 50/3 $ a year.
    const auto break_even = [](double transport, double toolChange, double secondsOfPress,
                               const std::string& name) {
        test::ModelScript model = ShortYear(2);
        model.TransportTime = transport;
        model.Resources = {{"Bench", 0, 100000, 10, 100, 1, toolChange},
                           {"Press", 0, 100000 + secondsOfPress * 500 / 3}};
        model.Matrix = {{1, 1, 10, 1}, {1, 2, 10, 2}, {2, 1, 1, 1}, {2, 2, 1, 1}};
        return RowOf(SensitivityOf(Prepare(model.Model()), {6000, 1, {}}), name).BreakEven.value();
    };
    EXPECT_NEAR(break_even(10, 2, 56, "Bench: tool change time"), 18, 0.001);
    EXPECT_NEAR(break_even(2, 10, 48, "Transport time"), 18, 0.001);
}

TEST(Sensitivity, SortsByTheChangeOfCost) {
    const auto rows = SensitivityOf(BenchOrPress(), {6000, 1, {}});
    const auto strongest = Strongest(rows, 3);
    ASSERT_EQ(strongest.size(), 3U);
    EXPECT_EQ(strongest[0].Name, "Bench: variable cost");
    EXPECT_NEAR(strongest[0].Swing, 60, 1e-3);
    EXPECT_EQ(strongest[1].Name, "Bench: task times");
    EXPECT_EQ(strongest[2].Name, "Annual capital factor (ACF)");
    EXPECT_EQ(Strongest(rows, 100).size(), rows.size());
}

TEST(Sensitivity, RefusesAShareThatCannotBe) {
    for (const double share : {0.0, 1.0, -0.1, std::nan("")}) {
        const std::string message = test::ExpectRunTimeError(ErrorKind::Overflow, [&] {
            std::ignore = SensitivityOf(BenchOrPress(), {6000, 1, {}}, share);
        });
        EXPECT_EQ(message.find("Share: "), 0U) << message;
    }
}

TEST(ModelFigures, AreReadAndWrittenOneByOne) {
    const LineModel model = BenchOrPress().Model;
    for (const ModelFigure& figure : FiguresOf(model)) {
        const LineModel changed = WithValue(model, figure, 77);
        for (const ModelFigure& other : FiguresOf(model)) {
            const bool kept = figure.Kind == FigureKind::TaskTimes || !(other == figure);
            EXPECT_EQ(ValueOf(changed, other), kept ? ValueOf(model, other) : 77)
                << FigureName(model, figure) << ", " << FigureName(model, other);
        }
        const bool times = figure.Kind == FigureKind::TaskTimes;
        EXPECT_DOUBLE_EQ(changed.Entry(1, 1).TaskTime,
                         times && figure.Resource == 1 ? 36 * 0.77 : 36);
        EXPECT_DOUBLE_EQ(changed.Entry(2, 1).TaskTime,
                         times && figure.Resource == 2 ? 3.6 * 0.77 : 3.6);
    }
}

}  // namespace
}  // namespace quarnel02
