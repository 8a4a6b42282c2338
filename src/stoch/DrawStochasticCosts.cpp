#include "stoch/DrawStochasticCosts.h"

#include <algorithm>

#include "basic/NumberFormat.h"
#include "picture/Chart.h"
#include "stoch/CurveFile.h"
#include "stoch/ExpectedShifts.h"

namespace quarnel02 {

namespace {

constexpr Colour kCurve{0, 0, 127};
constexpr Colour kGuide{200, 215, 235};
constexpr Colour kChosen{200, 0, 0};

struct Range {
    double Low;
    double High;
};

/// The curve streams past twice: once for its range, once to be drawn.
Range CostRange(const StochRun& run) {
    CurveReader<DesignSegment> designs(run.Files.Final(run.Tasks));
    Range range{static_cast<double>(run.ExpectedCost), static_cast<double>(run.ExpectedCost)};
    for (; !designs.AtEnd(); designs.Advance()) {
        const auto [low, high] =
            std::minmax(designs.Current().CostStart, designs.Current().CostEnd);
        range.Low = std::min(range.Low, static_cast<double>(low));
        range.High = std::max(range.High, static_cast<double>(high));
    }
    return range;
}

void DrawCurve(const StochRun& run, Chart& chart) {
    for (CurveReader<DesignSegment> designs(run.Files.Final(run.Tasks)); !designs.AtEnd();
         designs.Advance()) {
        const DesignSegment& design = designs.Current();
        chart.Line(static_cast<double>(design.SegStart), static_cast<double>(design.CostStart),
                   static_cast<double>(design.SegEnd), static_cast<double>(design.CostEnd), kCurve,
                   2);
    }
}

}  // namespace

void DrawStochasticCosts(const StochRun& run) {
    constexpr int most_ticks = 8;
    const Range costs = CostRange(run);
    Chart chart(run.Form.picGraph[3], "Expected Annual Cost",
                {RoundScale(static_cast<double>(run.FirstVolume),
                            static_cast<double>(run.LastVolume), most_ticks),
                 "Capacity", true, false},
                {RoundScale(costs.Low - (costs.High - costs.Low) * 0.1, costs.High, 6),
                 "Dollars per year", false, true});
    const ExpectedShifts shifts(run.Files);
    for (const ExpectedShiftRecord& step : shifts.Steps()) {
        if (step.VolHigh != kNoUpperEnd) {
            chart.Guide(static_cast<double>(step.VolHigh), kGuide);
        }
    }
    DrawCurve(run, chart);
    const auto capacity = static_cast<double>(run.Capacity);
    const auto cost = static_cast<double>(run.ExpectedCost);
    chart.Mark(capacity, cost, kChosen);
    chart.LabelBelow(capacity, cost, ThousandsText(capacity) + ": " + Format(cost, "$#,###"),
                     kChosen);
}

}  // namespace quarnel02
