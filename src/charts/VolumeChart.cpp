#include "charts/VolumeChart.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "picture/Chart.h"
#include "picture/Inks.h"
#include "study/LineText.h"

namespace quarnel02 {

namespace {

constexpr std::array kShiftInks = {kBlueInk, kGreenInk, kPurpleInk};
constexpr std::array kClassInks = {kOrangeInk, kRedInk, kSoftInk, kInk};
constexpr std::array kClassNames = {"only manual", "only fixed", "only programmable",
                                    "only automated"};

std::string ShiftsText(int shifts) {
    return NumberText(shifts) + (shifts == 1 ? " shift" : " shifts");
}

/// Costs and volumes that the curves reach.
struct VolumeBounds {
    double From = std::numeric_limits<double>::max();
    double To = 0;
    double Cheapest = std::numeric_limits<double>::max();
    double Dearest = 0;
};

double CostAt(double cost, int volume, VolumeCost shown) {
    return shown == VolumeCost::Total ? cost : cost / volume;
}

VolumeBounds BoundsOf(const std::vector<VolumeCurve>& curves, VolumeCost shown) {
    VolumeBounds bounds;
    for (const VolumeCurve& curve : curves) {
        for (const VolumeRange& range : curve.Ranges) {
            bounds.From = std::min(bounds.From, static_cast<double>(range.From));
            bounds.To = std::max(bounds.To, static_cast<double>(range.To));
            for (const auto& [cost, volume] :
                 {std::pair(range.CostFrom, range.From), std::pair(range.CostTo, range.To)}) {
                const double value = CostAt(static_cast<double>(cost), volume, shown);
                bounds.Cheapest = std::min(bounds.Cheapest, value);
                bounds.Dearest = std::max(bounds.Dearest, value);
            }
        }
    }
    return bounds;
}

/// The costs on the axis: down to 0 unless that would take most of it, and without the peak that a
/// cost per unit has at the smallest volumes.
Axis CostAxis(const VolumeBounds& bounds, VolumeCost shown) {
    constexpr double foot_from = 0.5;
    constexpr double most_of_cheapest = 6;
    Axis axis{0, bounds.Dearest, "Total cost per year (thick: the cheapest)", false, true};
    if (shown == VolumeCost::PerUnit) {
        axis.Title = "Cost per unit (thick: the cheapest)";
        axis.High = std::min(axis.High, most_of_cheapest * bounds.Cheapest);
    }
    if (bounds.Cheapest > foot_from * axis.High) {
        axis.Low = bounds.Cheapest - (axis.High - bounds.Cheapest) / 4;
    }
    return axis;
}

/// Draws the curves of one chart.
class VolumeDrawing {
  public:
    VolumeDrawing(Picture& picture, Chart& chart, VolumeCost shown)
        : m_picture(picture), m_chart(chart), m_shown(shown) {}

    void Draw(const VolumeCurve& curve) {
        for (std::size_t place = 0; place < curve.Ranges.size(); ++place) {
            const VolumeRange& range = curve.Ranges[place];
            const std::string who =
                curve.Dashed ? curve.Name + ", " + ShiftsText(range.Shifts) : curve.Name;
            const std::string each = m_shown == VolumeCost::Total ? " a year" : " each";
            std::string words = "{x} units, ";
            words.append(who).append(": {y}").append(each).append("; ").append(curve.Lines[place]);
            m_shown == VolumeCost::Total ? DrawStraight(curve, range, words)
                                         : DrawBent(curve, range, words);
        }
    }

  private:
    void DrawStraight(const VolumeCurve& curve, const VolumeRange& range,
                      const std::string& words) {
        DrawPiece(curve, range.Best,
                  {static_cast<double>(range.From), static_cast<double>(range.To),
                   static_cast<double>(range.CostFrom), static_cast<double>(range.CostTo)},
                  words);
    }

