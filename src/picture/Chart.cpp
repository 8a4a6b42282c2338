#include "picture/Chart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "basic/Numbers.h"
#include "picture/Inks.h"

namespace quarnel02 {

namespace {

constexpr double kTickLength = 60;
constexpr int kMostSteps = 10;

/// As many steps as texts of that size have room for.
int StepsIn(double room, double size) {
    return std::clamp(static_cast<int>(room / size), 2, kMostSteps);
}

}  // namespace

Chart::Chart(Picture& picture, ChartFrame frame)
    : m_picture(picture),
      m_frame(std::move(frame)),
      m_font(picture.PageFont()),
      m_line(LineHeight(m_font)),
      m_labels({0, 0, 0, 0}),
      m_lines({0, 0, 0, 0}),
      m_guides({0, 0, 0, 0}) {
    LayOutPlot();
    m_labels = LabelPlaces(m_plot);
    m_lines = LabelPlaces(m_plot);
    m_guides = LabelPlaces(m_plot);
    DrawHead();
    DrawYTicks();
    m_frame.Places.empty() ? DrawXTicks() : DrawPlaces();
    DrawAxes();
}

/// As many ticks as have room for their texts.
AxisScale Chart::WidestScale(double width) const {
    constexpr double spacing = 1.3;
    AxisScale scale{};
    for (int most = kMostSteps; most >= 1; --most) {
        scale = RoundScale(m_frame.X.Low, m_frame.X.High, most);
        const double widest = WidestTick(m_frame.X, scale, m_font, *m_picture.LaidOutFor().Measure);
        const double steps = std::round((scale.High - scale.Low) / scale.Step);
        if (steps * widest * spacing <= width) {
            break;
        }
    }
    return scale;
}

void Chart::LayOutPlot() {
    constexpr double least_columns = 11;
    constexpr double least_lines = 9.5;
    const Page& page = m_picture.LaidOutFor();
    m_picture.SetPaper(std::max(page.Width, least_columns * m_line), page.Height);
    m_picture.SetPaper(m_picture.Width(),
                       std::max(page.Height, least_lines * m_line + LegendHeight()));
    const double head = LineHeight(m_picture.PageFont(1, true)) + LegendHeight() + 1.5 * m_line;
    m_plot.Top = 2 * kChartGap + head;
    m_plot.Bottom = m_picture.Height() - 2 * kChartGap - 2.5 * m_line;
    LayOutScales();
    if (!m_frame.BarLabels.empty()) {
        m_labelling = LabellingIn(ToX(1) - ToX(0));
    }
    if (BarLabelHeight() > 0) {
        const double height = m_plot.Bottom - m_plot.Top;
        m_frame.Y.High *= height / std::max(height - BarLabelHeight(), height / 2);
        LayOutScales();
    }
}

void Chart::LayOutScales() {
    constexpr double lines_per_step = 1.7;
    const TextMeasure& measure = *m_picture.LaidOutFor().Measure;
    m_yScale = RoundScale(m_frame.Y.Low, m_frame.Y.High,
                          StepsIn(m_plot.Bottom - m_plot.Top, lines_per_step * m_line));
    m_plot.Left = 2 * kChartGap + kTickLength + WidestTick(m_frame.Y, m_yScale, m_font, measure);
    m_plot.Right = m_picture.Width() - 2 * kChartGap;
    if (!m_frame.Places.empty()) {
        m_xScale = {0, static_cast<double>(m_frame.Places.size()), 1};
        return;
    }
    m_xScale = WidestScale(m_plot.Right - m_plot.Left);
    m_plot.Right -= WidestTick(m_frame.X, m_xScale, m_font, measure) / 2;
}

double Chart::LongestBarLabel(const std::vector<std::string>& labels) const {
    double longest = 0;
    for (const std::string& label : labels) {
        longest = std::max(longest, m_picture.WidthOf(label, m_font));
    }
    return longest;
}

/// A label that stands aside or higher than its neighbours no longer belongs to a bar.
BarLabelling Chart::LabellingIn(double room) const {
    const double free = room - kChartGap;
    if (LongestBarLabel(m_frame.BarLabels) <= free) {
        return BarLabelling::InFull;
    }
    if (LongestBarLabel(m_frame.ShortBarLabels) <= free) {
        return BarLabelling::InShort;
    }
    return m_line <= room ? BarLabelling::Upright : BarLabelling::None;
}

double Chart::BarLabelHeight() const {
    constexpr double label_lines = 1.2;
    switch (m_labelling) {
        case BarLabelling::None:
            return m_frame.LabelsOnBars ? label_lines * m_line : 0;
        case BarLabelling::Upright:
            return LongestBarLabel(m_frame.ShortBarLabels) + kChartGap;
        default:
            return label_lines * m_line;
    }
}

double Chart::ToX(double x) const {
    return m_plot.Left +
           (x - m_xScale.Low) / (m_xScale.High - m_xScale.Low) * (m_plot.Right - m_plot.Left);
}

double Chart::ToY(double y) const {
    return m_plot.Bottom -
           (y - m_yScale.Low) / (m_yScale.High - m_yScale.Low) * (m_plot.Bottom - m_plot.Top);
}

void Chart::PrintCentred(double x, double top, const std::string& text, const Font& font,
                         Colour colour) {
    const std::string shown =
        Elided(text, m_picture.Width() - 2 * kChartGap, font, *m_picture.LaidOutFor().Measure);
    const double width = m_picture.WidthOf(shown, font);
    m_picture.Text(std::clamp(x - width / 2, kChartGap,
                              std::max(kChartGap, m_picture.Width() - width - kChartGap)),
                   top, shown, font, colour);
}

void Chart::DrawHead() {
    const Font bold = m_picture.PageFont(1, true);
    PrintCentred(m_picture.Width() / 2, kChartGap, m_frame.Title, bold, kInk);
    DrawLegend(m_picture, m_frame.Legend, kChartGap, kChartGap + LineHeight(bold),
               m_picture.Width() - kChartGap);
    const double right = m_picture.Width() - 2 * kChartGap;
    m_picture.Text(kChartGap, m_plot.Top - 1.5 * m_line - kChartGap,
                   Elided(m_frame.Y.Title, right, m_font, *m_picture.LaidOutFor().Measure), m_font,
                   kSoftInk);
}

double Chart::LegendHeight() const {
    Picture probe(m_picture.LaidOutFor());
    return DrawLegend(probe, m_frame.Legend, kChartGap, 0, m_picture.Width() - kChartGap);
}

void Chart::DrawAxes() {
    m_picture.DrawWidth = 1;
    m_picture.Line(m_plot.Left, m_plot.Top, m_plot.Left, m_plot.Bottom, kInk);
    m_picture.Line(m_plot.Left, m_plot.Bottom, m_plot.Right, m_plot.Bottom, kInk);
    if (m_yScale.Low > 0) {
        DrawBreak();
    }
    PrintCentred((m_plot.Left + m_plot.Right) / 2, m_picture.Height() - m_line - kChartGap,
                 m_frame.X.Title, m_font, kSoftInk);
}

/// Two strokes across the lower end of the axis: it does not begin at 0.
void Chart::DrawBreak() {
    constexpr double half = 75;
    constexpr double rise = 45;
    constexpr double distance = 60;
    const double foot = m_plot.Bottom - 2 * distance;
    m_picture.Add(BoxFigure{m_plot.Left - kTwipsPerPixel, foot - distance, 2 * kTwipsPerPixel,
                            distance, 0, kPaper});
    for (const double y : {foot, foot - distance}) {
        m_picture.Line(m_plot.Left - half, y + rise, m_plot.Left + half, y - rise, kInk);
        m_picture.Describe("This axis does not begin at 0.");
    }
}

void Chart::DrawXTicks() {
    double free_from = 0;
    for (const double value : TicksOf(m_xScale)) {
        const double x = ToX(value);
        m_picture.Line(x, m_plot.Bottom, x, m_plot.Bottom + kTickLength, kInk);
        const std::string text = TickText(m_frame.X, m_xScale, value);
        const double left = x - m_picture.WidthOf(text, m_font) / 2;
        if (left >= free_from) {
            m_picture.Text(left, m_plot.Bottom + m_line / 2, text, m_font, kSoftInk);
            free_from = x + m_picture.WidthOf(text, m_font) / 2 + kChartGap / 2;
        }
    }
}

/// Whole names where all have room, else numbers, every so many that they have room.
void Chart::DrawPlaces() {
    const double room = ToX(1) - ToX(0) - kChartGap / 2;
    const bool whole = std::all_of(
        m_frame.Places.begin(), m_frame.Places.end(),
        [&](const std::string& name) { return m_picture.WidthOf(name, m_font) <= room; });
    const auto count = static_cast<int>(m_frame.Places.size());
    const int every = whole ? 1 : NumberStep(count);
    for (int number = every; number <= count; number += every) {
        const std::string& name = m_frame.Places[static_cast<std::size_t>(number) - 1];
        const std::string text = whole ? name : NumberText(number);
        m_picture.Text(ToX(number - 0.5) - m_picture.WidthOf(text, m_font) / 2,
                       m_plot.Bottom + m_line / 2, text, m_font, kInk);
        m_picture.Describe(name);
    }
}

/// The smallest round step with which numbers up to `count` have room.
int Chart::NumberStep(int count) const {
    const double widest = m_picture.WidthOf(NumberText(count), m_font) + kChartGap / 2;
    for (const int step : {1, 2, 5, 10, 20, 50}) {
        if (step * (ToX(1) - ToX(0)) >= widest) {
            return step;
        }
    }
    return 100;
}

void Chart::DrawYTicks() {
    for (const double value : TicksOf(m_yScale)) {
        const double y = ToY(value);
        m_picture.Line(m_plot.Left, y, m_plot.Right, y, kGridLine);
        m_picture.Line(m_plot.Left - kTickLength, y, m_plot.Left, y, kInk);
        const std::string text = TickText(m_frame.Y, m_yScale, value);
        m_picture.Text(m_plot.Left - kTickLength - kChartGap / 2 - m_picture.WidthOf(text, m_font),
                       y - m_line / 2, text, m_font, kSoftInk);
    }
}

}  // namespace quarnel02
