#include "charts/BarRows.h"

#include <algorithm>
#include <cmath>

#include "picture/Inks.h"

namespace quarnel02 {

namespace {

constexpr double kGap = 75;

}  // namespace

BarRows::BarRows(Picture& picture, const BarRowsFrame& frame, double middle)
    : m_picture(picture),
      m_frame(frame),
      m_middle(middle),
      m_font(picture.PageFont()),
      m_line(LineHeight(m_font)) {
    DrawHead();
    LayOut();
    DrawTicks();
}

/// The paper grows for rows that would be lower than a line of text.
void BarRows::DrawHead() {
    constexpr double least_columns = 22;
    constexpr double lines_per_row = 1.2;
    constexpr double head_lines = 6;
    const Page& page = m_picture.LaidOutFor();
    const Font bold = m_picture.PageFont(1, true);
    const auto rows = static_cast<double>(m_frame.Names.size());
    m_picture.SetPaper(std::max(page.Width, least_columns * m_line),
                       std::max(page.Height, (rows * lines_per_row + head_lines) * m_line));
    const double room = m_picture.Width() - 2 * kGap;
    const std::string title = Elided(m_frame.Title, room, bold, *page.Measure);
    m_picture.Text((m_picture.Width() - m_picture.WidthOf(title, bold)) / 2, kGap, title, bold,
                   kInk);
    m_top = kGap + LineHeight(bold);
    m_top += DrawLegend(m_picture, m_frame.Legend, kGap, m_top, m_picture.Width() - kGap);
    const std::string axis = Elided(m_frame.Axis, room, m_font, *page.Measure);
    m_picture.Text((m_picture.Width() - m_picture.WidthOf(axis, m_font)) / 2, m_top, axis, m_font,
                   kSoftInk);
    m_top += 2 * m_line + kGap;
    m_bottom = m_picture.Height() - kGap;
}

void BarRows::LayOut() {
    constexpr double widest_name = 0.45;
    constexpr double highest_row = 3;  // in lines
    constexpr double spacing = 1.3;
    constexpr int most_ticks = 8;
    double name = 0;
    for (const std::string& each : m_frame.Names) {
        name = std::max(name, m_picture.WidthOf(each, m_font));
    }
    m_left = 2 * kGap + std::min(name, widest_name * m_picture.Width());
    const auto rows = static_cast<double>(m_frame.Names.size());
    m_step = std::min((m_bottom - m_top) / rows, highest_row * m_line);
    m_bottom = m_top + rows * m_step;
    for (int most = most_ticks; most >= 1; --most) {
        m_scale = RoundScale(m_frame.Low, m_frame.High, most);
        const double tick = WidestTick({m_frame.Low, m_frame.High, "", false, m_frame.Money},
                                       m_scale, m_font, *m_picture.LaidOutFor().Measure);
        m_right = m_picture.Width() - kGap - tick / 2;
        if (tick * spacing * (m_scale.High - m_scale.Low) / m_scale.Step <= m_right - m_left) {
            break;
        }
    }
}

void BarRows::DrawTicks() {
    const Axis axis{m_scale.Low, m_scale.High, "", false, m_frame.Money};
    double free_from = 0;
    for (const double value : TicksOf(m_scale)) {
        m_picture.Line(ToX(value), m_top, ToX(value), m_bottom, kGridLine);
        const std::string text = TickText(axis, m_scale, value);
        const double width = m_picture.WidthOf(text, m_font);
        if (ToX(value) - width / 2 >= free_from) {
            m_picture.Text(ToX(value) - width / 2, m_top - m_line, text, m_font, kSoftInk);
            free_from = ToX(value) + width / 2 + kGap;
        }
    }
}

void BarRows::Name(std::size_t row, const std::string& words) {
    const std::string name =
        Elided(m_frame.Names[row], m_left - 2 * kGap, m_font, *m_picture.LaidOutFor().Measure);
    m_picture.Text(m_left - kGap - m_picture.WidthOf(name, m_font),
                   TopOf(row) + (m_step - m_line) / 2, name, m_font, kInk);
    m_picture.Describe(words);
}

void BarRows::Bar(std::size_t row, double from, double to, BarPart part, Colour colour,
                  const std::string& words) {
    constexpr double share = 0.38;
    constexpr double thinnest = 2 * kTwipsPerPixel;
    const double left = std::min(ToX(from), ToX(to));
    const double width = std::max(std::fabs(ToX(to) - ToX(from)), thinnest);
    const double top = TopOf(row) + m_step * (part == BarPart::Lower ? 0.5 : 0.5 - share);
    const double height = m_step * share * (part == BarPart::Whole ? 2 : 1);
    m_picture.Add(BoxFigure{left, top, width, height, 0, colour});
    m_picture.Describe(words);
}

void BarRows::Middle(const std::string& words) {
    m_picture.Line(ToX(m_middle), m_top, ToX(m_middle), m_bottom, kInk);
    m_picture.Describe(words);
}

}  // namespace quarnel02