    /// A cost per unit is bent: short straight pieces.
    void DrawBent(const VolumeCurve& curve, const VolumeRange& range, const std::string& words) {
        constexpr double piece = 8 * kTwipsPerPixel;
        const double span = m_chart.ToX(range.To) - m_chart.ToX(range.From);
        const int pieces = std::max(1, static_cast<int>(span / piece));
        const auto volume_at = [&](int i) {
            return range.From + (static_cast<double>(range.To) - range.From) * i / pieces;
        };
        const auto cost_at = [&](double volume) {
            const auto from = static_cast<double>(range.CostFrom);
            const double rise = static_cast<double>(range.CostTo) - from;
            const double share =
                range.To == range.From ? 0 : (volume - range.From) / (range.To - range.From);
            return (from + rise * share) / volume;
        };
        for (int i = 0; i < pieces; ++i) {
            const double start = volume_at(i);
            const double end = volume_at(i + 1);
            DrawPiece(curve, range.Best, {start, end, cost_at(start), cost_at(end)}, words);
        }
    }

    void DrawPiece(const VolumeCurve& curve, bool best, const Reading& ends,
                   const std::string& words) {
        constexpr int thick = 3;
        const bool drawn = m_chart.Line(ends.XStart, ends.YStart, ends.XEnd, ends.YEnd, curve.Pen,
                                        best && !curve.Dashed ? thick : 1, curve.Dashed);
        const bool whole = std::max(ends.YStart, ends.YEnd) <= m_chart.Highest();
        if (drawn && whole) {
            m_picture.Describe(words, ends);
        }
    }

    Picture& m_picture;
    Chart& m_chart;
    VolumeCost m_shown;
};

void DrawAsked(Chart& chart, const VolumeBounds& bounds, const std::vector<double>& asked) {
    for (const double volume : asked) {
        if (volume >= bounds.From && volume <= bounds.To) {
            const std::string name = "Demand " + Format(volume, "#,##0");
            chart.Guide(volume, name, kGuideInk);
            chart.NameGuide(volume, name, ThousandsText(volume));
        }
    }
}

void DrawCurves(Picture& picture, const std::vector<VolumeCurve>& curves, VolumeCost shown,
                const std::vector<double>& asked) {
    const VolumeBounds bounds = BoundsOf(curves, shown);
    ChartFrame frame;
    frame.Title = shown == VolumeCost::Total ? "Cost over volume" : "Cost per unit over volume";
    frame.X = {bounds.From, bounds.To, "Annual volume (units)", true, false};
    frame.Y = CostAxis(bounds, shown);
    for (const VolumeCurve& curve : curves) {
        frame.Legend.push_back({curve.Name, curve.Pen, curve.Dashed, {}});
    }
    Chart chart(picture, std::move(frame));
    DrawAsked(chart, bounds, asked);
    VolumeDrawing drawing(picture, chart, shown);
    for (const VolumeCurve& curve : curves) {
        drawing.Draw(curve);
    }
}

}  // namespace

std::vector<VolumeCurve> CurvesOf(const LineModel& model, std::span<const VolumeRange> ranges) {
    std::vector<VolumeCurve> curves;
    for (int shifts = 1; shifts <= static_cast<int>(kShiftInks.size()); ++shifts) {
        VolumeCurve curve{
            ShiftsText(shifts), kShiftInks.at(static_cast<std::size_t>(shifts) - 1), false, {}, {}};
        for (const VolumeRange& range : ranges) {
            if (range.Shifts == shifts) {
                curve.Ranges.push_back(range);
                curve.Lines.push_back(LineText(model, range.Line));
            }
        }
        if (!curve.Ranges.empty()) {
            curves.push_back(std::move(curve));
        }
    }
    return curves;
}

VolumeCurve CurveOfClass(const LineModel& model, ResourceType type,
                         std::span<const VolumeRange> ranges) {
    const auto place = static_cast<std::size_t>(type);
    VolumeCurve curve{kClassNames.at(place), kClassInks.at(place), true, {}, {}};
    for (const VolumeRange& range : ranges) {
        if (range.Best) {
            curve.Ranges.push_back(range);
            curve.Lines.push_back(LineText(model, range.Line));
        }
    }
    return curve;
}

void DrawVolumes(Picture& picture, std::vector<VolumeCurve> curves, VolumeCost shown,
                 std::vector<double> asked) {
    std::erase_if(curves, [](const VolumeCurve& curve) { return curve.Ranges.empty(); });
    if (curves.empty()) {
        picture.Clear();
        return;
    }
    picture.Compose([all = std::move(curves), shown, asked = std::move(asked)](Picture& each) {
        DrawCurves(each, all, shown, asked);
    });
}

}  // namespace quarnel02
