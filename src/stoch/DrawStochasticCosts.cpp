#include "stoch/DrawStochasticCosts.h"

#include <algorithm>

#include "basic/NumberFormat.h"
#include "picture/Chart.h"

namespace quarnel02 {

namespace {

constexpr Colour kCurve{0, 0, 127};
constexpr Colour kGuide{200, 215, 235};
constexpr Colour kChosen{200, 0, 0};

struct Range {
    double Low;
    double High;
};

Range RangeOf(const CostCurve& costs, float chosen) {
    Range range{static_cast<double>(chosen), static_cast<double>(chosen)};
    for (const CurveSegment& segment : costs.Segments()) {
        const auto [low, high] = std::minmax(segment.CostStart, segment.CostEnd);
        range.Low = std::min(range.Low, static_cast<double>(low));
        range.High = std::max(range.High, static_cast<double>(high));
    }
    return range;
}

void DrawGuides(const ShiftCurve& shifts, Chart& chart) {
    for (const ShiftStep& step : shifts.Steps()) {
        if (step.High != kNoUpperEnd) {
            chart.Guide(static_cast<double>(step.High), kGuide);
        }
    }
}

void DrawCurve(const CostCurve& costs, Chart& chart) {
    for (const CurveSegment& segment : costs.Segments()) {
        chart.Line(static_cast<double>(segment.Start), static_cast<double>(segment.CostStart),
                   static_cast<double>(segment.End), static_cast<double>(segment.CostEnd), kCurve,
                   2);
    }
}

}  // namespace

void DrawStochasticCosts(const StochasticLine& line, const CostCurve& expectedCosts,
                         const DemandDistribution& demand, Picture& picture) {
    constexpr int most_ticks = 8;
    const Range costs = RangeOf(expectedCosts, line.ExpectedCost);
    Chart chart(picture, "Expected Annual Cost",
                {RoundScale(static_cast<double>(demand.FirstVolume()),
                            static_cast<double>(demand.LastVolume()), most_ticks),
                 "Capacity", true, false},
                {RoundScale(costs.Low - (costs.High - costs.Low) * 0.1, costs.High, 6),
                 "Dollars per year", false, true});
    DrawGuides(demand.Shifts(), chart);
    DrawCurve(expectedCosts, chart);
    const auto capacity = static_cast<double>(line.Capacity);
    const auto cost = static_cast<double>(line.ExpectedCost);
    chart.Mark(capacity, cost, kChosen);
    chart.LabelBelow(capacity, cost, ThousandsText(capacity) + ": " + Format(cost, "$#,###"),
                     kChosen);
}

}  // namespace quarnel02
