// Merging two cost curves into their lower envelope.

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "basic/Files.h"
#include "stoch/BuildFinalTable.h"
#include "stoch/MergeCurves.h"
#include "stoch/Records.h"
#include "support/StochBruteForce.h"

namespace quarnel02 {
namespace {

using test::Dice;

using Curve = std::vector<ArcSegment>;

constexpr double kNextSingle = 1e-4;  // a cost behind a crossing is that of the next volume

double Plain(double cost) {
    return cost;
}

float After(float volume) {
    return std::nextafter(volume, 1e30F);
}

/// Two curves in files, and what became of them.
class Merging {
  public:
    Curve operator()(const Curve& first, const Curve& second, double (*key)(double) = Plain) {
        WriteCurve("TempA", first);
        WriteCurve("IT11", second);
        EndedAt = MergeCurves<ArcSegment>(m_directory.Path() / "TempA", m_directory.Path() / "IT11",
                                          m_directory.Path() / "TempC", key);
        Curve merged;
        for (CurveReader<ArcSegment> file(m_directory.Path() / "TempC"); !file.AtEnd();
             file.Advance()) {
            merged.push_back(file.Current());
        }
        return merged;
    }

    std::optional<float> EndedAt;

  private:
    void WriteCurve(const std::string& name, const Curve& curve) const {
        RecordWriter<ArcSegment> file(m_directory.Path() / name);
        for (const ArcSegment& segment : curve) {
            file.Write(segment);
        }
        file.Close();
    }

