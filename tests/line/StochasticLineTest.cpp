// Choosing the cheapest volume of a curve with penalties, and tracing the line back through the
// curves of the task prefixes.

#include "line/StochasticLine.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/RunTimeErrors.h"
#include "support/StochModels.h"

namespace quarnel02 {
namespace {

using Segments = std::vector<CurveSegment>;

CostCurve CurveOf(const Segments& segments) {
    CostCurve curve;
    for (const CurveSegment& segment : segments) {
        curve.Append(segment);
    }
    return curve;
}

/// Two tasks that either of two ovens can do.
LineModel TwoTasks() {
    test::ModelScript model = test::OvensModel(2, 2);
    model.Matrix = {
        {1, 1, 36, 1, 1000}, {1, 2, 36, 1, 1000}, {2, 1, 36, 1, 1000}, {2, 2, 36, 1, 1000}};
    return model.Model();
}

/// The line of made-up curves; `first` is that of the first task.
std::optional<StochasticLine> LineOf(const Segments& first, const Segments& both) {
    const LineModel model = TwoTasks();
    const DemandDistribution demand(model.Demand());
    const std::vector<CostCurve> prefixes = {CurveOf(first), CurveOf(both)};
    return CheapestLineOf(model, demand, 0, prefixes, prefixes.back());
}

TEST(CheapestPoint, IsTheEarliestOfEqualCosts) {
    const auto line = LineOf({}, {{100000, 150000, 90, 50, {1, 1, 0}},
                                  {NextSingle(150000), 200000, 50, 50, {1, 2, 0}},
                                  {NextSingle(200000), 600000, 50, 70, {1, 3, 0}}});
    ASSERT_TRUE(line);
    EXPECT_EQ(line->Capacity, 150000);
    EXPECT_EQ(line->ExpectedCost, 50);
    ASSERT_EQ(line->Groups.size(), 1U);
    EXPECT_EQ(line->Groups[0].Group, (StationGroup{1, 1, 2, 1}));
}

TEST(CheapestPoint, IsTheStartOfALevelSegment) {
    const auto line = LineOf(
        {}, {{100000, 150000, 90, 60, {1, 1, 0}}, {NextSingle(150000), 600000, 50, 50, {1, 2, 0}}});
    EXPECT_EQ(line.value().Capacity, NextSingle(150000));
}

TEST(CheapestPoint, MayHaveANegativeCost) {
    const auto line = LineOf(
        {}, {{100000, 150000, 90, -1, {1, 1, 0}}, {NextSingle(150000), 600000, 0, -5, {1, 2, 0}}});
    EXPECT_EQ(line.value().Capacity, 600000);
    EXPECT_EQ(line.value().ExpectedCost, -5);
}

TEST(CheapestPoint, OfNoCurveIsNone) {
    EXPECT_FALSE(LineOf({}, {}).has_value());
}

TEST(TracedLine, TakesTheSegmentThatStillHoldsTheVolume) {
    const auto line = LineOf(
        {{100000, 150000, 9, 9, {1, 1, 0}}, {NextSingle(150000), 600000, 5, 5, {1, 2, 0}}},
        {{100000, 150000, 90, 40, {2, 1, 1}}, {NextSingle(150000), 600000, 50, 50, {1, 3, 0}}});
    ASSERT_TRUE(line);
    EXPECT_EQ(line->Capacity, 150000);
    ASSERT_EQ(line->Groups.size(), 2U);
    EXPECT_EQ(line->Groups[0].Group, (StationGroup{1, 1, 1, 1}));
    EXPECT_EQ(line->Groups[1].Group, (StationGroup{2, 2, 2, 1}));
}

TEST(TracedLine, NeedsCurvesThatReachTheVolume) {
    EXPECT_EQ(
        test::ExpectRunTimeError(
            ErrorKind::NoCurrentRecord,
            [] {
                LineOf({{100000, 150000, 9, 9, {1, 1, 0}}}, {{100000, 600000, 90, 40, {2, 1, 1}}});
            }),
        "The final table of a task ends before the chosen capacity.");
}

}  // namespace
}  // namespace quarnel02
