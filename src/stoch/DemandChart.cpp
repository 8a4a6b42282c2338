#include "stoch/DemandChart.h"

#include <algorithm>

#include "basic/Numbers.h"
#include "picture/Chart.h"
#include "stoch/ExpectedShifts.h"

namespace quarnel02 {

namespace {

constexpr Colour kBar{21, 101, 192};
constexpr Colour kInk{40, 40, 40};
constexpr int kMostTicks = 8;

/// Volumes and probabilities of the points, equal volumes added up.
struct DemandBar {
    double Volume;
    double Prob;
};

std::vector<DemandBar> Bars(const StochRun& run) {
    std::vector<DemandBar> bars;
    for (int point = 1; point <= run.DemandPoints; ++point) {
        const auto volume = static_cast<double>(run.Volume.at(static_cast<std::size_t>(point)));
        const auto prob = static_cast<double>(run.Prob.at(static_cast<std::size_t>(point)));
        if (bars.empty() || bars.back().Volume != volume) {
            bars.push_back({volume, 0});
        }
        bars.back().Prob += prob;
    }
    return bars;
}

/// Wide enough to see, and narrower than the distance of the closest bars.
double BarWidth(const Chart& chart, const std::vector<DemandBar>& bars) {
    double width = chart.PlotWidth() / 14;
    for (std::size_t i = 1; i < bars.size(); ++i) {
        width = std::min(width, 0.7 * (chart.ToX(bars[i].Volume) - chart.ToX(bars[i - 1].Volume)));
    }
    return std::max(width, 2 * kTwipsPerPixel);
}

}  // namespace

void DrawDemandDistribution(const StochRun& run) {
    const auto bars = Bars(run);
    const double highest =
        std::max_element(bars.begin(), bars.end(), [](const DemandBar& a, const DemandBar& b) {
            return a.Prob < b.Prob;
        })->Prob;
    const double room = bars.back().Volume * 0.08;
    Chart chart(run.Form.picGraph[1], "Demand Distribution",
                {RoundScale(std::max(0.0, bars.front().Volume - room), bars.back().Volume + room,
                            kMostTicks),
                 "Annual volume", true, false},
                {RoundScale(0, highest * 1.1, 6), "Probability (%)", false, false});
    const double width = BarWidth(chart, bars);
    double free_from = 0;
    for (const DemandBar& bar : bars) {
        chart.Bar(bar.Volume, bar.Prob, width, kBar);
        const std::string text = ThousandsText(bar.Volume);
        const double half = TextWidth(text, Font{}) / 2;
        if (chart.ToX(bar.Volume) - half >= free_from) {
            chart.LabelAbove(bar.Volume, bar.Prob, text, kInk);
            free_from = chart.ToX(bar.Volume) + half;
        }
    }
}

void DrawShiftTable(const StochRun& run) {
    const ExpectedShifts shifts(run.Files);
    const auto last = static_cast<double>(run.LastVolume);
    const auto most = static_cast<double>(shifts.Steps().front().Shifts);
    Chart chart(run.Form.picGraph[3], "Expected Shifts",
                {RoundScale(static_cast<double>(run.FirstVolume), last, kMostTicks), "Capacity",
                 true, false},
                {RoundScale(0, most, 6), "Shifts per day", false, false});
    double before = most;
    for (const ExpectedShiftRecord& step : shifts.Steps()) {
        const auto low = static_cast<double>(step.VolLow);
        const double high = step.VolHigh == kNoUpperEnd ? last : static_cast<double>(step.VolHigh);
        const auto level = static_cast<double>(step.Shifts);
        chart.Line(low, before, low, level, kBar, 2);
        chart.Line(low, level, high, level, kBar, 2);
        before = level;
    }
}

}  // namespace quarnel02
