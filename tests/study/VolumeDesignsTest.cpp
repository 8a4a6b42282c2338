// Designs of all volumes from curves, against the fixed and the stochastic design.

#include "study/VolumeDesigns.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>

#include "line/CheapestLine.h"
#include "line/RandomLine.h"
#include "line/StochasticDesign.h"
#include "study/LargestVolume.h"
#include "study/VolumePieces.h"

namespace quarnel02 {
namespace {

using test::OneOf;
using test::Roll;

RC_GTEST_PROP(VolumeDesignsOfRandomModels, CostAtAVolumeWhatTheFixedDesignCosts, ()) {
    const PreparedLine line = Prepare(test::RandomModel(Roll(7, 10)).Model());
    const auto shifts = static_cast<std::int16_t>(Roll(1, 3));
    VolumeSpan span{1, 600000, {}};
    if (Roll(0, 1) == 1) {
        span.StationLimit = static_cast<std::int16_t>(Roll(0, 4));
    }
    const VolumeDesigns designs(line, shifts, span);
    for (int tries = 0; tries < 4; ++tries) {
        const int volume =
            std::min(600000, static_cast<int>(test::RandomVolume(line.Model, shifts)));
        const auto fixed =
            CheapestLine(line, {static_cast<double>(volume), shifts, span.StationLimit});
        const auto design = designs.LineAt(volume);
        RC_ASSERT(design.has_value() == fixed.has_value());
        const GridSegment* const segment = SegmentAt(designs.Costs(), volume);
        RC_ASSERT((segment != nullptr) == fixed.has_value());
        if (fixed) {
            RC_ASSERT(design->Cost == fixed->Cost);
            RC_ASSERT(GroupsOf(*design) == GroupsOf(*fixed));
            const auto cost = static_cast<double>(fixed->Cost);
            RC_ASSERT(std::fabs(segment->CostAt(volume) - cost) <= 2e-6 * cost);
        }
    }
}

RC_GTEST_PROP(VolumeDesignsOfRandomModels, CostWhatTheDesignForACertainDemandCosts, ()) {
    test::ModelScript parts = test::RandomModel(Roll(7, 10));
    parts.LaborCost = OneOf({15.0, 22.5});  // a cost of 0 would count as 10,000
    const PreparedLine line = Prepare(parts.Model());
    const VolumeDesigns designs(line, 3, {1, 400000, {}});
    for (int tries = 0; tries < 4; ++tries) {
        const int volume = Roll(1, 400000);
        parts.Demand = {{static_cast<float>(volume), 100}};
        const auto design = designs.LineAt(volume);
        const auto expected = DesignForDemand(parts.Model(), 0);
        RC_ASSERT(design.has_value() == expected.Line.has_value());
        if (design) {
            const float cost = expected.ExpectedCosts.Segments().front().CostStart;
            RC_ASSERT(std::fabs(cost - design->Cost) < 0.005F);
        }
    }
}

TEST(LargestVolume, IsTheLastOneThatTheStationsMake) {
    Production year;
    year.Days = 100;
    for (const float work : {0.001F, 7.3F, 36.0F, 5000.0F, 3e6F}) {
        for (const int stations : {1, 2, 7, 300}) {
            const int most = LargestVolume(year, 2, work, stations);
            const auto fits = [&](int volume) {
                return StationsFit(work, stations, static_cast<float>(100 * 2 * 28800.0 / volume));
            };
            EXPECT_TRUE(most == 0 || fits(most)) << work << " x" << stations;
            EXPECT_TRUE(most == kMostVolume || !fits(most + 1)) << work << " x" << stations;
        }
    }
    EXPECT_EQ(LargestVolume(year, 1, 36, 1), 80000);
    EXPECT_EQ(LargestVolume(year, 1, 3e6F, 1), 0);
    year.Days = 0;
    EXPECT_EQ(LargestVolume(year, 1, 36, 1), 0);
}

}  // namespace
}  // namespace quarnel02
