#include "stoch/DrawStochasticCosts.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "basic/NumberFormat.h"
#include "picture/Chart.h"
#include "picture/Inks.h"

namespace quarnel02 {

namespace {

constexpr Colour kCurve{0, 0, 127};
constexpr Colour kGuide{200, 215, 235};
constexpr Colour kChosenInk{200, 0, 0};

/// A capacity from which on a demand needs a shift less.
struct ShiftGuide {
    double Capacity;
    std::string Name;     ///< "60K in two shifts"
    std::string Shorter;  ///< "60K in two"
};

struct DescribedSegment {
    Reading Ends;
    std::string Words;
};

/// All that the chart shows.
struct ExpectedCosts {
    std::vector<DescribedSegment> Segments;
    std::vector<ShiftGuide> Guides;
    double FirstVolume;
    double LastVolume;
    double Capacity;  ///< the chosen one
    double Cost;      ///< its expected cost
};

/// The costs from which to which the axis reaches.
struct CostSpan {
    double Low;
    double High;
};

double DearestFrom(const ExpectedCosts& costs, double capacity) {
    double dearest = costs.Cost;
    for (const DescribedSegment& segment : costs.Segments) {
        if (segment.Ends.XEnd >= capacity) {
            dearest = std::max({dearest, segment.Ends.YStart, segment.Ends.YEnd});
        }
    }
    return dearest;
}

/// What lies far above the costs of the capacities that may be chosen is cut off; a foot that would
/// be short is shown down to 0.
CostSpan SpanOf(const ExpectedCosts& costs) {
    constexpr double least_share = 0.2;
    constexpr double head_room = 1.5;
    constexpr double foot_room = 0.15;
    constexpr double short_foot = 0.35;
    constexpr double no_cliff = 2.5;
    const double rise =
        std::max(DearestFrom(costs, costs.Capacity) - costs.Cost, least_share * costs.Cost);
    const double most = DearestFrom(costs, costs.FirstVolume);
    const double cut = costs.Cost + head_room * rise;
    const bool tells = most <= std::max(cut + head_room * rise, no_cliff * costs.Cost);
    const double high = tells ? most : cut;
    const double low = costs.Cost - foot_room * (high - costs.Cost);
    return {low < short_foot * high ? 0 : low, std::max(high, low)};
}

std::string ShiftsText(int shifts) {
    return shifts == 1 ? "one" : "two";
}

/// The demand that is met in so many shifts from a capacity on; none where there is no such.
std::optional<double> DemandMetAt(double capacity, int shifts, const DemandDistribution& demand) {
    constexpr double tolerance = 1e-6;
    constexpr double most_shifts = 3;
    for (const DemandPoint& point : demand.Points()) {
        const auto volume = static_cast<double>(point.Volume);
        if (std::fabs(volume * most_shifts / shifts - capacity) <= tolerance * capacity) {
            return volume;
        }
    }
    return std::nullopt;
}

ShiftGuide GuideAt(double capacity, const DemandDistribution& demand) {
    ShiftGuide guide{capacity, "", ""};
    for (const int shifts : {2, 1}) {
        if (const auto met = DemandMetAt(capacity, shifts, demand)) {
            const std::string shorter = ThousandsText(*met) + " in " + ShiftsText(shifts);
            const std::string separator = guide.Name.empty() ? "" : ", ";
            guide.Name += separator + shorter + (shifts == 1 ? " shift" : " shifts");
            guide.Shorter += separator + shorter;
        }
    }
    return guide;
}

std::vector<ShiftGuide> GuidesOf(const DemandDistribution& demand) {
    std::vector<ShiftGuide> guides;
    for (const ShiftStep& step : demand.Shifts().Steps()) {
        if (step.High != kNoUpperEnd) {
            guides.push_back(GuideAt(static_cast<double>(step.High), demand));
        }
    }
    return guides;
}

std::vector<DescribedSegment> SegmentsOf(const CostCurve& curve,
                                         const StationsOfSegment& stations) {
    std::vector<DescribedSegment> segments;
    segments.reserve(curve.Segments().size());
    for (const CurveSegment& each : curve.Segments()) {
        segments.push_back(
            {{static_cast<double>(each.Start), static_cast<double>(each.End),
              static_cast<double>(each.CostStart), static_cast<double>(each.CostEnd)},
             "Capacity {x}: {y} a year" + (stations ? "; " + stations(each) : std::string())});
    }
    return segments;
}

/// The part of a segment that the axis holds; the reading follows what is drawn.
std::optional<Reading> Shown(const Reading& ends, const Chart& chart) {
    const auto at = [&](double y) {
        return ends.XStart +
               (y - ends.YStart) / (ends.YEnd - ends.YStart) * (ends.XEnd - ends.XStart);
    };
    if (std::min(ends.YStart, ends.YEnd) > chart.Highest()) {
        return std::nullopt;
    }
    Reading shown = ends;
    if (ends.YStart > chart.Highest()) {
        shown.XStart = at(chart.Highest());
        shown.YStart = chart.Highest();
    }
    if (ends.YEnd > chart.Highest()) {
        shown.XEnd = at(chart.Highest());
        shown.YEnd = chart.Highest();
    }
    return shown;
}

/// A stretch of capacities whose costs lie above the plot.
struct Cliff {
    double From;
    double To;
    double Dearest;
};

void NoteCliff(std::vector<Cliff>& cliffs, const Reading& ends, double highest) {
    const double dearest = std::max(ends.YStart, ends.YEnd);
    if (dearest <= highest) {
        return;
    }
    constexpr float far_away = std::numeric_limits<float>::max();
    const auto next = [&](double volume) {
        return static_cast<double>(std::nextafter(static_cast<float>(volume), far_away));
    };
    if (cliffs.empty() || ends.XStart > next(cliffs.back().To)) {
        cliffs.push_back({ends.XStart, ends.XEnd, dearest});
        return;
    }
    cliffs.back().To = ends.XEnd;
    cliffs.back().Dearest = std::max(cliffs.back().Dearest, dearest);
}

std::vector<Cliff> CliffsOf(const ExpectedCosts& costs, double highest) {
    std::vector<Cliff> cliffs;
    for (const DescribedSegment& segment : costs.Segments) {
        NoteCliff(cliffs, segment.Ends, highest);
    }
    return cliffs;
}

void DrawCurve(const ExpectedCosts& costs, Picture& picture, Chart& chart) {
    for (const auto& [ends, words] : costs.Segments) {
        const std::optional<Reading> shown = Shown(ends, chart);
        if (shown &&
            chart.Line(shown->XStart, shown->YStart, shown->XEnd, shown->YEnd, kCurve, 2)) {
            picture.Describe(words, shown);
        }
    }
}

void KeepClearOf(const ExpectedCosts& costs, Chart& chart) {
    for (const DescribedSegment& segment : costs.Segments) {
        if (const std::optional<Reading> shown = Shown(segment.Ends, chart)) {
            chart.KeepClear(shown->XStart, shown->YStart, shown->XEnd, shown->YEnd);
        }
    }
}

void DrawCosts(Picture& picture, const ExpectedCosts& costs) {
    const CostSpan span = SpanOf(costs);
    Chart chart(picture, {"Expected Annual Cost",
                          {costs.FirstVolume, costs.LastVolume,
                           "Capacity in three shifts (units/year)", true, false},
                          {span.Low, span.High, "Dollars per year", false, true},
                          {},
                          {}});
    for (const ShiftGuide& guide : costs.Guides) {
        chart.Guide(guide.Capacity, guide.Name, kGuide);
    }
    KeepClearOf(costs, chart);
    chart.Ring(costs.Capacity, costs.Cost, kChosenInk);
    picture.Describe("The cheapest capacity, " + Format(costs.Capacity, "#,##0") + ": " +
                     Format(costs.Cost, "$#,##0") + " a year");
    chart.Label(costs.Capacity, costs.Cost,
                ThousandsText(costs.Capacity) + ": " + Format(costs.Cost, "$#,##0"), kChosenInk,
                true);
    for (const Cliff& cliff : CliffsOf(costs, chart.Highest())) {
        chart.ArrowUp((cliff.From + cliff.To) / 2,
                      "up to " + ShortDollars(cliff.Dearest) + " (penalty)", kCurve);
    }
    for (const ShiftGuide& guide : costs.Guides) {
        chart.NameGuide(guide.Capacity, guide.Name, guide.Shorter);
    }
    DrawCurve(costs, picture, chart);
}

}  // namespace

void DrawStochasticCosts(const StochasticLine& line, const CostCurve& expectedCosts,
                         const DemandDistribution& demand, Picture& picture,
                         const StationsOfSegment& stations) {
    const ExpectedCosts costs{
        SegmentsOf(expectedCosts, stations),       GuidesOf(demand),
        static_cast<double>(demand.FirstVolume()), static_cast<double>(demand.LastVolume()),
        static_cast<double>(line.Capacity),        static_cast<double>(line.ExpectedCost)};
    picture.Compose([costs](Picture& each) { DrawCosts(each, costs); });
}

}  // namespace quarnel02