    TemporaryDirectory m_directory;
};

std::optional<ArcSegment> SegmentAt(const Curve& curve, float volume) {
    for (const ArcSegment& segment : curve) {
        if (volume <= segment.SegEnd) {
            return segment;
        }
    }
    return std::nullopt;
}

void ExpectSegment(const ArcSegment& segment, const ArcSegment& expected) {
    EXPECT_EQ(segment.SegStart, expected.SegStart);
    EXPECT_EQ(segment.SegEnd, expected.SegEnd);
    EXPECT_NEAR(static_cast<double>(segment.CostStart), static_cast<double>(expected.CostStart),
                kNextSingle);
    EXPECT_NEAR(static_cast<double>(segment.CostEnd), static_cast<double>(expected.CostEnd),
                kNextSingle);
    EXPECT_EQ(segment.Choice, expected.Choice);
}

void ExpectCurve(const Curve& curve, const Curve& expected) {
    ASSERT_EQ(curve.size(), expected.size());
    for (std::size_t i = 0; i < curve.size(); ++i) {
        SCOPED_TRACE(i);
        ExpectSegment(curve[i], expected[i]);
    }
}

TEST(MergeCurves, TakesTheLowerCurveWhole) {
    const Curve low = {{100, 200, 10, 20, 1}, {After(200), 300, 15, 15, 2}};
    const Curve high = {{100, 250, 50, 60, 3}, {After(250), 300, 70, 80, 4}};
    Merging merge;
    ExpectCurve(merge(low, high), low);
    ExpectCurve(merge(high, low), low);
    EXPECT_FALSE(merge.EndedAt.has_value());
}

TEST(MergeCurves, KeepsTheFirstOfEqualCurves) {
    const Curve first = {{100, 300, 10, 20, 1}};
    const Curve second = {{100, 300, 10, 20, 2}};
    Merging merge;
    ExpectCurve(merge(first, second), first);
    ExpectCurve(merge(second, first), second);
}

TEST(MergeCurves, SwitchesBehindTheCrossing) {
    // 10 + (C - 100) / 10 and 30 - (C - 100) / 10 meet at 200
    const Curve rising = {{100, 300, 10, 30, 1}};
    const Curve falling = {{100, 300, 30, 10, 2}};
    Merging merge;
    ExpectCurve(merge(rising, falling), {{100, 200, 10, 20, 1}, {After(200), 300, 20, 10, 2}});
    // the falling one stands from the crossing on where it is the first
    const Curve merged = merge(falling, rising);
    ASSERT_EQ(merged.size(), 2U);
    EXPECT_EQ(merged[0].SegEnd, std::nextafter(200.0F, 0.0F));
    EXPECT_EQ(merged[1].SegStart, 200);
    EXPECT_EQ(merged[1].Choice, 2);
}

TEST(MergeCurves, GoesOnWithTheLongerCurve) {
    const Curve cheap = {{100, 150, 1, 2, 1}};
    const Curve dear = {{100, 200, 10, 20, 2}, {After(200), 300, 20, 20, 3}};
    Merging merge;
    const Curve expected = {
        {100, 150, 1, 2, 1}, {After(150), 200, 15, 20, 2}, {After(200), 300, 20, 20, 3}};
    ExpectCurve(merge(cheap, dear), expected);
    ExpectCurve(merge(dear, cheap), expected);
}

TEST(MergeCurves, OfNothingIsTheOtherCurve) {
    const Curve curve = {{100, 150, 1, 2, 1}, {After(150), 300, 20, 20, 3}};
    Merging merge;
    ExpectCurve(merge({}, curve), curve);
    ExpectCurve(merge(curve, {}), curve);
    ExpectCurve(merge({}, {}), {});
}

TEST(MergeCurves, CountsACostOfZeroAsTenThousandAmongDesigns) {
    EXPECT_EQ(ComparedCost(0), 10000);
    EXPECT_EQ(ComparedCost(-0.0), 10000);
    EXPECT_EQ(ComparedCost(0.001), 0.001);
    EXPECT_EQ(ComparedCost(-5), -5);
    const Curve free = {{100, 300, 0, 0, 1}};
    const Curve paid = {{100, 300, 9000, 9000, 2}};
    const Curve dear = {{100, 300, 11000, 11000, 3}};
    Merging merge;
    ExpectCurve(merge(free, paid, ComparedCost), paid);
    ExpectCurve(merge(free, dear, ComparedCost), free);  // what is stored stays 0
    ExpectCurve(merge(free, paid), free);
}

Curve RandomCurve(Dice& dice, int choices) {
    Curve curve;
    float start = 1000;
    for (int left = dice(1, 8); left > 0; --left) {
        const float end = dice.OneIn(5) ? start : start + static_cast<float>(dice(1, 4000)) / 3;
        const auto cost = static_cast<float>(dice(0, 3000)) / 7;
        const float more =
            dice.OneIn(3) || end == start ? cost : static_cast<float>(dice(0, 3000)) / 7;
        curve.push_back({start, end, cost, more, static_cast<float>(choices + left)});
        start = After(end);
    }
    return curve;
}

/// Volumes of both curves: ends, starts and some between.
std::vector<float> Probes(Dice& dice, const Curve& first, const Curve& second) {
    std::vector<float> volumes;
    for (const Curve& curve : {first, second}) {
        for (const ArcSegment& segment : curve) {
            volumes.insert(volumes.end(), {segment.SegStart, segment.SegEnd});
            const double width = static_cast<double>(segment.SegEnd - segment.SegStart);
            for (int more = 0; more < 5; ++more) {
                volumes.push_back(static_cast<float>(static_cast<double>(segment.SegStart) +
                                                     width * dice(0, 1000) / 1000));
            }
        }
    }
    return volumes;
}

double LowerAt(const Curve& first, const Curve& second, float volume) {
    const auto a = SegmentAt(first, volume);
    const auto b = SegmentAt(second, volume);
    if (!a || !b) {
        return CostAt(a ? *a : b.value(), volume);
    }
    return std::min(CostAt(*a, volume), CostAt(*b, volume));
}

void ExpectWithoutGaps(const Curve& curve, float first, float last) {
    float next = first;
    for (const ArcSegment& segment : curve) {
        EXPECT_EQ(segment.SegStart, next);
        EXPECT_LE(segment.SegStart, segment.SegEnd);
        next = After(segment.SegEnd);
    }
    EXPECT_EQ(next, After(last));
}

TEST(MergeCurves, IsTheLowerEnvelopeOfRandomCurves) {
    Dice dice(11);
    Merging merge;
    for (int round = 0; round < 1000; ++round) {
        SCOPED_TRACE(round);
        const Curve first = RandomCurve(dice, 100);
        const Curve second = RandomCurve(dice, 200);
        const Curve merged = merge(first, second);
        ExpectWithoutGaps(merged, 1000, std::max(first.back().SegEnd, second.back().SegEnd));
        for (const float volume : Probes(dice, first, second)) {
            const auto segment = SegmentAt(merged, volume);
            ASSERT_TRUE(segment.has_value());
            EXPECT_NEAR(CostAt(*segment, volume), LowerAt(first, second, volume), 0.002);
        }
        ASSERT_FALSE(HasFailure());
    }
}

}  // namespace
}  // namespace quarnel02
