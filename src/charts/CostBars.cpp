#include "charts/CostBars.h"

#include <algorithm>
#include <array>
#include <utility>

#include "basic/NumberFormat.h"
#include "picture/Chart.h"
#include "picture/Inks.h"

namespace quarnel02 {

namespace {

struct CostPart {
    const char* Name;
    Colour Fill;
    double Dollars;
};

std::array<CostPart, 4> PartsOf(const CostBar& bar) {
    constexpr Colour machine{239, 140, 24};
    return {{{"Capital", kBlueInk, bar.Figures.Capital},
             {"Machine", machine, bar.Figures.Machine},
             {"Labour", kGreenInk, bar.Figures.Labour},
             {"Penalty", kRedInk, bar.Penalty}}};
}

double SumOf(const CostBar& bar) {
    double sum = 0;
    for (const CostPart& part : PartsOf(bar)) {
        sum += part.Dollars;
    }
    return sum;
}

std::string CostText(double dollars) {
    return Format(dollars, "$#,##0");
}

/// The parts that any of the bars has.
std::vector<LegendEntry> LegendOf(const std::vector<CostBar>& bars) {
    std::vector<LegendEntry> legend;
    for (std::size_t kind = 0; kind < PartsOf(bars.front()).size(); ++kind) {
        const CostPart part = PartsOf(bars.front()).at(kind);
        if (std::any_of(bars.begin(), bars.end(),
                        [kind](const CostBar& bar) { return PartsOf(bar).at(kind).Dollars > 0; })) {
            legend.push_back({part.Name, part.Fill, false, {}});
        }
    }
    return legend;
}

ChartFrame FrameOf(const std::vector<CostBar>& bars, const CostBarTitles& titles) {
    ChartFrame frame;
    frame.Title = titles.Chart;
    frame.X.Title = titles.Bars;
    frame.Y = {0, 1, "Dollars per year", false, true};
    for (const CostBar& bar : bars) {
        frame.Y.High = std::max(frame.Y.High, SumOf(bar));
        frame.Places.push_back(bar.Name);
        frame.BarLabels.push_back(CostText(SumOf(bar)));
        frame.ShortBarLabels.push_back(ShortDollars(SumOf(bar)));
    }
    frame.Legend = LegendOf(bars);
    return frame;
}

void DrawBar(Picture& picture, Chart& chart, const CostBar& bar, double left, double right) {
    double from = 0;
    for (const CostPart& part : PartsOf(bar)) {
        if (part.Dollars > 0) {
            chart.Bar(left, right, from, from + part.Dollars, part.Fill);
            picture.Describe(bar.Name + ": " + part.Name + " " + CostText(part.Dollars) + " of " +
                             CostText(SumOf(bar)) + " a year" +
                             (bar.Words.empty() ? "" : "; " + bar.Words));
            from += part.Dollars;
        }
    }
}

void DrawBars(Picture& picture, const std::vector<CostBar>& bars, const CostBarTitles& titles) {
    constexpr double share_of_place = 0.6;
    constexpr double widest = 1500;
    Chart chart(picture, FrameOf(bars, titles));
    const double half = std::min(share_of_place * (chart.ToX(1) - chart.ToX(0)), widest) / 2;
    for (std::size_t place = 0; place < bars.size(); ++place) {
        const double middle = chart.ToX(static_cast<double>(place) + 0.5);
        DrawBar(picture, chart, bars[place], middle - half, middle + half);
    }
    for (std::size_t place = 0; place < bars.size(); ++place) {
        chart.LabelBar(place, SumOf(bars[place]), kInk);
    }
}

}  // namespace

void DrawCostBars(Picture& picture, std::vector<CostBar> bars, const CostBarTitles& titles) {
    if (bars.empty()) {
        picture.Clear();
        return;
    }
    picture.Compose(
        [all = std::move(bars), titles](Picture& each) { DrawBars(each, all, titles); });
}

}  // namespace quarnel02
