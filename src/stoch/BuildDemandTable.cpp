#include "stoch/BuildDemandTable.h"

#include <algorithm>
#include <string>
#include <vector>

#include "picture/Chart.h"
#include "stoch/RunRecords.h"

namespace quarnel02 {

namespace {

constexpr Colour kBar{21, 101, 192};
constexpr Colour kInk{40, 40, 40};

/// Volumes and probabilities of the points, equal volumes added up.
struct DemandBar {
    double Volume;
    double Prob;
};

std::vector<DemandBar> BarsOf(const DemandDistribution& demand) {
    std::vector<DemandBar> bars;
    for (const DemandPoint& point : demand.Points()) {
        const auto volume = static_cast<double>(point.Volume);
        if (bars.empty() || bars.back().Volume != volume) {
            bars.push_back({volume, 0});
        }
        bars.back().Prob += static_cast<double>(point.Probability);
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

Chart ChartOf(const std::vector<DemandBar>& bars, Picture& picture) {
    constexpr int most_ticks = 8;
    const double highest =
        std::max_element(bars.begin(), bars.end(), [](const DemandBar& a, const DemandBar& b) {
            return a.Prob < b.Prob;
        })->Prob;
    const double room = bars.back().Volume * 0.08;
    return {picture,
            "Demand Distribution",
            {RoundScale(std::max(0.0, bars.front().Volume - room), bars.back().Volume + room,
                        most_ticks),
             "Annual volume", true, false},
            {RoundScale(0, highest * 1.1, 6), "Probability (%)", false, false}};
}

void DrawDemandDistribution(const DemandDistribution& demand, Picture& picture) {
    const auto bars = BarsOf(demand);
    Chart chart = ChartOf(bars, picture);
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

}  // namespace

void BuildDemandTable(const DemandDistribution& demand, const RunFiles& files, Picture& picture) {
    files.Write(kProductionTable, ProductionRecords(demand.Production()));
    DrawDemandDistribution(demand, picture);
}

}  // namespace quarnel02
