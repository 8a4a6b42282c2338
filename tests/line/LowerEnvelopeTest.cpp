#include "line/LowerEnvelope.h"

#include <gtest/gtest.h>

#include <vector>

namespace quarnel02 {
namespace {

constexpr CurveTag kOne{1, 1, 0};
constexpr CurveTag kTwo{2, 1, 0};

CostCurve Straight(float start, float end, float costStart, float costEnd, CurveTag tag) {
    CostCurve curve;
    curve.Append({start, end, costStart, costEnd, tag});
    return curve;
}

std::vector<CurveSegment> LowerOf(const CostCurve& first, const CostCurve& second,
                                  ZeroCost zero = ZeroCost::AsItIs) {
    const CostCurve envelope = LowerEnvelope(first, second, zero);
    return {envelope.Segments().begin(), envelope.Segments().end()};
}

TEST(EnvelopeOfTwoCurves, IsCutWhereTheyCross) {
    // 10 x volume and 30 - 10 x (volume - 1) meet at 2, where the first one still stands.
    const float behind = NextSingle(2);
    const auto falling = [](float volume) { return 40 - 10 * volume; };
    EXPECT_EQ(
        LowerOf(Straight(1, 3, 10, 30, kOne), Straight(1, 3, 30, 10, kTwo)),
        (std::vector<CurveSegment>{{1, 2, 10, 20, kOne}, {behind, 3, falling(behind), 10, kTwo}}));
}

TEST(EnvelopeOfTwoCurves, IsTheFirstOneWhereTheyAreEqual) {
    EXPECT_EQ(LowerOf(Straight(1, 3, 10, 30, kOne), Straight(1, 3, 10, 30, kTwo)),
              (std::vector<CurveSegment>{{1, 3, 10, 30, kOne}}));
}

TEST(EnvelopeOfTwoCurves, IsNotCutByBreaksOfTheDearerOne) {
    CostCurve dearer = Straight(1, 2, 70, 90, kOne);
    dearer.Append({NextSingle(2), 3, 50, 50, kOne});
    EXPECT_EQ(LowerOf(dearer, Straight(1, 3, 10, 31, kTwo)),
              (std::vector<CurveSegment>{{1, 3, 10, 31, kTwo}}));
}

TEST(EnvelopeOfTwoCurves, FollowsAJump) {
    CostCurve jumping = Straight(1, 2, 5, 5, kOne);
    jumping.Append({NextSingle(2), 3, 50, 50, kOne});
    EXPECT_EQ(LowerOf(jumping, Straight(1, 3, 20, 20, kTwo)),
              (std::vector<CurveSegment>{{1, 2, 5, 5, kOne}, {NextSingle(2), 3, 20, 20, kTwo}}));
}

TEST(EnvelopeOfTwoCurves, GoesOnWithTheLongerOneAlone) {
    const std::vector<CurveSegment> expected = {{1, 2, 5, 5, kOne},
                                                {NextSingle(2), 3, 20, 20, kTwo}};
    EXPECT_EQ(LowerOf(Straight(1, 2, 5, 5, kOne), Straight(1, 3, 20, 20, kTwo)), expected);
    EXPECT_EQ(LowerOf(Straight(1, 3, 20, 20, kTwo), Straight(1, 2, 5, 5, kOne)), expected);
}

TEST(EnvelopeOfTwoCurves, IsTheOtherOneWhereOneIsEmpty) {
    const std::vector<CurveSegment> expected = {{1, 2, 5, 6, kOne}};
    EXPECT_EQ(LowerOf(Straight(1, 2, 5, 6, kOne), {}), expected);
    EXPECT_EQ(LowerOf({}, Straight(1, 2, 5, 6, kOne)), expected);
    EXPECT_TRUE(LowerOf({}, {}).empty());
}

TEST(EnvelopeOfTwoCurves, TakesACostOfZeroForTenThousandWhereAsked) {
    const CostCurve free = Straight(1, 3, 0, 0, kOne);
    const CostCurve cheap = Straight(1, 3, 9999, 9999, kTwo);
    const CostCurve dear = Straight(1, 3, 10001, 10001, kTwo);
    EXPECT_EQ(LowerOf(free, cheap).front().Tag, kOne);
    EXPECT_EQ(LowerOf(free, cheap, ZeroCost::AsTenThousand).front().Tag, kTwo);
    EXPECT_EQ(LowerOf(free, dear, ZeroCost::AsTenThousand),
              (std::vector<CurveSegment>{{1, 3, 0, 0, kOne}}));
}

/// The envelope of two curves of which every other single is cheaper.
CostCurve Alternating(std::size_t volumes) {
    CostCurve even;
    CostCurve odd;
    float volume = 1;
    for (std::size_t step = 0; step < volumes; ++step, volume = NextSingle(volume)) {
        const float cost = step % 2 == 0 ? 1 : 5;
        even.Append({volume, volume, cost, cost, kOne});
        odd.Append({volume, volume, 6 - cost, 6 - cost, kTwo});
    }
    return LowerEnvelope(even, odd, ZeroCost::AsItIs);
}

TEST(EnvelopeOfTwoCurves, SaysWhenItIsTooLong) {
    EXPECT_EQ(Alternating(kMostSegments).Segments().size(), kMostSegments);
    EXPECT_EQ(Alternating(kMostSegments).Ending(), CurveEnd::None);
    EXPECT_EQ(Alternating(kMostSegments + 1).Segments().size(), kMostSegments);
    EXPECT_EQ(Alternating(kMostSegments + 1).Ending(), CurveEnd::TooLong);
}

}  // namespace
}  // namespace quarnel02
