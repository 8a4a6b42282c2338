// Sum and lower envelope of random curves, at their ends, breaks and crossings, the singles beside
// those, and volumes between.

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <set>

#include "line/CostCurve.h"
#include "line/LowerEnvelope.h"
#include "line/RandomLine.h"

namespace quarnel02 {
namespace {

using test::OneOf;
using test::Roll;

constexpr float kStart = 100;

/// Costs come from few values, so that curves often meet, touch and coincide.
float RandomCost() {
    return OneOf({10.0F, 20.0F, 20.0F, 35.5F, 10000.0F, 12345.67F});
}

/// 1 to 6 segments, mostly up to volume 1,000, some of a single volume.
CostCurve RandomCurve(int resource) {
    CostCurve curve;
    float start = kStart;
    const int breaks = Roll(0, 5);
    for (int segment = 0; segment <= breaks; ++segment) {
        const float width = OneOf({0.0F, 1.0F, 50.0F, 77.7F, 200.0F});
        const bool last = segment == breaks && Roll(0, 3) > 0;
        const float end = last ? std::max(start, 1000.0F) : start + width;
        const float cost = RandomCost();
        const bool level = start == end || Roll(0, 1) == 0;
        curve.Append(
            {start,
             end,
             cost,
             level ? cost : RandomCost(),
             {static_cast<std::int16_t>(resource), static_cast<std::int16_t>(Roll(1, 2)), 0}});
        start = NextSingle(end);
    }
    return curve;
}

void AddWithNeighbours(std::set<float>& volumes, float volume) {
    volumes.insert({PreviousSingle(volume), volume, NextSingle(volume)});
}

/// Ends of all segments with their neighbours, and volumes in the middle of each.
std::set<float> VolumesOf(std::initializer_list<const CostCurve*> curves) {
    std::set<float> volumes;
    for (const CostCurve* const curve : curves) {
        for (const CurveSegment& segment : curve->Segments()) {
            AddWithNeighbours(volumes, segment.Start);
            AddWithNeighbours(volumes, segment.End);
            volumes.insert((segment.Start + segment.End) / 2);
        }
    }
    return volumes;
}

/// Cut ends are rounded to singles: one part in some millions of the highest cost.
bool Near(double a, double b) {
    return std::fabs(a - b) <= 0.01;
}

/// Every volume from the first to the last belongs to exactly one segment.
void RequireGapless(const CostCurve& curve) {
    const auto segments = curve.Segments();
    for (std::size_t place = 0; place < segments.size(); ++place) {
        RC_ASSERT(segments[place].Start <= segments[place].End);
        if (place > 0) {
            RC_ASSERT(segments[place].Start == NextSingle(segments[place - 1].End));
        }
    }
}

RC_GTEST_PROP(CurveAlgebraOfRandomCurves, AnEnvelopeIsTheLowerOneEverywhere, ()) {
    const CostCurve first = RandomCurve(1);
    const CostCurve second = RandomCurve(2);
    const CostCurve envelope = LowerEnvelope(first, second, ZeroCost::AsItIs);
    RequireGapless(envelope);
    RC_ASSERT(envelope.Start() == kStart);
    RC_ASSERT(envelope.End() == std::max(first.End(), second.End()));
    for (const float volume : VolumesOf({&first, &second, &envelope})) {
        const CurveSegment* const one = first.At(volume);
        const CurveSegment* const other = second.At(volume);
        const CurveSegment* const lower = envelope.At(volume);
        RC_ASSERT((lower != nullptr) == (one != nullptr || other != nullptr));
        if (lower == nullptr) {
            continue;
        }
        const bool is_first =
            other == nullptr || (one != nullptr && one->CostAt(volume) <= other->CostAt(volume));
        const CurveSegment& expected = is_first ? *one : *other;
        RC_ASSERT(lower->Tag == expected.Tag);
        RC_ASSERT(Near(lower->CostAt(volume), expected.CostAt(volume)));
    }
}

RC_GTEST_PROP(CurveAlgebraOfRandomCurves, AnEnvelopeTakesItsCostsFromItsCurvesToTheBit, ()) {
    const CostCurve first = RandomCurve(1);
    const CostCurve second = RandomCurve(2);
    const CostCurve envelope = LowerEnvelope(first, second, ZeroCost::AsItIs);
    for (const CurveSegment& segment : envelope.Segments()) {
        const CostCurve& source = segment.Tag.Resource == 1 ? first : second;
        RC_ASSERT(static_cast<float>(source.At(segment.Start)->CostAt(segment.Start)) ==
                  segment.CostStart);
        RC_ASSERT(static_cast<float>(source.At(segment.End)->CostAt(segment.End)) ==
                  segment.CostEnd);
    }
}

RC_GTEST_PROP(CurveAlgebraOfRandomCurves, AnEnvelopeWithItselfIsItself, ()) {
    const CostCurve curve = RandomCurve(1);
    const CostCurve envelope = LowerEnvelope(curve, curve, ZeroCost::AsItIs);
    RC_ASSERT(std::equal(curve.Segments().begin(), curve.Segments().end(),
                         envelope.Segments().begin(), envelope.Segments().end()));
}

RC_GTEST_PROP(CurveAlgebraOfRandomCurves, AnEnvelopeIsCutOnlyWhereTheOtherCurveTakesOver, ()) {
    // A rising line, and a falling one that changes its tag several times before they cross.
    const auto cost = [](int low) { return static_cast<float>(Roll(low, low + 9000)) / 7; };
    CostCurve rising;
    rising.Append({kStart, 1000, cost(0), cost(20000), {1, 1, 0}});
    const CurveSegment falling{kStart, 1000, cost(20000), cost(0), {2, 1, 0}};
    CostCurve tagged;
    float start = kStart;
    for (std::int16_t stations = 1; stations <= 9; ++stations) {
        const float end = stations == 9 ? 1000 : start + 37.3F;
        tagged.Append({start,
                       end,
                       static_cast<float>(falling.CostAt(start)),
                       static_cast<float>(falling.CostAt(end)),
                       {2, stations, 0}});
        start = NextSingle(end);
    }
    const CostCurve envelope = LowerEnvelope(rising, tagged, ZeroCost::AsItIs);
    const auto segments = envelope.Segments();
    RC_ASSERT(std::count_if(segments.begin(), segments.end(),
                            [](const CurveSegment& each) { return each.Tag.Resource == 1; }) == 1);
}

RC_GTEST_PROP(CurveAlgebraOfRandomCurves, EnvelopesDoNotDependOnTheirOrderUpToTies, ()) {
    const CostCurve a = RandomCurve(1);
    const CostCurve b = RandomCurve(2);
    const CostCurve c = RandomCurve(3);
    const auto lower = [](const CostCurve& one, const CostCurve& other) {
        return LowerEnvelope(one, other, ZeroCost::AsItIs);
    };
    const CostCurve left = lower(lower(a, b), c);
    const CostCurve right = lower(a, lower(b, c));
    const CostCurve swapped = lower(c, lower(b, a));
    RequireGapless(left);
    for (const float volume : VolumesOf({&a, &b, &c, &left, &right, &swapped})) {
        const CurveSegment* const segment = left.At(volume);
        RC_ASSERT((segment != nullptr) == (right.At(volume) != nullptr));
        RC_ASSERT((segment != nullptr) == (swapped.At(volume) != nullptr));
        if (segment != nullptr) {
            RC_ASSERT(Near(segment->CostAt(volume), right.At(volume)->CostAt(volume)));
            RC_ASSERT(Near(segment->CostAt(volume), swapped.At(volume)->CostAt(volume)));
        }
    }
}

RC_GTEST_PROP(CurveAlgebraOfRandomCurves, AnEnvelopeKeepsZeroWhereTheOtherCurveIsTenThousandAndMore,
              ()) {
    CostCurve free;
    free.Append({kStart, 1000, 0, 0, {1, 1, 0}});
    const CostCurve other = RandomCurve(2);
    const CostCurve envelope = LowerEnvelope(free, other, ZeroCost::AsTenThousand);
    RequireGapless(envelope);
    for (const float volume : VolumesOf({&free, &other, &envelope})) {
        const CurveSegment* const one = free.At(volume);
        const CurveSegment* const two = other.At(volume);
        if (one != nullptr && two != nullptr) {
            const bool free_stands = two->CostAt(volume) >= 10000;
            RC_ASSERT(envelope.At(volume)->Tag == (free_stands ? one->Tag : two->Tag));
        }
    }
}

RC_GTEST_PROP(CurveAlgebraOfRandomCurves, ASumIsTheSumAsFarAsBothReach, ()) {
    const CostCurve last = RandomCurve(1);
    const CostCurve before = RandomCurve(2);
    const CostCurve sum = Sum(last, before, 5);
    RequireGapless(sum);
    RC_ASSERT(sum.Start() == kStart);
    RC_ASSERT(sum.End() == std::min(last.End(), before.End()));
    for (const float volume : VolumesOf({&last, &before, &sum})) {
        const CurveSegment* const segment = sum.At(volume);
        if (segment == nullptr) {
            continue;
        }
        CurveTag tag = last.At(volume)->Tag;
        tag.PreviousTask = 5;
        RC_ASSERT(segment->Tag == tag);
        RC_ASSERT(Near(segment->CostAt(volume),
                       last.At(volume)->CostAt(volume) + before.At(volume)->CostAt(volume)));
    }
}

}  // namespace
}  // namespace quarnel02
