#include "line/Demand.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "line/RandomDemand.h"
#include "line/Singles.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using Points = std::vector<DemandPoint>;

std::vector<ProductionPiece> PiecesOf(const Points& points) {
    const DemandDistribution demand(points);
    const auto pieces = demand.Production().Pieces();
    return {pieces.begin(), pieces.end()};
}

std::vector<ShiftStep> StepsOf(const Points& points) {
    const DemandDistribution demand(points);
    const auto steps = demand.Shifts().Steps();
    return {steps.begin(), steps.end()};
}

// 40 % of 100,000 and 60 % of 200,000: 40,000 + 120,000 on average.
const Points kTwoPoints = {{100000, 40}, {200000, 60}};

TEST(ExpectedProduction, IsTheLowestVolumeThereAndTheMeanFromTheLargestOn) {
    EXPECT_EQ(PiecesOf(kTwoPoints),
              (std::vector<ProductionPiece>{{100000, 200000, 100000, 160000},
                                            {200000, kNoUpperEnd, 160000, 160000}}));
}

TEST(ExpectedProduction, RunsStraightBetweenTwoPoints) {
    const DemandDistribution demand(kTwoPoints);
    EXPECT_EQ(demand.Production().At(150000), 130000);
    EXPECT_EQ(demand.Production().At(200000), 160000);
    EXPECT_EQ(demand.Production().At(5e6F), 160000);
    EXPECT_EQ(demand.Production().ShortfallAt(150000), 30000);
    EXPECT_EQ(demand.Production().ShortfallAt(5e6F), 0);
    EXPECT_EQ(demand.Production().LineEnd(150000), 200000);
    EXPECT_EQ(demand.Production().LineEnd(200000), 200000);
    EXPECT_EQ(demand.Production().LineEnd(NextSingle(200000)), kNoUpperEnd);
}

TEST(ExpectedProduction, OfAnIncompleteDistributionIsShortFromTheLowestVolumeOn) {
    // 0.8 x 100,000; 0.4 x 100,000 + 0.4 x 200,000
    EXPECT_EQ(PiecesOf({{100000, 40}, {200000, 40}}),
              (std::vector<ProductionPiece>{{100000, 200000, 80000, 120000},
                                            {200000, kNoUpperEnd, 120000, 120000}}));
}

TEST(ExpectedProduction, OfADistributionThatIsCompleteToTwoDecimalsIsCertainAtTheLowestVolume) {
    const float third = 33.333F;
    const auto pieces = PiecesOf({{700, third}, {700, third}, {1000, third}});
    EXPECT_EQ(pieces.at(0), (ProductionPiece{700, 700, 700, 700}));
    EXPECT_EQ(pieces.at(1).ProductionLow, 700);
    EXPECT_FLOAT_EQ(pieces.at(1).ProductionHigh, 799.992F);  // 99.999 % of 800, not raised
}

TEST(ExpectedProduction, OfEqualVolumesHasAPieceOfOneVolume) {
    // 0.5 x 100 + 0.2 x 100 + 0.3 x 100 = 100, 0.3 x 100 more at 200
    const Points points = {{100, 50}, {100, 20}, {200, 30}};
    EXPECT_EQ(PiecesOf(points),
              (std::vector<ProductionPiece>{
                  {100, 100, 100, 100}, {100, 200, 100, 130}, {200, kNoUpperEnd, 130, 130}}));
    EXPECT_EQ(DemandDistribution(points).Production().At(100), 100);
    EXPECT_EQ(DemandDistribution(points).Production().At(150), 115);
}

TEST(ExpectedProduction, OfAVolumeOfZeroBeginsThere) {
    EXPECT_EQ(PiecesOf({{0, 20}, {100, 80}}),
              (std::vector<ProductionPiece>{{0, 100, 0, 80}, {100, kNoUpperEnd, 80, 80}}));
}

TEST(ExpectedProduction, BeginsWithTheLowestVolumeOfACompleteDistribution) {
    // Singles of 14.3 and 14.2 add up to 100.0000009, their shares of 12,345.678 to a little more.
    Points points;
    for (const float probability : {14.2F, 14.3F, 14.3F, 14.3F, 14.3F, 14.3F, 14.3F}) {
        points.push_back({12345.678F + 1000 * static_cast<float>(points.size()), probability});
    }
    EXPECT_EQ(PiecesOf(points).front().ProductionLow, 12345.678F);
    EXPECT_EQ(PiecesOf({{12345.678F, 33.33333F}, {20000, 66.66666F}}).front().ProductionLow,
              12345.678F);
}

