#include "studies/VolumeStudy.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "study/LargestVolume.h"
#include "study/LineText.h"
#include "study/WhyNot.h"

namespace quarnel02 {

namespace {

/// Rounded to one digit, between 1 and the largest volume.
int Round(double volume) {
    const double place = std::pow(10.0, std::floor(std::log10(std::max(volume, 1.0))));
    return static_cast<int>(
        std::clamp(std::round(volume / place) * place, 1.0, static_cast<double>(kMostVolume)));
}

/// "$10.07 - $4.29"
ShownCell PerUnitCell(const VolumeRange& range) {
    const auto per_unit = [](float cost, int volume) {
        return Format(static_cast<double>(cost) / volume, "$#,##0.00");
    };
    return TextCell(per_unit(range.CostFrom, range.From) + " - " +
                    per_unit(range.CostTo, range.To));
}

std::vector<ShownCell> RangeCells(const LineModel& model, const VolumeRange& range,
                                  const std::string& equipment) {
    return {WholeCell(range.From),
            WholeCell(range.To),
            WholeCell(range.Shifts),
            TextCell(range.Best ? "best" : ""),
            TextCell(equipment),
            TextCell(LineText(model, range.Line)),
            DollarCell(DecimalOfSingle(range.CostFrom)),
            DollarCell(DecimalOfSingle(range.CostTo)),
            PerUnitCell(range),
            DollarCell(range.Investment)};
}

std::string NoRangeText(const PreparedLine& line, const VolumeSpan& span) {
    constexpr std::int16_t most_shifts = 3;
    const FixedDemandRequest request{static_cast<double>(span.From), most_shifts,
                                     span.StationLimit};
    return "There is no line for any of these volumes.\n" +
           WhyNotText(ExplainNoLine(line, request), request);
}

bool IsShown(const VolumeFilter& filter, int type) {
    const auto place = static_cast<std::size_t>(type);
    return place < filter.Types.size() && filter.Types.at(place);
}

}  // namespace

VolumeSpan SpanAround(double volume) {
    constexpr double usual = 50000;
    constexpr double below = 0.2;
    constexpr double above = 3;
    const double middle = volume > 0 ? volume : usual;
    return {Round(below * middle), Round(above * middle), {}};
}

std::vector<VolumeRange> Filtered(const std::vector<VolumeRange>& ranges,
                                  const VolumeFilter& filter) {
    std::vector<VolumeRange> shown;
    std::copy_if(ranges.begin(), ranges.end(), std::back_inserter(shown),
                 [&](const VolumeRange& range) {
                     return filter.Shifts.at(static_cast<std::size_t>(range.Shifts) - 1) &&
                            (range.Best || !filter.OnlyBest);
                 });
    return shown;
}

VolumeStudy StudyVolumes(const PreparedLine& line, const VolumeSpan& span,
                         const StudyWatch& watch) {
    constexpr double all_classes = 0.6;  // of the work
    VolumeStudy study{VolumeRanges(line, span, watch.Part(0, all_classes)), {}, {}};
    if (study.Ranges.empty()) {
        study.WhyNone = NoRangeText(line, span);
    } else {
        study.ByType = RangesByType(line.Model, span, watch.Part(all_classes, 1));
    }
    return study;
}

std::string ClassName(int type) {
    constexpr std::array names = {"manual", "fixed", "programmable", "automated"};
    return names.at(static_cast<std::size_t>(type));
}

std::vector<VolumeCurve> CurvesOf(const LineModel& model, const VolumeStudy& study,
                                  const VolumeFilter& filter) {
    std::vector<VolumeCurve> curves = CurvesOf(model, Filtered(study.Ranges, filter));
    for (const TypeRanges& type : study.ByType) {
        if (IsShown(filter, type.Type)) {
            curves.push_back(CurveOfClass(model, static_cast<ResourceType>(type.Type),
                                          Filtered(type.Ranges, filter)));
        }
    }
    return curves;
}

ShownTable TableOf(const LineModel& model, const VolumeStudy& study, const VolumeFilter& filter) {
    ShownTable table{"Volumes",
                     {{"From", true},
                      {"To", true},
                      {"Shifts", true},
                      {"Best"},
                      {"Equipment"},
                      {"Line"},
                      {"Cost at start", true},
                      {"Cost at end", true},
                      {"Per unit", true},
                      {"Investment", true}},
                     {}};
    const auto add = [&](const std::vector<VolumeRange>& ranges, const std::string& equipment) {
        for (const VolumeRange& range : Filtered(ranges, filter)) {
            table.Rows.push_back(RangeCells(model, range, equipment));
        }
    };
    add(study.Ranges, "any");
    for (const TypeRanges& type : study.ByType) {
        if (IsShown(filter, type.Type)) {
            add(type.Ranges, "only " + ClassName(type.Type));
        }
    }
    return table;
}

}  // namespace quarnel02
