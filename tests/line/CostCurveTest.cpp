#include "line/CostCurve.h"

#include <gtest/gtest.h>

#include <vector>

namespace quarnel02 {
namespace {

constexpr CurveTag kOne{1, 1, 0};
constexpr CurveTag kTwo{2, 1, 0};

CostCurve CurveOf(const std::vector<CurveSegment>& segments) {
    CostCurve curve;
    for (const CurveSegment& segment : segments) {
        curve.Append(segment);
    }
    return curve;
}

std::vector<CurveSegment> SegmentsOf(const CostCurve& curve) {
    return {curve.Segments().begin(), curve.Segments().end()};
}

/// From 1 to 2 and from there to 3, on the line of cost 10 x volume.
CurveSegment FirstHalf(CurveTag tag = kOne) {
    return {1, 2, 10, 20, tag};
}
CurveSegment SecondHalf(CurveTag tag = kOne) {
    return {NextSingle(2), 3, 10 * NextSingle(2), 30, tag};
}

TEST(CurveSegments, HaveTheirCostsAtTheirEndsAndRunStraight) {
    const CurveSegment segment{100, 300, 0.1F, 0.7F, kOne};
    EXPECT_EQ(segment.CostAt(100), static_cast<double>(0.1F));
    EXPECT_EQ(segment.CostAt(300), static_cast<double>(0.7F));
    EXPECT_DOUBLE_EQ(segment.CostAt(200),
                     (static_cast<double>(0.1F) + static_cast<double>(0.7F)) / 2);
}

TEST(CurveSegments, OfOneVolumeCostWhatTheyStartWith) {
    EXPECT_EQ((CurveSegment{5, 5, 1, 2, kOne}.CostAt(5)), 1);
}

TEST(Curves, JoinNeighboursOnOneLine) {
    EXPECT_EQ(SegmentsOf(CurveOf({FirstHalf(), SecondHalf()})),
              (std::vector<CurveSegment>{{1, 3, 10, 30, kOne}}));
}

TEST(Curves, KeepNeighboursOfDifferentTagsApart) {
    EXPECT_EQ(CurveOf({FirstHalf(), SecondHalf(kTwo)}).Segments().size(), 2U);
    EXPECT_EQ(CurveOf({FirstHalf(), SecondHalf({1, 2, 0})}).Segments().size(), 2U);
    EXPECT_EQ(CurveOf({FirstHalf(), SecondHalf({1, 1, 7})}).Segments().size(), 2U);
}

TEST(Curves, KeepABendAndAJumpOfOneSingle) {
    CurveSegment bend = SecondHalf();
    bend.CostEnd = 31;
    EXPECT_EQ(CurveOf({FirstHalf(), bend}).Segments().size(), 2U);
    CurveSegment jump = SecondHalf();
    jump.CostStart = NextSingle(jump.CostStart);
    EXPECT_EQ(CurveOf({FirstHalf(), jump}).Segments().size(), 2U);
}

TEST(Curves, KnowTheSegmentOfAVolume) {
    const CostCurve curve = CurveOf({FirstHalf(), SecondHalf(kTwo)});
    EXPECT_EQ(curve.At(PreviousSingle(1)), nullptr);
    EXPECT_EQ(curve.At(1), &curve.Segments()[0]);
    EXPECT_EQ(curve.At(2), &curve.Segments()[0]);
    EXPECT_EQ(curve.At(NextSingle(2)), &curve.Segments()[1]);
    EXPECT_EQ(curve.At(3), &curve.Segments()[1]);
    EXPECT_EQ(curve.At(NextSingle(3)), nullptr);
    EXPECT_EQ(CostCurve().At(1), nullptr);
}

/// Steps of one single each, all at different costs.
CostCurve Stairs(std::size_t steps) {
    CostCurve curve;
    float volume = 1;
    for (std::size_t step = 1; step <= steps; ++step, volume = NextSingle(volume)) {
        const auto cost = static_cast<float>(step * step);
        curve.Append({volume, volume, cost, cost, {static_cast<std::int16_t>(step % 2), 1, 0}});
    }
    return curve;
}

TEST(Curves, TakeTenThousandSegmentsAndSayWhenTheyWouldNeedMore) {
    const CostCurve full = Stairs(kMostSegments);
    EXPECT_EQ(full.Segments().size(), 10000U);
    EXPECT_EQ(full.Ending(), CurveEnd::None);
    const CostCurve longer = Stairs(kMostSegments + 1);
    EXPECT_EQ(SegmentsOf(longer), SegmentsOf(full));
    EXPECT_EQ(longer.Ending(), CurveEnd::TooLong);
    EXPECT_EQ(longer.End(), full.End());
}

TEST(Curves, TakeNothingBehindTheVolumeAtWhichTheyWereFull) {
    CostCurve curve = Stairs(kMostSegments + 1);
    const CurveSegment last = curve.Segments().back();
    const float next = NextSingle(last.End);
    curve.Append({next, next, last.CostEnd, last.CostEnd, last.Tag});
    EXPECT_EQ(curve.End(), last.End);
}

TEST(SumOfCurves, HasABreakWhereEitherOneHas) {
    const CostCurve last = CurveOf({{1, 2, 5, 5, kOne}, {NextSingle(2), 4, 8, 8, kTwo}});
    const CostCurve before =
        CurveOf({{1, 3, 100, 300, {9, 9, 0}}, {NextSingle(3), 4, 50, 50, {8, 8, 0}}});
    const float cost_behind_two =
        static_cast<float>(8 + before.Segments()[0].CostAt(NextSingle(2)));
    EXPECT_EQ(SegmentsOf(Sum(last, before, 6)),
              (std::vector<CurveSegment>{{1, 2, 105, 205, {1, 1, 6}},
                                         {NextSingle(2), 3, cost_behind_two, 308, {2, 1, 6}},
                                         {NextSingle(3), 4, 58, 58, {2, 1, 6}}}));
}

TEST(SumOfCurves, ReachesAsFarAsBoth) {
    const CostCurve shorter = CurveOf({{1, 2, 5, 5, kOne}});
    const CostCurve longer = CurveOf({{1, 4, 10, 40, kTwo}});
    EXPECT_EQ(SegmentsOf(Sum(shorter, longer, 3)),
              (std::vector<CurveSegment>{{1, 2, 15, 25, {1, 1, 3}}}));
    EXPECT_EQ(SegmentsOf(Sum(longer, shorter, 3)),
              (std::vector<CurveSegment>{{1, 2, 15, 25, {2, 1, 3}}}));
    EXPECT_TRUE(Sum(longer, CostCurve(), 3).IsEmpty());
}

TEST(CurvesWithAPreviousTask, CostTheSame) {
    EXPECT_EQ(SegmentsOf(WithPreviousTask(CurveOf({FirstHalf(), SecondHalf(kTwo)}), 4)),
              (std::vector<CurveSegment>{FirstHalf({1, 1, 4}), SecondHalf({2, 1, 4})}));
}

}  // namespace
}  // namespace quarnel02
