// The stochastic design of small random models against all lines at all capacities at which their
// cost may bend or jump.

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "line/RandomDemand.h"
#include "line/RandomLine.h"
#include "line/StochasticDesign.h"
#include "line/StochasticTwin.h"

namespace quarnel02 {
namespace {

using test::OneOf;
using test::Roll;
using test::StochasticTwin;

/// Every station costs labour, so that no cost is 0, which the design would take for 10,000.
test::ModelScript RandomLabouredModel() {
    test::ModelScript model = test::RandomModel(Roll(7, 10));
    model.LaborCost = OneOf({15.0, 22.5});
    model.Demand = test::RandomDemand();
    model.Demand.back().Probability = std::max(model.Demand.back().Probability, 1.0F);
    return model;
}

/// Costs are added as singles: some parts in ten million of the sum of what was added.
bool Near(double a, double b, double scale) {
    return std::fabs(a - b) <= 2e-6 * (std::fabs(scale) + 1);
}

RC_GTEST_PROP(StochasticDesignOfRandomModels, IsTheCheapestOfAllLinesAtAllCapacities, ()) {
    const LineModel model = RandomLabouredModel().Model();
    const float penalty = OneOf({0.0F, 0.5F, 3.0F});
    const StochasticResult result = DesignForDemand(model, penalty);
    const StochasticTwin twin(model, static_cast<double>(penalty));
    const bool feasible = twin.LeastLineCost(twin.Volumes().front()).has_value();
    RC_CLASSIFY(feasible, "feasible");
    RC_ASSERT(result.Line.has_value() == feasible);
    if (!feasible) {
        return;
    }
    const double scale =
        twin.Penalty(twin.Volumes().front()) + static_cast<double>(result.Line->ExpectedCost);
    for (const float volume : twin.Volumes()) {
        const double least = twin.LeastLineCost(volume).value() + twin.Penalty(volume);
        const CurveSegment* const segment = result.ExpectedCosts.At(volume);
        RC_ASSERT(segment != nullptr);
        RC_ASSERT(Near(segment->CostAt(volume), least, std::max(scale, least)));
        RC_ASSERT(static_cast<double>(result.Line->ExpectedCost) <= least + 2e-6 * (scale + 1));
    }
}

RC_GTEST_PROP(StochasticDesignOfRandomModels, CostsWhatItsGroupsAndItsPenaltyCost, ()) {
    const LineModel model = RandomLabouredModel().Model();
    const float penalty = OneOf({0.0F, 0.5F, 3.0F});
    const auto line = DesignForDemand(model, penalty).Line;
    RC_PRE(line.has_value());
    RC_CLASSIFY(line->Groups.size() > 1, "of some groups");
    const StochasticTwin twin(model, static_cast<double>(penalty));
    double sum = twin.Penalty(line->Capacity);
    const double scale = sum + static_cast<double>(line->ExpectedCost);
    RC_ASSERT(Near(line->ExpectedPenalty, sum, scale));
    int next = 1;
    float slowest = 0;
    for (const auto& [group, time, cost] : line->Groups) {
        const auto& [resource, first, last, stations] = group;
        RC_ASSERT(first == next);
        RC_ASSERT(twin.CanDo(resource, first, last));
        RC_ASSERT(stations == twin.Stations(resource, first, last, line->Capacity));
        const double expected = twin.GroupCost(resource, first, last, line->Capacity);
        RC_ASSERT(Near(static_cast<double>(cost), expected, expected));
        sum += expected;
        slowest = std::max(slowest, time);
        next = last + 1;
    }
    RC_ASSERT(next == model.TaskCount() + 1);
    RC_ASSERT(line->CycleTime == slowest);
    RC_ASSERT(Near(static_cast<double>(line->ExpectedCost), sum, scale));
}

RC_GTEST_PROP(StochasticDesignOfRandomModels, CostsOnAverageWhatItsDemandPointsCost, ()) {
    // The charge on capital is due with certainty, whatever the probabilities add up to.
    const LineModel model = RandomLabouredModel().Model();
    const auto line = DesignForDemand(model, OneOf({0.0F, 0.5F, 3.0F})).Line;
    RC_PRE(line.has_value());
    double average = line->FixedCosts;
    for (const DemandOutcome& outcome : line->Outcomes) {
        average += static_cast<double>(outcome.Point.Probability) / 100 *
                   (outcome.TotalCost - line->FixedCosts);
    }
    RC_ASSERT(Near(static_cast<double>(line->ExpectedCost), average, average));
}

RC_GTEST_PROP(StochasticDesignOfRandomModels, DoesNotDependOnTheOrderOfEntry, ()) {
    test::ModelScript model = RandomLabouredModel();
    std::vector<DemandPoint>& demand = model.Demand;
    // Points of one volume are listed in their order.
    std::sort(demand.begin(), demand.end(),
              [](const auto& a, const auto& b) { return a.Volume < b.Volume; });
    demand.erase(std::unique(demand.begin(), demand.end(),
                             [](const auto& a, const auto& b) { return a.Volume == b.Volume; }),
                 demand.end());
    RC_PRE(demand.back().Probability > 0);
    const StochasticResult result = DesignForDemand(model.Model(), 1);
    test::Shuffle(demand);
    const StochasticResult other = DesignForDemand(test::Shuffled(model), 1);
    const auto segments = result.ExpectedCosts.Segments();
    const auto others = other.ExpectedCosts.Segments();
    RC_ASSERT(std::equal(segments.begin(), segments.end(), others.begin(), others.end()));
    RC_ASSERT(result.Line.has_value() == other.Line.has_value());
    if (result.Line) {
        RC_ASSERT(result.Line->Groups == other.Line->Groups);
    }
}

}  // namespace
}  // namespace quarnel02
