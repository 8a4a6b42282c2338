// Round axes and the texts of their ticks.
#include "picture/Chart.h"

#include <gtest/gtest.h>

#include <utility>

#include "support/StochBruteForce.h"

namespace quarnel02 {
namespace {

TEST(RoundScale, HoldsTheRangeInRoundSteps) {
    const AxisScale tens = RoundScale(3, 97, 10);
    EXPECT_EQ(tens.Low, 0);
    EXPECT_EQ(tens.High, 100);
    EXPECT_EQ(tens.Step, 10);
    const AxisScale thousands = RoundScale(100000, 600000, 8);
    EXPECT_EQ(thousands.Low, 100000);
    EXPECT_EQ(thousands.High, 600000);
    EXPECT_EQ(thousands.Step, 100000);
}

TEST(RoundScale, TakesTheSmallestRoundStepThatIsLargeEnough) {
    // 8 steps from 0: of 1, 2, 2.5, 5 and 10.
    const std::pair<double, double> steps[] = {{8, 1},  {9, 2},  {16, 2},  {17, 2.5}, {20, 2.5},
                                               {21, 5}, {40, 5}, {41, 10}, {80, 10}};
    for (const auto& [high, step] : steps) {
        EXPECT_EQ(RoundScale(0, high, 8).Step, step) << high;
        EXPECT_EQ(RoundScale(0, 1000 * high, 8).Step, 1000 * step) << high;
    }
}

TEST(RoundScale, HoldsAnyRangeInAtMostSoManySteps) {
    test::Dice dice(3);
    for (int round = 0; round < 1000; ++round) {
        const double low = dice(0, 100000) / 7.0;
        const double high = low + dice(0, 5000000) / 11.0;
        const int most = dice(3, 9);
        const AxisScale scale = RoundScale(low, high, most);
        EXPECT_LE(scale.Low, low);
        EXPECT_GE(scale.High, high - 1e-9 * high);
        EXPECT_GT(scale.High, scale.Low);
        EXPECT_LE((scale.High - scale.Low) / scale.Step, most + 1e-6) << low << " to " << high;
    }
}

TEST(ThousandsText, EndsInK) {
    EXPECT_EQ(ThousandsText(12500), "12.5K");
    EXPECT_EQ(ThousandsText(600000), "600K");
    EXPECT_EQ(ThousandsText(0), "0K");
    EXPECT_EQ(ThousandsText(999), "0.999K");
}

}  // namespace
}  // namespace quarnel02