/// Points close together whose probabilities nearly add up to 100, or do not at all.
Points RandomClosePoints() {
    const int count = test::Roll(2, 10);
    const float volume = static_cast<float>(test::Roll(1, 3000000)) / 7;
    Points points;
    for (int point = 0; point < count; ++point) {
        const double share = 100.0 / count - test::Roll(0, 4) / 1000.0 / count;
        points.push_back({volume + static_cast<float>(test::Roll(0, test::OneOf({1, 100000}))),
                          static_cast<float>(test::OneOf({share, test::Roll(0, 400) / 10.0}))});
    }
    return points;
}

RC_GTEST_PROP(ExpectedProductionOfClosePoints, NeverFallsAndLeavesNoNegativeShortfall, ()) {
    const DemandDistribution demand(RandomClosePoints());
    float before = 0;
    for (const ProductionPiece& piece : demand.Production().Pieces()) {
        RC_ASSERT(piece.ProductionLow >= before);
        RC_ASSERT(piece.ProductionHigh >= piece.ProductionLow);
        before = piece.ProductionHigh;
    }
    const float first = demand.FirstVolume();
    const float last = demand.Points().back().Volume;
    for (int step = 0; step <= 50; ++step) {
        const float capacity = first + (last - first) * static_cast<float>(step) / 50;
        RC_ASSERT(demand.Production().ShortfallAt(capacity) >= 0);
    }
}

TEST(ExpectedShifts, FallFromOneAndAHalfAndThreeTimesAVolumeOn) {
    // 0.4 x 2 + 0.6 x 3; then 0.4 x 1 + 0.6 x 2; both points of 300,000 change at once.
    EXPECT_EQ(StepsOf(kTwoPoints), (std::vector<ShiftStep>{{100000, 150000, 3},
                                                           {150000, 300000, 2.6F},
                                                           {300000, 600000, 1.6F},
                                                           {600000, kNoUpperEnd, 1}}));
}

TEST(ExpectedShifts, ChangeBetweenNeighbouringSingles) {
    const DemandDistribution demand(kTwoPoints);
    const ShiftCurve& shifts = demand.Shifts();
    EXPECT_EQ(shifts.At(PreviousSingle(150000)), 3);
    EXPECT_EQ(shifts.At(150000), static_cast<double>(2.6F));
    EXPECT_EQ(shifts.StepEnd(100000), PreviousSingle(150000));
    EXPECT_EQ(shifts.StepEnd(150000), PreviousSingle(300000));
    EXPECT_EQ(shifts.StepEnd(600000), kNoUpperEnd);
}

TEST(ExpectedShifts, OfAVolumeOfZeroAreOneFromTheStart) {
    // 0.5 x 1 + 0.5 x 3 from 1,000 on, 0.5 x 1 + 0.5 x 2 from 1,500 on.
    EXPECT_EQ(
        StepsOf({{0, 50}, {1000, 50}}),
        (std::vector<ShiftStep>{{1000, 1500, 2}, {1500, 3000, 1.5F}, {3000, kNoUpperEnd, 1}}));
}

TEST(ExpectedShifts, CountDoneStepsBeforeTheFirstVolume) {
    // 0.75 x 1 + 0.25 x 3
    EXPECT_EQ(StepsOf({{0, 50}, {0, 25}, {100, 25}}).front(), (ShiftStep{100, 150, 1.5F}));
}

/// 1.5 and 3 times a single are doubles without rounding.
RC_GTEST_PROP(ShiftsAtADemandOfAnyVolume, ChangeWithTheExpectedShifts, ()) {
    const float volume = static_cast<float>(test::Roll(1, 2000000000)) / 977;
    const DemandDistribution demand(Points{{volume, 100}, {3e9F, 0}});
    for (const auto& [factor, shifts] : {std::pair(1.5, 2), std::pair(3.0, 1)}) {
        const float least = CeilingSingle(factor * static_cast<double>(volume));
        RC_ASSERT(ShiftsAt(volume, least) == shifts);
        RC_ASSERT(ShiftsAt(volume, PreviousSingle(least)) == shifts + 1);
        RC_ASSERT(demand.Shifts().At(least) == shifts);
        RC_ASSERT(demand.Shifts().At(PreviousSingle(least)) == shifts + 1);
    }
}

