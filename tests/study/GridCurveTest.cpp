#include "study/GridCurve.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <optional>

#include "line/RandomLine.h"
#include "study/ArcCurves.h"

namespace quarnel02 {
namespace {

using test::Roll;

GridSegment Level(int from, int to, double cost, std::int16_t resource) {
    return {from, to, cost, 0, {resource, 1, 0}};
}

TEST(Cheaper, KeepsTheFirstCurveWhereBothAreEqual) {
    const GridCurve cheaper = Cheaper({Level(1, 9, 5, 1)}, {Level(1, 9, 5, 2)});
    ASSERT_EQ(cheaper.size(), 1U);
    EXPECT_EQ(cheaper[0].Tag.Resource, 1);
    // Sums of doubles in another order are equal, too.
    const GridCurve sums =
        Cheaper({Level(1, 9, 0.1 + (0.2 + 0.3), 1)}, {Level(1, 9, (0.1 + 0.2) + 0.3, 2)});
    EXPECT_EQ(sums[0].Tag.Resource, 1);
}

TEST(Cheaper, ChangesAtTheFirstStepAtWhichTheOtherCurveIsCheaper) {
    // 10 + s against 18: equal at step 8.
    const GridCurve cheaper = Cheaper({{1, 20, 10, 1, {1, 1, 0}}}, {Level(1, 20, 18, 2)});
    ASSERT_EQ(cheaper.size(), 2U);
    EXPECT_EQ(cheaper[0].To, 8);
    EXPECT_EQ(cheaper[1].From, 9);
    EXPECT_EQ(cheaper[1].Tag.Resource, 2);
    const GridCurve other = Cheaper({Level(1, 20, 18, 2)}, {{1, 20, 10, 1, {1, 1, 0}}});
    EXPECT_EQ(other[0].To, 7);
}

TEST(Cheaper, GoesOnWithTheLongerCurve) {
    const GridCurve cheaper = Cheaper({Level(1, 4, 5, 1)}, {Level(1, 9, 7, 2)});
    ASSERT_EQ(cheaper.size(), 2U);
    EXPECT_EQ(cheaper[0].To, 4);
    EXPECT_EQ(cheaper[1].From, 5);
    EXPECT_EQ(cheaper[1].To, 9);
    EXPECT_EQ(Cheaper({}, {Level(3, 9, 7, 2)}).front().From, 3);
    EXPECT_TRUE(Cheaper({}, {}).empty());
}

TEST(Behind, AddsAsFarAsBothReach) {
    const GridCurve sum =
        Behind({Level(1, 4, 5, 1), Level(5, 9, 6, 1)}, {{1, 7, 1, 2, {2, 1, 0}}}, 3);
    ASSERT_EQ(sum.size(), 2U);
    EXPECT_EQ(sum[1].From, 5);
    EXPECT_EQ(sum[1].To, 7);
    EXPECT_EQ(sum[1].CostAt(6), 6 + 1 + 2 * 6);
    EXPECT_EQ(sum[1].Tag, (GroupTag{1, 1, 3}));
}

TEST(SegmentAt, FindsTheSegmentOfAStep) {
    const GridCurve curve = {Level(3, 4, 5, 1), Level(5, 9, 6, 2)};
    EXPECT_EQ(SegmentAt(curve, 2), nullptr);
    EXPECT_EQ(SegmentAt(curve, 4), &curve[0]);
    EXPECT_EQ(SegmentAt(curve, 5), &curve[1]);
    EXPECT_EQ(SegmentAt(curve, 10), nullptr);
}

/// From step 1 on, in a few pieces with jumps.
GridCurve RandomCurve(std::int16_t resource) {
    GridCurve curve;
    int from = 1;
    for (int pieces = Roll(0, 4); pieces > 0; --pieces) {
        const int to = from + Roll(0, 8);
        curve.push_back({from, to, Roll(0, 20) * 1.0, Roll(-2, 3) * 0.5, {resource, 1, 0}});
        from = to + 1;
    }
    return curve;
}

std::optional<double> CostAt(const GridCurve& curve, int step) {
    const GridSegment* const segment = SegmentAt(curve, step);
    return segment == nullptr ? std::nullopt : std::optional(segment->CostAt(step));
}

RC_GTEST_PROP(CheaperOfRandomCurves, IsTheCheaperOneAtEveryStep, ()) {
    const GridCurve first = RandomCurve(1);
    const GridCurve second = RandomCurve(2);
    const GridCurve cheaper = Cheaper(first, second);
    for (int step = 1; step < 50; ++step) {
        const auto one = CostAt(first, step);
        const auto other = CostAt(second, step);
        const auto both = CostAt(cheaper, step);
        RC_ASSERT(both.has_value() == (one || other));
        if (both) {
            const bool second_counts = !one || (other && *other < *one);
            RC_ASSERT(*both == (second_counts ? *other : *one));
            RC_ASSERT(SegmentAt(cheaper, step)->Tag.Resource == (second_counts ? 2 : 1));
        }
    }
}

TEST(CheapestPrefixes, LeadBackThroughTheGroups) {
    // Both tasks together cost 10, one by one 3 + 4 up to step 5 and 3 + 9 behind it.
    ArcCurves arcs(2);
    arcs.At(1, 1) = {Level(1, 9, 3, 1)};
    arcs.At(2, 2) = {Level(1, 5, 4, 2), Level(6, 9, 9, 2)};
    arcs.At(1, 2) = {Level(1, 9, 10, 3)};
    const auto prefixes = CheapestPrefixes(arcs);
    EXPECT_EQ(GroupsAt(prefixes, 5), (std::vector<StationGroup>{{1, 1, 1, 1}, {2, 2, 2, 1}}));
    EXPECT_EQ(GroupsAt(prefixes, 6), (std::vector<StationGroup>{{3, 1, 2, 1}}));
    EXPECT_EQ(prefixes.back()[0].CostAt(1), 7);
}

}  // namespace
}  // namespace quarnel02
