// The chosen capacity and design, and every table on the way, against shortest paths at every
// volume where a cost can bend or jump, on small random models.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "stoch/CurveFile.h"
#include "stoch/ProductionFigures.h"
#include "stoch/Records.h"
#include "support/StochBruteForce.h"
#include "support/StochDesk.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::Dice;
using test::ModelScript;
using test::StochBruteForce;
using test::StochDesk;

#if defined(__SANITIZE_ADDRESS__)
constexpr int kModels = 30;
#else
constexpr int kModels = 250;
#endif
constexpr int kBatches = 10;

/// Many small files: in memory, where there is such a place.
class InMemory : public testing::Environment {
  public:
    void SetUp() override {
        if (fs::is_directory("/dev/shm")) {
            ::setenv("TMPDIR", "/dev/shm", 1);
        }
    }
};
[[maybe_unused]] const auto* const kInMemory = testing::AddGlobalTestEnvironment(new InMemory);

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

/// A random model, solved stage by stage, beside its brute force.
class RandomSolve {
  public:
    explicit RandomSolve(unsigned seed) : m_dice(seed) {}

    void Check() {
        if (!Truth.DesignCost(Model.Tasks, Truth.FirstVolume())) {
            EXPECT_THROW(m_desk.Solve(), ProgramEnded);
            return;
        }
        m_desk.BuildDemandTables();
        m_desk.BuildFinalTables();
        for (int end = 1; end <= Model.Tasks; ++end) {
            CheckFinalTable(end, 0);
        }
        AddExpectedPenalties(m_desk.Run);
        CheckFinalTable(Model.Tasks, 1);
        ExtractStochasticSolution(m_desk.Run);
        CheckOptimum();
        CheckDesign();
        CheckFigures();
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
    void CheckFinalTable(int end, int withPenalty) {
        float next = Truth.FirstVolume();
        for (CurveReader<DesignSegment> file(m_desk.Run.Files.Final(end)); !file.AtEnd();
             file.Advance()) {
            const DesignSegment& segment = file.Current();
            EXPECT_EQ(segment.SegStart, next) << "final table " << end;
            EXPECT_LE(segment.SegStart, segment.SegEnd);
            next = std::nextafter(segment.SegEnd, 1e30F);
            const double width = static_cast<double>(segment.SegEnd - segment.SegStart);
            const auto inside = static_cast<float>(static_cast<double>(segment.SegStart) +
                                                   width * m_dice(0, 1000) / 1000);
            for (const float volume : {segment.SegStart, inside, segment.SegEnd}) {
                ExpectTrue(CostAt(segment, volume), end, volume, withPenalty);
            }
        }
        EXPECT_EQ(next, std::nextafter(Truth.LastVolume(), 1e30F)) << "final table " << end;
    }

    void CheckOptimum() const {
        const auto cost = static_cast<double>(m_desk.Run.ExpectedCost);
        ExpectTrue(cost, Model.Tasks, m_desk.Run.Capacity, 1);
        for (const float volume : Truth.Volumes()) {
            const double other = TruthAt(Model.Tasks, volume, 1);
            EXPECT_LE(cost, other + Rounding(volume, other)) << "cheaper at " << volume;
        }
    }

    /// The design is a chain over all tasks whose costs, worked out anew, add up.
    void CheckDesign() const {
        const float capacity = m_desk.Run.Capacity;
        double sum = Truth.Penalty(capacity);
        int end = Model.Tasks;
        for (const SolutionEntry& entry : m_desk.Run.Solution) {
            EXPECT_EQ(entry.EndTask, end);
            ASSERT_TRUE(Truth.CanDo(entry.ArcResource, entry.StartTask, entry.EndTask));
            EXPECT_EQ(entry.ArcInfo,
                      Truth.Stations(entry.ArcResource, entry.StartTask, entry.EndTask, capacity));
            const double cost =
                Truth.ArcCost(entry.ArcResource, entry.StartTask, entry.EndTask, capacity);
            EXPECT_NEAR(static_cast<double>(entry.Cost), cost, Rounding(capacity, cost));
            sum += cost;
            end = entry.StartTask - 1;
        }
        EXPECT_EQ(end, 0);
        EXPECT_NEAR(sum, static_cast<double>(m_desk.Run.ExpectedCost), Rounding(capacity, sum));
    }

    void CheckFigures() const {
        const ProductionFigures figures = FiguresOf(m_desk.Run);
        double percent = 0;
        double expected = 0;
        for (const DemandOutcome& outcome : figures.Outcomes) {
            percent += static_cast<double>(outcome.Prob);
            expected += static_cast<double>(outcome.Prob) / 100 * outcome.TotalCost;
        }
        // Only then do the points' costs weigh as much as the expectations they are part of.
        if (percent == 100) {
            EXPECT_NEAR(expected, figures.SystemCosts, Rounding(figures.Capacity, expected) * 4);
        }
        EXPECT_NEAR(figures.ExpectedPenalty, Truth.Penalty(figures.Capacity),
                    Rounding(figures.Capacity, figures.SystemCosts));
    }

    Dice m_dice;

  public:
    const ModelScript Model = test::RandomStochModel(m_dice);
    const std::string PenaltyText = RandomPenalty(m_dice);
    const StochBruteForce Truth{Model,
                                static_cast<double>(std::strtof(PenaltyText.c_str(), nullptr))};

  private:
    StochDesk m_desk{Model, PenaltyText};
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
