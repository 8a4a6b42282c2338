#include "line/Singles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quarnel02 {
namespace {

using Limits = std::numeric_limits<float>;

TEST(NextSingles, AreThoseOfTheLibrary) {
    for (const float value : {0.0F, -0.0F, Limits::denorm_min(), Limits::min(), 1.0F,
                              PreviousSingle(2), 2.0F, 120000.0F, Limits::max(), Limits::infinity(),
                              -1.0F, -Limits::denorm_min(), -Limits::max(), -Limits::infinity()}) {
        EXPECT_EQ(NextSingle(value), std::nextafter(value, Limits::infinity())) << value;
    }
}

TEST(NextSingles, AreUndoneByThePreviousOnes) {
    for (const float value : {1.0F, 2.0F, 16777216.0F, 0.1F}) {
        EXPECT_EQ(PreviousSingle(NextSingle(value)), value);
        EXPECT_LT(PreviousSingle(value), value);
    }
}

TEST(CeilingSingles, AreNeverBelowTheValue) {
    EXPECT_EQ(CeilingSingle(0.5), 0.5F);
    EXPECT_EQ(CeilingSingle(16777217.0), 16777218.0F);  // between two singles
    EXPECT_EQ(CeilingSingle(16777219.0), 16777220.0F);
}

TEST(MiddleSingles, HalveTheSinglesBetweenTwo) {
    EXPECT_EQ(MiddleSingle(1, 1), 1);
    EXPECT_EQ(MiddleSingle(1, NextSingle(1)), 1);
    EXPECT_EQ(MiddleSingle(1, NextSingle(NextSingle(1))), NextSingle(1));
    EXPECT_EQ(MiddleSingle(1, 4), 2);
}

TEST(StraightLines, MeetBothEndsAndAreLevelAtTheFirstOfOneX) {
    const StraightLine line(1, 0.1F, 3, 0.7F);
    EXPECT_EQ(line.At(1), static_cast<double>(0.1F));
    EXPECT_EQ(line.At(3), static_cast<double>(0.7F));
    EXPECT_EQ(StraightLine(2, 5, 2, 9).At(2), 5);
}

}  // namespace
}  // namespace quarnel02
