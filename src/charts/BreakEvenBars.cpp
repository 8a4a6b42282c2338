#include "charts/BreakEvenBars.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "basic/NumberFormat.h"
#include "charts/BarRows.h"
#include "picture/Inks.h"
#include "study/FigureText.h"

namespace quarnel02 {

namespace {

constexpr Colour kDown{66, 145, 220};
constexpr Colour kUp{239, 140, 24};

struct Distance {
    std::string Name;
    double Percent;  ///< from today's value to the break-even
    std::string Words;
};

std::string PercentText(double percent) {
    const std::string text = Format(std::fabs(percent), "0.0");
    return (percent < 0 ? "-" : "+") + text + " %";
}

std::vector<Distance> DistancesOf(const std::vector<SensitivityRow>& rows) {
    constexpr double whole = 100;
    std::vector<Distance> distances;
    for (const SensitivityRow& row : rows) {
        if (!row.BreakEven || row.Value == 0) {
            continue;
        }
        const double percent = whole * (*row.BreakEven - row.Value) / row.Value;
        if (std::fabs(percent) <= whole) {
            distances.push_back({row.Name, percent,
                                 row.Name + ", today " + FigureText(row.Value) +
                                     ": the line changes at " + FigureText(*row.BreakEven) + " (" +
                                     PercentText(percent) + ")"});
        }
    }
    std::stable_sort(distances.begin(), distances.end(), [](const Distance& a, const Distance& b) {
        return std::fabs(a.Percent) < std::fabs(b.Percent);
    });
    distances.resize(std::min<std::size_t>(distances.size(), kBreakEvenRows));
    return distances;
}

void DrawDistances(Picture& picture, const std::vector<Distance>& distances) {
    BarRowsFrame frame{
        "Nearest changes of the line", "Percent of today's value", {}, {}, 0, 0, false};
    for (const Distance& each : distances) {
        frame.Names.push_back(each.Name);
        frame.Low = std::min(frame.Low, each.Percent);
        frame.High = std::max(frame.High, each.Percent);
    }
    BarRows rows(picture, frame, 0);
    for (std::size_t place = 0; place < distances.size(); ++place) {
        const Distance& each = distances[place];
        rows.Name(place, each.Words);
        rows.Bar(place, 0, each.Percent, BarPart::Whole, each.Percent < 0 ? kDown : kUp,
                 each.Words);
    }
    rows.Middle("Today's values");
}

}  // namespace

void DrawBreakEvens(Picture& picture, const std::vector<SensitivityRow>& rows) {
    std::vector<Distance> distances = DistancesOf(rows);
    if (distances.empty()) {
        picture.Clear();
        return;
    }
    picture.Compose([shown = std::move(distances)](Picture& each) { DrawDistances(each, shown); });
}

}  // namespace quarnel02
