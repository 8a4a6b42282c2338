#include "stoch/DrawDemand.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "picture/Chart.h"
#include "picture/Inks.h"

namespace quarnel02 {

namespace {

using Points = std::vector<DemandPoint>;

/// Points that share a bar.
struct DemandBar {
    Points Members;

    [[nodiscard]] double First() const { return static_cast<double>(Members.front().Volume); }
    [[nodiscard]] double Last() const { return static_cast<double>(Members.back().Volume); }
    [[nodiscard]] double Middle() const { return (First() + Last()) / 2; }
    [[nodiscard]] double Sum() const {
        double sum = 0;
        for (const DemandPoint& point : Members) {
            sum += DecimalOfSingle(point.Probability);
        }
        return sum;
    }
};

std::string ShareText(double percent) {
    return NumberText(std::round(percent * 100) / 100) + "%";
}

std::string LabelOf(const DemandBar& bar) {
    return bar.Members.size() == 1 ? ShareText(bar.Sum())
                                   : NumberText(static_cast<int>(bar.Members.size())) +
                                         " points: " + ShareText(bar.Sum());
}

/// "60,000 units: 40%", and the points of a bar that several share.
std::string WordsOf(const DemandBar& bar) {
    std::string words;
    for (const DemandPoint& point : bar.Members) {
        const double volume = DecimalOfSingle(point.Volume);
        words += (words.empty() ? "" : "; ") +
                 (volume == std::floor(volume) ? Format(volume, "#,##0") : NumberText(volume)) +
                 " units: " + ShareText(DecimalOfSingle(point.Probability));
    }
    return bar.Members.size() == 1 ? words : LabelOf(bar) + " (" + words + ")";
}

/// Neighbours whose volumes are at most so far apart share a bar.
std::vector<DemandBar> BarsOf(const Points& points, double apart) {
    std::vector<DemandBar> bars;
    for (const DemandPoint& point : points) {
        const auto volume = static_cast<double>(point.Volume);
        if (bars.empty() || volume - bars.back().Last() > apart) {
            bars.emplace_back();
        }
        bars.back().Members.push_back(point);
    }
    return bars;
}

double HighestOf(const std::vector<DemandBar>& bars) {
    double highest = 0;
    for (const DemandBar& bar : bars) {
        highest = std::max(highest, bar.Sum());
    }
    return highest;
}

ChartFrame FrameOf(const Points& points, double highest) {
    constexpr double share_of_span = 0.15;
    constexpr double share_of_volume = 0.02;
    const auto first = static_cast<double>(points.front().Volume);
    const auto last = static_cast<double>(points.back().Volume);
    const double room = std::max(share_of_span * (last - first), share_of_volume * last);
    return {"Demand Distribution",
            {std::max(0.0, first - room), last + room, "Annual volume (units)", true, false},
            {0, highest, "Probability (%)", false, false},
            {},
            {},
            true};
}

/// Volumes to the twip.
double VolumePerTwip(const Chart& chart) {
    return 1 / (chart.ToX(1) - chart.ToX(0));
}

/// Half the width of bars: as wide as the closest two leave room for.
double HalfBar(const Chart& chart, const std::vector<DemandBar>& bars) {
    constexpr double widest_share = 28;
    constexpr double share_of_gap = 0.35;
    double half = (chart.Plot().Right - chart.Plot().Left) / widest_share;
    for (std::size_t i = 1; i < bars.size(); ++i) {
        half = std::min(
            half, share_of_gap * (chart.ToX(bars[i].First()) - chart.ToX(bars[i - 1].Last())));
    }
    return half;
}

void DrawBars(Picture& picture, const Points& points) {
    constexpr double closest = 10 * kTwipsPerPixel;
    // The height of the axis depends on what is joined, and that on its width alone.
    Picture probe(picture.LaidOutFor());
    const double apart =
        closest * VolumePerTwip(Chart(probe, FrameOf(points, HighestOf(BarsOf(points, 0)))));
    const std::vector<DemandBar> bars = BarsOf(points, apart);
    Chart chart(picture, FrameOf(points, HighestOf(bars)));
    const double half = HalfBar(chart, bars);
    for (const DemandBar& bar : bars) {
        chart.Bar(chart.ToX(bar.First()) - half, chart.ToX(bar.Last()) + half, 0, bar.Sum(),
                  kBlueInk);
        picture.Describe(WordsOf(bar));
    }
    for (const DemandBar& bar : bars) {
        chart.LabelAbove(chart.ToX(bar.Middle()), bar.Sum(), LabelOf(bar), kInk);
    }
}

}  // namespace

void DrawDemand(const DemandDistribution& demand, Picture& picture) {
    picture.Compose([points = Points(demand.Points().begin(), demand.Points().end())](
                        Picture& each) { DrawBars(each, points); });
}

}  // namespace quarnel02
