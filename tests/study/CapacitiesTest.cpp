// The best capacities against all lines at all capacities at which their cost may bend or jump.

#include "study/Capacities.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "line/RandomDemand.h"
#include "line/RandomLine.h"
#include "line/StochasticTwin.h"
#include "study/LineText.h"
#include "study/PenaltyFlips.h"
#include "support/StochModels.h"

namespace quarnel02 {
namespace {

using test::OneOf;
using test::Roll;

/// Every station costs labour, so that no cost is 0, which the design would take for 10,000.
LineModel RandomStochasticModel() {
    test::ModelScript parts = test::RandomModel(Roll(7, 10));
    parts.LaborCost = OneOf({15.0, 22.5});
    parts.Demand = test::RandomDemand();
    parts.Demand.back().Probability = std::max(parts.Demand.back().Probability, 1.0F);
    return parts.Model();
}

struct CostAtVolume {
    float Volume = 0;
    double Cost = 0;
};

std::vector<CostAtVolume> CostsByTrying(const LineModel& model, float penalty) {
    const test::StochasticTwin twin(model, static_cast<double>(penalty));
    std::vector<CostAtVolume> costs;
    for (const float volume : twin.Volumes()) {
        if (const auto least = twin.LeastLineCost(volume)) {
            costs.push_back({volume, *least + twin.Penalty(volume)});
        }
    }
    return costs;
}

/// Whether the cost rises clearly on the way from a place in one direction before it falls below
/// what it is there, or never falls below.
template <typename Iterator>
bool IsWalled(Iterator from, Iterator end, double margin) {
    for (Iterator each = from; each != end; ++each) {
        if (each->Cost < from->Cost - margin) {
            return false;
        }
        if (each->Cost > from->Cost + margin) {
            return true;
        }
    }
    return true;
}

RC_GTEST_PROP(CapacitiesOfRandomModels, AreAllLocalMinima, ()) {
    const LineModel model = RandomStochasticModel();
    const float penalty = OneOf({0.0F, 0.5F, 3.0F});
    const std::vector<CostAtVolume> costs = CostsByTrying(model, penalty);
    const auto capacities = BestCapacities(DesignWithCurves(model, penalty), 100000);
    RC_CLASSIFY(capacities.size() > 2, "several");
    RC_ASSERT(capacities.empty() == costs.empty());
    double most = 0;
    for (const CostAtVolume& each : costs) {
        most = std::max(most, each.Cost);
    }
    const double rounding = 4e-6 * (most + 1);
    // Every clear dip is one of the capacities.
    for (auto each = costs.begin(); each != costs.end(); ++each) {
        if (IsWalled(each, costs.end(), 4 * rounding) &&
            IsWalled(std::make_reverse_iterator(each + 1), costs.rend(), 4 * rounding)) {
            RC_ASSERT(
                std::any_of(capacities.begin(), capacities.end(), [&](const Capacity& capacity) {
                    return std::fabs(static_cast<double>(capacity.Line.ExpectedCost) - each->Cost) <
                           8 * rounding;
                }));
        }
    }
    // And every capacity is a dip.
    const test::StochasticTwin twin(model, static_cast<double>(penalty));
    for (const Capacity& capacity : capacities) {
        const float volume = capacity.Line.Capacity;
        const auto own = static_cast<double>(capacity.Line.ExpectedCost);
        const auto cost_at = [&](float other) {
            return twin.LeastLineCost(other).value() + twin.Penalty(other);
        };
        RC_ASSERT(std::fabs(cost_at(volume) - own) < rounding);
        for (const float other : {std::nextafter(volume, 0.0F), std::nextafter(volume, 1e9F)}) {
            if (other >= costs.front().Volume && other <= costs.back().Volume) {
                RC_ASSERT(cost_at(other) > own - rounding);
            }
        }
    }
}

RC_GTEST_PROP(CapacitiesOfRandomModels, SayWhatTheyDoAndCost, ()) {
    const LineModel model = RandomStochasticModel();
    const ExpectedDesigns designs = DesignWithCurves(model, OneOf({0.0F, 0.5F, 3.0F}));
    const auto capacities = BestCapacities(designs);
    RC_ASSERT(capacities.size() <= 10U);
    RC_ASSERT(capacities.empty() == !designs.Result.Line.has_value());
    for (const Capacity& each : capacities) {
        RC_ASSERT(each.Difference >= 0);
        const double sum = each.Table.Totals.Total + each.Line.ExpectedPenalty;
        const auto cost = static_cast<double>(each.Line.ExpectedCost);
        RC_ASSERT(std::fabs(sum - cost) <= 2e-6 * (sum + 1));
        double shortage = 0;
        for (const CapacityOutcome& outcome : each.Outcomes) {
            shortage += outcome.Point.Volume > each.Line.Capacity
                            ? static_cast<double>(outcome.Point.Probability)
                            : 0;
            RC_ASSERT(outcome.Production <= static_cast<double>(outcome.Point.Volume));
            RC_ASSERT(outcome.Utilisation >= 0);
            RC_ASSERT(outcome.Utilisation <= 1 + 1e-6);
        }
        RC_ASSERT(each.ShortageProbability == shortage);
    }
    if (!capacities.empty()) {
        RC_ASSERT(capacities.front().Line.Capacity == designs.Result.Line->Capacity);
        RC_ASSERT(capacities.front().Line.Groups == designs.Result.Line->Groups);
        RC_ASSERT(capacities.front().Line.ExpectedCost == designs.Result.Line->ExpectedCost);
    }
}

RC_GTEST_PROP(PenaltyFlipsOfRandomModels, AreWhereTheCapacityChanges, ()) {
    const LineModel model = RandomStochasticModel();
    const float now = OneOf({0.0F, 0.5F, 3.0F});
    const ExpectedDesigns designs = DesignWithCurves(model, now);
    const PenaltyFlips flips = PenaltyFlipsOf(designs);
    if (!designs.Result.Line) {
        RC_ASSERT(!flips.Above && !flips.Below);
        return;
    }
    const auto cost_at = [&](double penalty) {
        return static_cast<double>(
            DesignForDemand(model, static_cast<float>(penalty)).Line->ExpectedCost);
    };
    /// What the present capacity costs at another penalty.
    const auto stays_at = [&](double penalty) {
        const float capacity = designs.Result.Line->Capacity;
        return designs.Prefixes.back().At(capacity)->CostAt(capacity) +
               designs.Demand.Production().ShortfallAt(capacity) * penalty;
    };
    const auto same = [](double a, double b) { return std::fabs(a - b) <= 1e-5 * (b + 1); };
    const double above = flips.Above ? flips.Above->Penalty : 100;
    RC_CLASSIFY(flips.Above.has_value(), "above");
    RC_CLASSIFY(flips.Below.has_value(), "below");
    for (const double share : {0.1, 0.5, 0.9, 0.999}) {
        const double penalty =
            static_cast<double>(now) + (above - static_cast<double>(now)) * share;
        RC_ASSERT(same(cost_at(penalty), stays_at(penalty)));
        const double lower = flips.Below ? flips.Below->Penalty : 0;
        const double less = static_cast<double>(now) + (lower - static_cast<double>(now)) * share;
        RC_ASSERT(same(cost_at(less), stays_at(less)));
    }
    if (flips.Above) {
        const double beyond = above + 1;
        const float capacity = flips.Above->Capacity;
        const double then = designs.Prefixes.back().At(capacity)->CostAt(capacity) +
                            designs.Demand.Production().ShortfallAt(capacity) * beyond;
        RC_ASSERT(then < stays_at(beyond));
        RC_ASSERT(cost_at(beyond) <= then * (1 + 1e-5));
    }
}

// An oven of 216 s makes 100,000 units a year; each costs 30,000 a year.

TEST(Capacities, StandOnACliff) {
    const LineModel model = test::OvenModel(216).Model();
    const auto capacities = BestCapacities(DesignWithCurves(model, 1));
    // 40 % of 100,000 and 60 % of 200,000: 160,000 expected. One oven leaves 60,000 unmet; two
    // meet all.
    ASSERT_GE(capacities.size(), 2U);
    EXPECT_EQ(capacities[0].Line.Capacity, 200000);
    EXPECT_EQ(capacities[0].Line.ExpectedCost, 60000);
    EXPECT_EQ(capacities[0].UnmetUnits, 0);
    EXPECT_EQ(capacities[0].ShortageProbability, 0);
    EXPECT_EQ(LineText(model, std::vector{capacities[0].Line.Groups[0].Group}), "Oven x2 1");
    EXPECT_EQ(CapacityWord(capacities[0]), "one unit more costs 30,000 more");
    EXPECT_EQ(capacities[1].Line.Capacity, 100000);
    EXPECT_EQ(capacities[1].Line.ExpectedCost, 90000);
    EXPECT_EQ(capacities[1].Difference, 30000);
    EXPECT_NEAR(capacities[1].UnmetUnits, 60000, 0.01);
    EXPECT_EQ(capacities[1].ShortageProbability, 60);
    ASSERT_EQ(capacities[1].Outcomes.size(), 2U);
    EXPECT_EQ(capacities[1].Outcomes[1].Production, 100000);
    EXPECT_EQ(capacities[1].Outcomes[1].Utilisation, 1);
    EXPECT_EQ(capacities[1].Outcomes[1].Penalty, 100000);
    EXPECT_EQ(capacities[1].Outcomes[1].Cost, 130000);
    EXPECT_TRUE(capacities[1].AtFirstVolume);
    EXPECT_FALSE(capacities[1].OneUnitLess.has_value());
    EXPECT_EQ(CapacityWord(capacities[1]),
              "one unit more costs 29,999 more; at the end of the range");
}

TEST(PenaltyFlips, AreWhereTheSecondOvenPays) {
    // The second oven costs 30,000 and meets 60,000 units: half a dollar each.
    const PenaltyFlips flips = PenaltyFlipsOf(DesignWithCurves(test::OvenModel(216).Model(), 1));
    ASSERT_TRUE(flips.Below.has_value());
    EXPECT_NEAR(flips.Below->Penalty, 0.5, 1e-6);
    EXPECT_EQ(flips.Below->Capacity, 100000);
    EXPECT_FALSE(flips.Above.has_value());
    const PenaltyFlips cheap =
        PenaltyFlipsOf(DesignWithCurves(test::OvenModel(216).Model(), 0.25F));
    ASSERT_TRUE(cheap.Above.has_value());
    EXPECT_NEAR(cheap.Above->Penalty, 0.5, 1e-6);
    EXPECT_EQ(cheap.Above->Capacity, 200000);
    EXPECT_FALSE(cheap.Below.has_value());
}

TEST(PenaltyFlips, LeadToTheVolumeFromWhichOnAllIsMet) {
    // An oven of 72 s makes 300,000 units a year for the same 30,000.
    const PenaltyFlips flips = PenaltyFlipsOf(DesignWithCurves(test::OvenModel(72).Model(), 0));
    ASSERT_TRUE(flips.Above.has_value());
    EXPECT_EQ(flips.Above->Penalty, 0);
    EXPECT_EQ(flips.Above->Capacity, 200000);
}

TEST(Capacities, AreNoneWithoutALine) {
    const LineModel model = test::OvensModel(1, 1).Model();
    EXPECT_TRUE(BestCapacities(DesignWithCurves(model, 1)).empty());
    EXPECT_FALSE(PenaltyFlipsOf(DesignWithCurves(model, 1)).Above.has_value());
}

}  // namespace
}  // namespace quarnel02
