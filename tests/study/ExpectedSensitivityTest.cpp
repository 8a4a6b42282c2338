// Sensitivity of stochastic designs, against designs of the changed models.

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

#include "line/RandomDemand.h"
#include "line/RandomLine.h"
#include "study/PenaltyFlips.h"
#include "study/Sensitivity.h"

namespace quarnel02 {
namespace {

using test::OneOf;
using test::Roll;

LineModel RandomStochasticModel() {
    test::ModelScript parts = test::RandomModel(Roll(7, 10));
    constexpr int resources = 2;  // every figure of them takes four designs
    parts.Resources.resize(std::min<std::size_t>(parts.Resources.size(), resources));
    std::erase_if(parts.Matrix, [](const MatrixRow& row) { return row.Resource > resources; });
    parts.LaborCost = OneOf({15.0, 22.5});
    parts.Penalty = OneOf({0.0, 3.0, 40.0});
    parts.Demand = test::RandomDemand();
    constexpr std::size_t points = 3;
    parts.Demand.resize(std::min(parts.Demand.size(), points));
    parts.Demand.back().Probability = std::max(parts.Demand.back().Probability, 1.0F);
    return parts.Model();
}

std::vector<StationGroup> GroupsIn(const StochasticLine& line) {
    std::vector<StationGroup> groups;
    for (const ExpectedGroup& each : line.Groups) {
        groups.push_back(each.Group);
    }
    return groups;
}

/// The penalty's break-even is the nearer flip of the capacity.
void CheckFlip(const ExpectedDesigns& today, const std::vector<ExpectedSensitivityRow>& rows) {
    const auto row = std::find_if(rows.begin(), rows.end(), [](const auto& each) {
        return each.Figure.Kind == FigureKind::Penalty;
    });
    const auto [below, above] = PenaltyFlipsOf(today);
    RC_ASSERT(row->BreakEven.has_value() == (below || above));
    if (row->BreakEven) {
        const double now = static_cast<double>(today.Penalty);
        const double distance = std::fabs(*row->BreakEven - now);
        RC_ASSERT((!below || distance <= now - below->Penalty));
        RC_ASSERT((!above || distance <= above->Penalty - now));
        RC_ASSERT(((below && *row->BreakEven == below->Penalty) ||
                   (above && *row->BreakEven == above->Penalty)));
    }
}

RC_GTEST_PROP(ExpectedSensitivityOfRandomModels, HasTheDesignsOfTheChangedModels, ()) {
    const LineModel model = RandomStochasticModel();
    const auto penalty = static_cast<float>(model.Parameters().Penalty);
    const ExpectedDesigns today = DesignWithCurves(model, penalty);
    const auto rows = SensitivityOf(today, 0.2);
    RC_ASSERT(rows.empty() == !today.Result.Line.has_value());
    for (const ExpectedSensitivityRow& row : rows) {
        bool changes = false;
        double swing = 0;
        for (const auto& [value, cost, capacity] :
             {std::tuple(row.Low, row.CostLow, row.CapacityLow),
              std::tuple(row.High, row.CostHigh, row.CapacityHigh)}) {
            const LineModel changed = WithValue(model, row.Figure, value);
            const auto line =
                DesignForDemand(changed, static_cast<float>(changed.Parameters().Penalty)).Line;
            RC_ASSERT(line.has_value() == cost.has_value());
            if (!line) {
                changes = true;
                continue;
            }
            RC_ASSERT(*cost == line->ExpectedCost);
            RC_ASSERT(capacity == line->Capacity);
            changes = changes || GroupsIn(*line) != GroupsIn(*today.Result.Line);
            swing =
                std::max(swing, std::fabs(static_cast<double>(*cost) -
                                          static_cast<double>(today.Result.Line->ExpectedCost)));
        }
        RC_ASSERT(row.Changes == changes);
        RC_ASSERT(row.Swing == swing);
        RC_ASSERT((row.Figure.Kind == FigureKind::Penalty || !row.BreakEven.has_value()));
    }
    if (!rows.empty()) {
        CheckFlip(today, rows);
    }
}

}  // namespace
}  // namespace quarnel02
