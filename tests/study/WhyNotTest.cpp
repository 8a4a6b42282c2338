// Why there is no line, against the fixed design of all limits, shifts and volumes.

#include "study/WhyNot.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "line/CheapestLine.h"
#include "line/RandomDemand.h"
#include "line/RandomLine.h"
#include "line/StochasticDesign.h"
#include "study/LargestVolume.h"
#include "support/ModelScript.h"

namespace quarnel02 {
namespace {

using test::OneOf;
using test::Roll;

bool HasLine(const PreparedLine& line, FixedDemandRequest request) {
    return CheapestLine(line, request).has_value();
}

/// A year so short that some thousand units need many stations.
PreparedLine RandomShortLine() {
    test::ModelScript parts = test::RandomModel(Roll(6, 10));
    parts.Days = OneOf({0.25, 0.5, 1.0});
    return Prepare(parts.Model());
}

FixedDemandRequest RandomShortRequest() {
    FixedDemandRequest request;
    request.Volume = Roll(1, 3000);
    request.Shifts = static_cast<std::int16_t>(Roll(1, 3));
    if (Roll(0, 3) > 0) {
        request.StationLimit = static_cast<std::int16_t>(Roll(0, 3));
    }
    return request;
}

std::optional<std::int16_t> SmallestLimitByTrying(const PreparedLine& line,
                                                  FixedDemandRequest request) {
    for (std::int16_t limit = 0; limit <= 200; ++limit) {
        request.StationLimit = limit;
        if (HasLine(line, request)) {
            return limit;
        }
    }
    return std::nullopt;
}

std::optional<std::int16_t> FewestShiftsByTrying(const PreparedLine& line,
                                                 FixedDemandRequest request) {
    for (request.Shifts = 1; request.Shifts <= 3; ++request.Shifts) {
        if (HasLine(line, request)) {
            return request.Shifts;
        }
    }
    return std::nullopt;
}

RC_GTEST_PROP(WhyNotOfRandomModels, FindsTheSmallestLimitAndTheFewestShifts, ()) {
    const PreparedLine line = RandomShortLine();
    const FixedDemandRequest request = RandomShortRequest();
    const WhyNot why = ExplainNoLine(line, request);
    RC_CLASSIFY(!why.HasLine, "no line");
    RC_ASSERT(why.HasLine == HasLine(line, request));
    RC_ASSERT(why.SmallestLimit == SmallestLimitByTrying(line, request));
    RC_ASSERT(why.FewestShifts == FewestShiftsByTrying(line, request));
}

RC_GTEST_PROP(WhyNotOfRandomModels, FindsTheLargestVolume, ()) {
    const PreparedLine line = RandomShortLine();
    FixedDemandRequest request = RandomShortRequest();
    request.StationLimit = static_cast<std::int16_t>(Roll(0, 2));
    const int most = ExplainNoLine(line, request).LargestVolume.value_or(0);
    RC_CLASSIFY(most > 0, "some volume");
    RC_PRE(most < 20000);
    for (int volume = 1; volume <= most + 2000; ++volume) {
        request.Volume = volume;
        RC_ASSERT(HasLine(line, request) == (volume <= most));
        volume += volume % 64 == 0 && volume + 70 < most ? 61 : 0;
    }
}

RC_GTEST_PROP(WhyNotOfRandomModels, TellsTasksApart, ()) {
    const PreparedLine line = RandomShortLine();
    const FixedDemandRequest request = RandomShortRequest();
    const WhyNot why = ExplainNoLine(line, request);
    const auto costed = CostAll(line, request);
    for (int task = 1; task <= line.Model.TaskCount(); ++task) {
        bool possible = false;
        bool feasible = false;
        for (std::size_t place = 0; place < line.Pathways.size(); ++place) {
            const Pathway& pathway = line.Pathways[place];
            if (pathway.FirstTask <= task && task <= pathway.LastTask) {
                possible = true;
                feasible = feasible || costed.States[place] == PathwayState::Feasible;
            }
        }
        const auto listed = [&](const std::vector<int>& tasks) {
            return std::find(tasks.begin(), tasks.end(), task) != tasks.end();
        };
        RC_ASSERT(listed(why.ImpossibleTasks) == !possible);
        RC_ASSERT(listed(why.ForbiddenTasks) == (possible && !feasible));
        RC_ASSERT(why.OverloadedTasks.empty());
    }
}

RC_GTEST_PROP(WhyNotOfRandomModels, KnowsWhenTheStochasticDesignHasNoLine, ()) {
    test::ModelScript parts = test::RandomModel(Roll(6, 10));
    parts.Days = OneOf({0.01, 1.0, 240.0});
    parts.Demand = test::RandomDemand();
    const LineModel model = parts.Model();
    const FixedDemandRequest request = LeastExpectedRequest(model);
    const WhyNot why = ExplainNoLine(Prepare(model), request);
    RC_CLASSIFY(!why.HasLine, "no line");
    RC_CLASSIFY(!why.ForbiddenTasks.empty(), "too many stations");
    RC_ASSERT(DesignForDemand(model, 1).Line.has_value() == why.HasLine);
}

/// Three tasks of 10, 40 and 20 s on one resource; nothing can do a fourth one.
test::ModelScript ThreeOfFour() {
    test::ModelScript model;
    model.Tasks = 4;
    model.Days = 100;
    model.ACF = 0;
    model.LaborCost = 0;
    model.Resources.resize(1);
    model.Matrix = {{1, 1, 10, 1}, {1, 2, 40, 1}, {1, 3, 20, 1}};
    return model;
}

TEST(WhyNot, NamesTheTaskThatNobodyCanDo) {
    // One shift leaves 2,880,000 s / 160,000 = 18 s for a unit.
    const FixedDemandRequest request{160000, 1, static_cast<std::int16_t>(1)};
    const WhyNot why = ExplainNoLine(Prepare(ThreeOfFour().Model()), request);
    EXPECT_FALSE(why.HasLine);
    EXPECT_EQ(why.ImpossibleTasks, std::vector<int>{4});
    EXPECT_EQ(why.ForbiddenTasks, (std::vector<int>{2, 3}));
    EXPECT_FALSE(why.SmallestLimit.has_value());
    EXPECT_FALSE(why.FewestShifts.has_value());
    EXPECT_FALSE(why.LargestVolume.has_value());
    EXPECT_EQ(WhyNotText(why, request),
              "Task 4: no resource can do it. Enter a task time in the matrix.\n"
              "Tasks 2 and 3: only the station limit of 1 forbids it.\n");
}

TEST(WhyNot, SaysWhatWouldHaveALine) {
    test::ModelScript model = ThreeOfFour();
    model.Tasks = 3;
    const FixedDemandRequest request{160000, 1, static_cast<std::int16_t>(1)};
    const WhyNot why = ExplainNoLine(Prepare(model.Model()), request);
    EXPECT_EQ(why.SmallestLimit, std::int16_t{3});
    EXPECT_EQ(why.FewestShifts, std::int16_t{3});
    EXPECT_EQ(why.LargestVolume, 72000);
    EXPECT_EQ(WhyNotText(why, request),
              "Tasks 2 and 3: only the station limit of 1 forbids it.\n"
              "There is a line with a station limit of 3 or more.\n"
              "There is a line with 3 shifts.\n"
              "There is a line for up to 72,000 units per year.\n");
}

TEST(WhyNot, TellsAnOverloadFromALimit) {
    const FixedDemandRequest request{1e11, 1, {}};
    const test::ModelScript model = ThreeOfFour();
    const WhyNot why = ExplainNoLine(Prepare(model.Model()), request);
    EXPECT_EQ(why.OverloadedTasks, (std::vector<int>{1, 2, 3}));
    EXPECT_TRUE(why.ForbiddenTasks.empty());
    EXPECT_EQ(WhyNotText(why, request),
              "Task 4: no resource can do it. Enter a task time in the matrix.\n"
              "Tasks 1, 2 and 3: even 32,767 parallel stations are not enough for this volume.\n");
}

TEST(WhyNot, HasNothingToSayWhereThereIsALine) {
    test::ModelScript model = ThreeOfFour();
    model.Tasks = 1;
    model.Matrix.resize(1);
    const WhyNot why = ExplainNoLine(Prepare(model.Model()), {1000, 1, {}});
    EXPECT_TRUE(why.HasLine);
    EXPECT_EQ(WhyNotText(why, {1000, 1, {}}), "");
}

}  // namespace
}  // namespace quarnel02
