#include "line/ResourceCurve.h"

#include <gtest/gtest.h>

#include <vector>

#include "line/StochasticModels.h"

namespace quarnel02::line {
namespace {

using test::OvenModel;

CostCurve CurveOfOven(const LineModel& model) {
    const DemandDistribution demand(model.Demand());
    return ResourceCurve(model, demand, 1,
                         ContentOf(model.Entries(1, 1, 1), model.ResourceOf(1), 0));
}

std::vector<CurveSegment> SegmentsOf(const CostCurve& curve) {
    return {curve.Segments().begin(), curve.Segments().end()};
}

TEST(ResourceCurveOverCapacity, StepsUpWithEveryStation) {
    std::vector<CurveSegment> expected = {{100000, 100000, 30000, 30000, {1, 1, 0}}};
    for (int stations = 2; stations <= 6; ++stations) {
        const auto count = static_cast<float>(stations);
        expected.push_back({NextSingle((count - 1) * 100000),
                            count * 100000,
                            count * 30000,
                            count * 30000,
                            {1, static_cast<std::int16_t>(stations), 0}});
    }
    const CostCurve curve = CurveOfOven(OvenModel(216));
    EXPECT_EQ(SegmentsOf(curve), expected);
    EXPECT_EQ(curve.Ending(), CurveEnd::None);
}

TEST(ResourceCurveOverCapacity, StepsDownWithTheShifts) {
    // One worker per station: 8 h x 250 x 10 = 20,000 a year per shift; shifts 3, 2.6, 1.6 and 1.
    const CostCurve curve = CurveOfOven(OvenModel(36, 10));  // a station serves 600,000 units
    const CurveTag one{1, 1, 0};
    EXPECT_EQ(SegmentsOf(curve),
              (std::vector<CurveSegment>{{100000, PreviousSingle(150000), 90000, 90000, one},
                                         {150000, PreviousSingle(300000), 82000, 82000, one},
                                         {300000, PreviousSingle(600000), 62000, 62000, one},
                                         {600000, 600000, 50000, 50000, one}}));
}

TEST(ResourceCurveOverCapacity, RisesWithTheExpectedProduction) {
    Production year = test::YearOfSeconds(0);
    Resource oven = test::Oven(1);
    oven.VarCost = 36;  // 0.01 a second: 0.36 a unit
    const LineModel model(year, {oven}, test::TasksTo(1),
                          std::vector<MatrixRow>{{1, 1, {36, 7, 1000}}}, test::kTwoVolumes);
    const CurveTag one{1, 1, 0};
    const std::vector<CurveSegment> segments = SegmentsOf(CurveOfOven(model));
    EXPECT_EQ(segments.front().CostStart, 30000 + 36000);  // makes 100,000
    EXPECT_EQ(segments.back(), (CurveSegment{NextSingle(200000), 600000, 30000 + 57600,
                                             30000 + 57600, one}));  // makes 160,000
}

TEST(ResourceCurveOverCapacity, MayBeExactlyFullUpToADemandVolumeOnly) {
    // Over 216 s by half a part in a million.
    const CostCurve curve = CurveOfOven(OvenModel(216 * (1 + 5e-7)));
    const auto segments = curve.Segments();
    EXPECT_EQ(segments[0].Tag.Stations, 1);  // at 100,000, a demand volume
    EXPECT_EQ(segments[1].End, 200000);      // 2 stations at 200,000, another one
    EXPECT_EQ(segments[1].Tag.Stations, 2);
    EXPECT_EQ(segments[2].End, 300000);  // 1.5 times that
    EXPECT_LT(segments[3].End, 400000);  // nobody means 400,000
    EXPECT_GT(segments[3].End, 399999);
}

TEST(ResourceCurveOverCapacity, EndsAtFourThousandAndNinetyFiveStations) {
    const CostCurve curve = CurveOfOven(OvenModel(216 * 1000.0));  // a station serves 100 units
    EXPECT_EQ(curve.End(), 409500);
    EXPECT_EQ(curve.Segments().back().Tag.Stations, 4095);
    EXPECT_EQ(curve.Ending(), CurveEnd::TooManyStations);
}

TEST(ResourceCurveOverCapacity, IsEmptyWhereTheFirstVolumeNeedsMore) {
    const CostCurve curve = CurveOfOven(OvenModel(216 * 5000.0));
    EXPECT_TRUE(curve.IsEmpty());
    EXPECT_EQ(curve.Ending(), CurveEnd::TooManyStations);
}

}  // namespace
}  // namespace quarnel02::line
