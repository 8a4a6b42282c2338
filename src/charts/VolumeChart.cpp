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

/// A straight part of a curve.
struct CurvePiece {
    const VolumeCurve& Curve;
    std::size_t Place;  ///< of its range and line
    Reading Ends;
};

double CostAt(const VolumeRange& range, double volume) {
    const auto from = static_cast<double>(range.CostFrom);
    const double rise = static_cast<double>(range.CostTo) - from;
    return range.To == range.From ? from
                                  : from + rise * (volume - range.From) / (range.To - range.From);
}

/// A cost per unit is bent: short straight pieces.
void AddPieces(std::vector<CurvePiece>& pieces, const VolumeCurve& curve, std::size_t place,
               const Chart& chart, VolumeCost shown) {
    constexpr double length = 8 * kTwipsPerPixel;
    const VolumeRange& range = curve.Ranges[place];
    const double span = chart.ToX(range.To) - chart.ToX(range.From);
    const int count = shown == VolumeCost::Total ? 1 : std::max(1, static_cast<int>(span / length));
    const auto volume_at = [&](int i) {
        return range.From + (static_cast<double>(range.To) - range.From) * i / count;
    };
    const auto cost_at = [&](double volume) {
        return CostAt(range, volume) / (shown == VolumeCost::Total ? 1 : volume);
    };
    for (int i = 0; i < count; ++i) {
        const double start = volume_at(i);
        const double end = volume_at(i + 1);
        pieces.push_back({curve, place, {start, end, cost_at(start), cost_at(end)}});
    }
}

std::vector<CurvePiece> PiecesOf(const std::vector<VolumeCurve>& curves, const Chart& chart,
                                 VolumeCost shown) {
    std::vector<CurvePiece> pieces;
    for (const VolumeCurve& curve : curves) {
        for (std::size_t place = 0; place < curve.Ranges.size(); ++place) {
            AddPieces(pieces, curve, place, chart, shown);
        }
    }
    return pieces;
}

std::string PieceWords(const CurvePiece& piece, VolumeCost shown) {
    const VolumeCurve& curve = piece.Curve;
    std::string words = "{x} units, " + curve.Name;
    if (curve.Dashed) {
        words.append(", ").append(ShiftsText(curve.Ranges[piece.Place].Shifts));
    }
    return words.append(": {y}")
        .append(shown == VolumeCost::Total ? " a year; " : " each; ")
        .append(curve.Lines[piece.Place]);
}

void DrawPiece(Picture& picture, Chart& chart, const CurvePiece& piece, VolumeCost shown) {
    constexpr int thick = 3;
    const Reading& ends = piece.Ends;
    const VolumeCurve& curve = piece.Curve;
    const bool best = curve.Ranges[piece.Place].Best && !curve.Dashed;
    const bool drawn = chart.Line(ends.XStart, ends.YStart, ends.XEnd, ends.YEnd, curve.Pen,
                                  best ? thick : 1, curve.Dashed);
    const bool whole = std::max(ends.YStart, ends.YEnd) <= chart.Highest();
    if (drawn && whole) {
        picture.Describe(PieceWords(piece, shown), ends);
    }
}

std::string DemandText(double volume) {
    return "Demand " + Format(volume, "#,##0");
}

void DrawGuides(Chart& chart, const std::vector<double>& asked) {
    for (const double volume : asked) {
        chart.Guide(volume, DemandText(volume), kGuideInk);
    }
    for (const double volume : asked) {
        chart.NameGuideAcross(volume, DemandText(volume), ThousandsText(volume));
    }
}

void DrawCurves(Picture& picture, const std::vector<VolumeCurve>& curves, VolumeCost shown,
                std::vector<double> asked) {
    const VolumeBounds bounds = BoundsOf(curves, shown);
    ChartFrame frame;
    frame.Title = shown == VolumeCost::Total ? "Cost over volume" : "Cost per unit over volume";
    frame.X = {bounds.From, bounds.To, "Annual volume (units)", true, false};
    frame.Y = CostAxis(bounds, shown);
    for (const VolumeCurve& curve : curves) {
        frame.Legend.push_back({curve.Name, curve.Pen, curve.Dashed, {}});
    }
    Chart chart(picture, std::move(frame));
    const std::vector<CurvePiece> pieces = PiecesOf(curves, chart, shown);
    for (const CurvePiece& piece : pieces) {
        chart.KeepClear(piece.Ends.XStart, piece.Ends.YStart, piece.Ends.XEnd, piece.Ends.YEnd);
    }
    std::erase_if(asked, [&](double volume) { return volume < bounds.From || volume > bounds.To; });
    DrawGuides(chart, asked);
    for (const CurvePiece& piece : pieces) {
        DrawPiece(picture, chart, piece, shown);
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
