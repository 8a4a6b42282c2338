#include "charts/Tornado.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "basic/NumberFormat.h"
#include "charts/BarRows.h"
#include "study/FigureText.h"

namespace quarnel02 {

namespace {

constexpr Colour kLower{66, 145, 220};
constexpr Colour kHigher{239, 140, 24};

std::string DollarText(double dollars) {
    return Format(dollars, "$#,##0");
}

std::string ChangeText(double change) {
    return (change < 0 ? "-" : "+") + DollarText(std::fabs(change));
}

std::string EndText(double value, std::optional<float> cost, double today) {
    return FigureText(value) + ": " +
           (cost ? DollarText(static_cast<double>(*cost)) + " (" +
                       ChangeText(static_cast<double>(*cost) - today) + ")"
                 : std::string("no line"));
}

std::string WordsOf(const SensitivityRow& row, double today) {
    return row.Name + ", today " + FigureText(row.Value) + "; " +
           EndText(row.Low, row.CostLow, today) + "; " + EndText(row.High, row.CostHigh, today) +
           (row.Changes ? "; the line changes" : "") +
           (row.BreakEven ? "; nearest change of the line at " + FigureText(*row.BreakEven) : "");
}

BarRowsFrame TornadoFrame(const std::vector<SensitivityRow>& rows, double today) {
    BarRowsFrame frame{"Sensitivity of the cost",
                       "Dollars per year (*: the line changes)",
                       {{"figure lower", kLower, false, {}}, {"figure higher", kHigher, false, {}}},
                       {},
                       today,
                       today,
                       true};
    for (const SensitivityRow& row : rows) {
        frame.Names.push_back(row.Changes ? row.Name + " *" : row.Name);
        for (const std::optional<float>& cost : {row.CostLow, row.CostHigh}) {
            frame.Low = std::min(frame.Low, cost ? static_cast<double>(*cost) : frame.Low);
            frame.High = std::max(frame.High, cost ? static_cast<double>(*cost) : frame.High);
        }
    }
    return frame;
}

/// The lower half of a row is that of the higher figure, so that bars to one side do not cover one
/// another.
void DrawRows(Picture& picture, const std::vector<SensitivityRow>& rows, double today) {
    const BarRowsFrame frame = TornadoFrame(rows, today);
    BarRows drawing(picture, frame, today);
    for (std::size_t place = 0; place < rows.size(); ++place) {
        const SensitivityRow& row = rows[place];
        const std::string words = WordsOf(row, today);
        const auto end = [&](const std::optional<float>& cost) {
            return cost ? static_cast<double>(*cost) : today;
        };
        drawing.Name(place, words);
        drawing.Bar(place, today, end(row.CostLow), BarPart::Upper, kLower, words);
        drawing.Bar(place, today, end(row.CostHigh), BarPart::Lower, kHigher, words);
    }
    drawing.Middle("Today's cost " + DollarText(today) + " a year");
}

}  // namespace

void DrawTornado(Picture& picture, std::vector<SensitivityRow> rows, double cost) {
    std::vector<SensitivityRow> strongest = Strongest(std::move(rows), kTornadoRows);
    if (strongest.empty()) {
        picture.Clear();
        return;
    }
    picture.Compose(
        [shown = std::move(strongest), cost](Picture& each) { DrawRows(each, shown, cost); });
}

}  // namespace quarnel02
