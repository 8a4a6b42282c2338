// The chosen capacity and design of a loaded model, and every curve on the way, against shortest
// paths at every volume where a cost can bend or jump, on small random models.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "line/StochasticDesign.h"
#include "shell/LoadLineModel.h"
#include "support/StochBruteForce.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::Dice;
using test::ModelScript;
using test::StochBruteForce;

#if defined(__SANITIZE_ADDRESS__)
constexpr int kModels = 30;
#else
constexpr int kModels = 250;
#endif
constexpr int kBatches = 10;

std::string RandomPenalty(Dice& dice) {
    switch (dice(1, 4)) {
        case 1:
            return "0";
        case 2:
            return "1000000";
        default:
            return NumberText(dice(1, 500) / 100.0);
    }
}

/// Keeps the curves of the task prefixes, the last one without penalties.
class PrefixKeeper : public CurveListener {
  public:
    void Made(const CurveName& name, const CostCurve& curve) override {
        if (name.Stage == CurveStage::Prefix) {
            Prefixes.push_back(curve);
        }
    }

    std::vector<CostCurve> Prefixes;
};

/// A random model, designed beside its brute force.
class RandomSolve {
  public:
    explicit RandomSolve(unsigned seed) : m_dice(seed) {}

    void Check() {
        const LineModel model = LoadLineModel(test::TestModel(Model.Sql()).Open());
        PrefixKeeper kept;
        const auto penalty = std::strtof(PenaltyText.c_str(), nullptr);
        const StochasticResult result = DesignForDemand(model, penalty, kept);
        if (!Truth.DesignCost(Model.Tasks, Truth.FirstVolume())) {
            EXPECT_NE(result.ImpossibleTask, 0);
            return;
        }
        ASSERT_EQ(kept.Prefixes.size(), static_cast<std::size_t>(Model.Tasks));
        for (int end = 1; end <= Model.Tasks; ++end) {
            CheckCurve(kept.Prefixes[static_cast<std::size_t>(end) - 1], end, 0);
        }
        CheckCurve(result.ExpectedCosts, Model.Tasks, 1);
        ASSERT_TRUE(result.Line);
        CheckOptimum(*result.Line);
        CheckDesign(*result.Line);
        CheckFigures(*result.Line);
        ++Solved;
    }

    int Solved = 0;

  private:
    [[nodiscard]] double TruthAt(int end, float volume, int withPenalty) const {
        return *Truth.DesignCost(end, volume) + withPenalty * Truth.Penalty(volume);
    }

    /// Rounding of singles: a share of the cost and of the penalty that is in it.
    [[nodiscard]] double Rounding(float volume, double cost) const {
        return 5e-6 * std::max(1.0, std::max(std::fabs(cost), std::fabs(Truth.Penalty(volume))));
    }

    void ExpectTrue(double cost, int end, float volume, int withPenalty) const {
        const double truth = TruthAt(end, volume, withPenalty);
        EXPECT_NEAR(cost, truth, Rounding(volume, truth)) << "tasks 1-" << end << " at " << volume;
    }

    /// One segment for every volume from the first to the last, each of them attained.
    void CheckCurve(const CostCurve& curve, int end, int withPenalty) {
        float next = Truth.FirstVolume();
        for (const CurveSegment& segment : curve.Segments()) {
            EXPECT_EQ(segment.Start, next) << "final table " << end;
            EXPECT_LE(segment.Start, segment.End);
            next = std::nextafter(segment.End, 1e30F);
            const double width = static_cast<double>(segment.End - segment.Start);
            const auto inside = static_cast<float>(static_cast<double>(segment.Start) +
                                                   width * m_dice(0, 1000) / 1000);
            for (const float volume : {segment.Start, inside, segment.End}) {
                ExpectTrue(segment.CostAt(volume), end, volume, withPenalty);
            }
        }
        EXPECT_EQ(next, std::nextafter(Truth.LastVolume(), 1e30F)) << "final table " << end;
    }

    void CheckOptimum(const StochasticLine& line) const {
        ExpectTrue(static_cast<double>(line.ExpectedCost), Model.Tasks, line.Capacity, 1);
        for (const float volume : Truth.Volumes()) {
            const double other = TruthAt(Model.Tasks, volume, 1);
            EXPECT_LE(static_cast<double>(line.ExpectedCost), other + Rounding(volume, other))
                << "cheaper at " << volume;
        }
    }

    /// The line is a chain over all tasks whose costs, worked out anew, add up.
    void CheckDesign(const StochasticLine& line) const {
        const float capacity = line.Capacity;
        double sum = Truth.Penalty(capacity);
        int next = 1;
        for (const auto& [group, time, expected] : line.Groups) {
            const auto& [resource, first, last, stations] = group;
            EXPECT_EQ(first, next);
            ASSERT_TRUE(Truth.CanDo(resource, first, last));
            EXPECT_EQ(stations, Truth.Stations(resource, first, last, capacity));
            const double cost = Truth.ArcCost(resource, first, last, capacity);
            EXPECT_NEAR(static_cast<double>(expected), cost, Rounding(capacity, cost));
            sum += cost;
            next = last + 1;
        }
        EXPECT_EQ(next, Model.Tasks + 1);
        EXPECT_NEAR(sum, static_cast<double>(line.ExpectedCost), Rounding(capacity, sum));
    }

    void CheckFigures(const StochasticLine& line) const {
        double percent = 0;
        double expected = 0;
        for (const DemandOutcome& outcome : line.Outcomes) {
            percent += static_cast<double>(outcome.Point.Probability);
            expected += static_cast<double>(outcome.Point.Probability) / 100 * outcome.TotalCost;
        }
        const auto cost = static_cast<double>(line.ExpectedCost);
        // Only then do the points' costs weigh as much as the expectations they are part of.
        if (percent == 100) {
            EXPECT_NEAR(expected, cost, Rounding(line.Capacity, expected) * 4);
        }
        EXPECT_NEAR(line.ExpectedPenalty, Truth.Penalty(line.Capacity),
                    Rounding(line.Capacity, cost));
    }

    Dice m_dice;

  public:
    const ModelScript Model = test::RandomStochModel(m_dice);
    const std::string PenaltyText = RandomPenalty(m_dice);
    const StochBruteForce Truth{Model,
                                static_cast<double>(std::strtof(PenaltyText.c_str(), nullptr))};
};

class RandomModels : public testing::TestWithParam<int> {};

TEST_P(RandomModels, AreDesignedAtLowestExpectedCost) {
    int solved = 0;
    for (int number = 0; number < kModels; ++number) {
        const auto seed = static_cast<unsigned>(GetParam() * kModels + number);
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomSolve solve(seed);
        solve.Check();
        solved += solve.Solved;
        if (HasFailure()) {
            return;
        }
    }
    EXPECT_GT(solved, kModels / 2);
}

INSTANTIATE_TEST_SUITE_P(StochBruteForce, RandomModels, testing::Range(0, kBatches));

}  // namespace
}  // namespace quarnel02
