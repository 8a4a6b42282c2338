#include "line/ResourceCurve.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "line/CostModel.h"
#include "line/RandomLine.h"
#include "support/StochModels.h"

namespace quarnel02 {
namespace {

using test::OvenModel;

CostCurve CurveOfOven(const test::ModelScript& script) {
    const LineModel model = script.Model();
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
    test::ModelScript model = OvenModel(36);  // a station serves 600,000 units
    model.LaborCost = 10;
    const CostCurve curve = CurveOfOven(model);
    const CurveTag one{1, 1, 0};
    EXPECT_EQ(SegmentsOf(curve),
              (std::vector<CurveSegment>{{100000, PreviousSingle(150000), 90000, 90000, one},
                                         {150000, PreviousSingle(300000), 82000, 82000, one},
                                         {300000, PreviousSingle(600000), 62000, 62000, one},
                                         {600000, 600000, 50000, 50000, one}}));
}

TEST(ResourceCurveOverCapacity, RisesWithTheExpectedProduction) {
    test::ModelScript model = OvenModel(36);
    model.Resources[0].VarCost = 36;  // 0.01 a second: 0.36 a unit
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

/// The curve of a resource on a range of tasks has, at a capacity, the cost of a fixed demand.
void CheckAgainstFixedDemand(const LineModel& model, int resource, int first, int last,
                             std::int16_t shifts, float capacity) {
    const WorkContent content =
        ContentOf(model.Entries(resource, first, last), model.ResourceOf(resource),
                  model.Parameters().TransportTime);
    const double demand = static_cast<double>(model.Demand().front().Volume);
    const PathwayCost fixed =
        CostOfGroup(content, model.ResourceOf(resource), model.Parameters(),
                    {demand, shifts, model.Parameters().Days * shifts * 8 * 3600 / demand});
    const CostCurve curve =
        ResourceCurve(model, DemandDistribution(model.Demand()), resource, content);
    const CurveSegment* const segment = curve.At(capacity);
    RC_ASSERT(segment != nullptr);
    RC_ASSERT(static_cast<float>(segment->CostAt(capacity)) == fixed.Cost);
    RC_ASSERT(segment->Tag == (CurveTag{static_cast<std::int16_t>(resource), fixed.Stations, 0}));
}

/// Capacity v works a certain demand v in three shifts, 1.5 v in two and 3 v in one.
RC_GTEST_PROP(ResourceCurveOfACertainDemand, CostsWhatAFixedDemandCosts, ()) {
    test::ModelScript parts = test::RandomModel(10);
    const float volume = static_cast<float>(test::Roll(20, 4000)) * 100;
    parts.Demand = {{volume, 100}};
    const LineModel model = parts.Model();
    const int last = test::Roll(1, model.TaskCount());
    const int first = test::Roll(1, last);
    const int resource = test::Roll(1, model.ResourceCount());
    const auto entries = model.Entries(resource, first, last);
    RC_PRE(std::all_of(entries.begin(), entries.end(),
                       [](const MatrixEntry& entry) { return entry.CanDo(); }));
    for (const auto& [shifts, factor] :
         {std::pair(3, 1.0F), std::pair(2, 1.5F), std::pair(1, 3.0F)}) {
        CheckAgainstFixedDemand(model, resource, first, last, static_cast<std::int16_t>(shifts),
                                factor * volume);
    }
}

/// Times in tenths of a second that fill a cycle of a round time exactly.
std::vector<double> FillingTimes(int tenths) {
    std::vector<double> times;
    const int parts = test::Roll(2, 6);
    for (int left = parts - 1; left > 0; --left) {
        const int share = test::Roll(1, tenths - left);
        times.push_back(share / 10.0);
        tenths -= share;
    }
    times.push_back(tenths / 10.0);
    return times;
}

RC_GTEST_PROP(ResourceCurveOfAFullStation, NeedsNoFurtherOne, ()) {
    const int cycle = 60 * test::Roll(1, 5);
    const int stations = test::Roll(1, 4);
    test::ModelScript filled = test::OvensModel(0, 1);
    for (const double time : FillingTimes(10 * cycle * stations)) {
        filled.Matrix.push_back({1, ++filled.Tasks, time, 1, 500});
    }
    const int tasks = filled.Tasks;
    const auto volume = static_cast<float>(21600000 / cycle);
    filled.Demand = {{volume / 3, 50}, {volume, 50}};
    const LineModel model = filled.Model();
    const CostCurve curve =
        ResourceCurve(model, DemandDistribution(model.Demand()), 1,
                      ContentOf(model.Entries(1, 1, tasks), model.ResourceOf(1), 0));
    RC_ASSERT(curve.At(volume) != nullptr);
    RC_ASSERT(curve.At(volume)->Tag.Stations == stations);
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
}  // namespace quarnel02