TEST(ShiftsAtADemand, AreTwoFromOneAndAHalfTimesAndOneFromThreeTimesOn) {
    EXPECT_EQ(ShiftsAt(100, 100), 3);
    EXPECT_EQ(ShiftsAt(100, PreviousSingle(150)), 3);
    EXPECT_EQ(ShiftsAt(100, 150), 2);
    EXPECT_EQ(ShiftsAt(100, PreviousSingle(300)), 2);
    EXPECT_EQ(ShiftsAt(100, 300), 1);
    EXPECT_EQ(ShiftsAt(0, 1), 1);
}

TEST(Distribution, RangesFromTheLowestVolumeAboveZeroToThreeTimesTheLargest) {
    const Points points = {{2000, 10}, {0, 40}, {1000, 50}};
    const DemandDistribution demand(points);
    EXPECT_EQ(demand.FirstVolume(), 1000);
    EXPECT_EQ(demand.LastVolume(), 6000);
    const auto meant = demand.MeantVolumes();
    EXPECT_EQ(std::vector<float>(meant.begin(), meant.end()),
              (std::vector<float>{1000, 1500, 2000, 3000, 3000, 6000}));
}

TEST(Distribution, EndsAtTheFirstSingleWithRoomForThreeTimesTheLargest) {
    const float volume = 1234567.125F;  // three times it lies between two singles
    const DemandDistribution demand(Points{{volume, 100}});
    const double exact = 3.0 * static_cast<double>(volume);
    EXPECT_GT(static_cast<double>(demand.LastVolume()), exact);
    EXPECT_LT(static_cast<double>(PreviousSingle(demand.LastVolume())), exact);
}

TEST(Distribution, TakesTenPoints) {
    EXPECT_EQ(DemandDistribution(Points(10, {1000, 10})).Points().size(), 10U);
    EXPECT_EQ(test::ExpectRunTimeError(ErrorKind::SubscriptOutOfRange,
                                       [] {
                                           DemandDistribution{Points(11, {1000, 10})};
                                       }),
              "Demand has more than 10 points. Remove some of them.");
}

TEST(Distribution, NeedsAVolumeAboveZero) {
    for (const Points& points : {Points{{0, 100}}, Points{}}) {
        EXPECT_EQ(
            test::ExpectRunTimeError(ErrorKind::TypeMismatch, [&] { DemandDistribution{points}; }),
            "Demand has no volume above 0. Enter the volumes of the distribution.");
    }
}

TEST(Distribution, RefusesAProductionBeyondASingle) {
    test::ExpectRunTimeError(ErrorKind::Overflow, [] {
        DemandDistribution{Points{{3e38F, 100}, {3e38F, 100}}};
    });
}

RC_GTEST_PROP(RandomDistributions, ProduceTheSmallerOneOfDemandAndCapacityOnAverage, ()) {
    const Points points = test::RandomDemand();
    const DemandDistribution demand(points);
    // From the lowest point on; below it the first line goes on.
    const float lowest = std::max(demand.Points().front().Volume, demand.FirstVolume());
    const float capacity = lowest * static_cast<float>(test::Roll(100, 900)) / 100;
    double mean = 0;
    double made = 0;
    for (const DemandPoint& point : points) {
        const double share = static_cast<double>(point.Probability) / 100;
        mean += share * static_cast<double>(point.Volume);
        made += share * static_cast<double>(std::min(point.Volume, capacity));
    }
    const double tolerance = 1e-6 * static_cast<double>(demand.LastVolume());
    RC_ASSERT(std::fabs(demand.Production().At(capacity) - made) <= tolerance);
    RC_ASSERT(std::fabs(demand.Production().ShortfallAt(capacity) - (mean - made)) <= tolerance);
}

RC_GTEST_PROP(RandomDistributions, WorkTheShiftsOfEveryPointOnAverage, ()) {
    const Points points = test::RandomDemand();
    const DemandDistribution demand(points);
    for (const ShiftStep& step : demand.Shifts().Steps()) {
        for (const float capacity : {step.Low, NextSingle(step.Low),
                                     std::max(PreviousSingle(step.Low), demand.FirstVolume())}) {
            double expected = 0;
            for (const DemandPoint& point : points) {
                expected +=
                    static_cast<double>(point.Probability) / 100 * ShiftsAt(point.Volume, capacity);
            }
            RC_ASSERT(std::fabs(demand.Shifts().At(capacity) - expected) <= 1e-6);
        }
    }
}

}  // namespace
}  // namespace quarnel02
