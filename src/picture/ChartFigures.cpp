// What stands in the plot of a chart.
#include <algorithm>
#include <array>
#include <cmath>

#include "picture/Chart.h"
#include "picture/Inks.h"

namespace quarnel02 {

double DrawLegend(Picture& picture, std::span<const LegendEntry> legend, double left, double top,
                  double right) {
    constexpr double sample = 240;
    if (legend.empty()) {
        return 0;
    }
    const Font font = picture.PageFont();
    const double line = LineHeight(font);
    double x = left;
    double y = top;
    for (const LegendEntry& entry : legend) {
        const std::string text = Elided(entry.Text, right - left - sample - kChartGap, font,
                                        *picture.LaidOutFor().Measure);
        const double width = sample + kChartGap + picture.WidthOf(text, font);
        if (x > left && x + width > right) {
            x = left;
            y += line;
        }
        picture.Add(
            LineFigure{x, y + line / 2, x + sample, y + line / 2, 4, entry.Pen, entry.Dashed});
        if (entry.Core) {
            picture.Add(LineFigure{x, y + line / 2, x + sample, y + line / 2, 2, *entry.Core});
        }
        picture.Text(x + sample + kChartGap, y, text, font, kInk);
        x += width + 3 * kChartGap;
    }
    return y + line - top;
}

bool Chart::Line(double x1, double y1, double x2, double y2, Colour colour, int width,
                 bool dashed) {
    const auto [low, high] = std::minmax(y1, y2);
    if (low > m_yScale.High || high < m_yScale.Low) {
        return false;
    }
    const auto x_at = [&](double y) {
        return y1 == y2 ? x1 : x1 + (y - y1) / (y2 - y1) * (x2 - x1);
    };
    const double start = std::clamp(y1, m_yScale.Low, m_yScale.High);
    const double end = std::clamp(y2, m_yScale.Low, m_yScale.High);
    m_picture.Add(LineFigure{ToX(start == y1 ? x1 : x_at(start)), ToY(start),
                             ToX(end == y2 ? x2 : x_at(end)), ToY(end), width, colour, dashed});
    return true;
}

void Chart::Limit(double y, Colour colour) {
    m_picture.Add(LineFigure{m_plot.Left, ToY(y), m_plot.Right, ToY(y), 2, colour, true});
    KeepClear(m_xScale.Low, y, m_xScale.High, y);
}

void Chart::Bar(double left, double right, double from, double to, Colour colour) {
    const double top = ToY(std::max(from, to));
    const BoxFigure bar{left, top, right - left, ToY(std::min(from, to)) - top, 0, colour};
    m_labels.Take({bar.X, bar.Y, bar.X + bar.Width, bar.Y + bar.Height});
    m_picture.Add(bar);
}

/// In pieces, so that a steep line takes no more room than it covers.
void Chart::KeepClear(double x1, double y1, double x2, double y2) {
    constexpr int pieces = 12;
    const auto at = [](double from, double to, int piece) {
        return from + (to - from) * piece / pieces;
    };
    for (int piece = 0; piece < pieces; ++piece) {
        const auto [left, right] =
            std::minmax({ToX(at(x1, x2, piece)), ToX(at(x1, x2, piece + 1))});
        const auto [top, bottom] =
            std::minmax({ToY(at(y1, y2, piece)), ToY(at(y1, y2, piece + 1))});
        m_lines.Take({left - kTwipsPerPixel, top - kTwipsPerPixel, right + kTwipsPerPixel,
                      bottom + kTwipsPerPixel});
    }
}

bool Chart::TryTake(const Extent& place, bool clearOfLines) {
    return (!clearOfLines || m_lines.IsFree(place)) && m_labels.TryTake(place);
}

void Chart::Guide(double x, const std::string& name, Colour colour) {
    m_picture.Line(ToX(x), m_plot.Top, ToX(x), m_plot.Bottom, colour);
    m_picture.Describe(name);
    m_guides.Take({ToX(x), m_plot.Top, ToX(x), m_plot.Bottom});
}

void Chart::NameGuide(double x, const std::string& name, const std::string& shorter) {
    if (!name.empty() && !TryName(x, name, name, false)) {
        TryName(x, shorter, name, false);
    }
}

void Chart::NameGuideAcross(double x, const std::string& name, const std::string& shorter) {
    if (name.empty() || TryName(x, name, name, true) || TryName(x, name, name, false)) {
        return;
    }
    if (!TryName(x, shorter, name, true)) {
        TryName(x, shorter, name, false);
    }
}

/// To the right of the guide before to the left of it. A name on a curve could not be read, nor
/// could the curve: rather none; the guide says it to who points at it.
bool Chart::TryName(double x, const std::string& text, const std::string& name, bool across) {
    const double length = m_picture.WidthOf(text, m_font);
    const double width = across ? length : m_line;
    const double height = across ? m_line : length;
    const double aside = across ? kChartGap : kTwipsPerPixel;
    for (const double left : {ToX(x) + aside, ToX(x) - aside - width}) {
        for (double top = m_plot.Top + kChartGap / 2; top + height <= m_plot.Bottom - kChartGap / 2;
             top += m_line / 2) {
            const Extent place{left, top, left + width, top + height};
            if (m_guides.IsFree(place) && TryTake(place, true)) {
                m_picture.Add(TextFigure{left, top, text, m_font, kGuideInk, !across});
                m_picture.Describe(name);
                return true;
            }
        }
    }
    return false;
}

void Chart::LabelBar(std::size_t place, double y, Colour colour) {
    constexpr int steps_per_line = 4;
    if (m_labelling == BarLabelling::None) {
        return;
    }
    const bool upright = m_labelling == BarLabelling::Upright;
    const std::string& text = m_labelling == BarLabelling::InFull ? m_frame.BarLabels[place]
                                                                  : m_frame.ShortBarLabels[place];
    const double length = m_picture.WidthOf(text, m_font);
    const double width = upright ? m_line : length;
    const double height = upright ? length + kChartGap / 2 : m_line;
    const double left = ToX(static_cast<double>(place) + 0.5) - width / 2;
    const double lowest = std::max(ToY(y) - height, m_plot.Top);
    double top = lowest;
    const auto clear = [&] { return m_lines.IsFree({left, top, left + width, top + height}); };
    while (!clear() && top > lowest - height - m_line) {
        top -= m_line / steps_per_line;
    }
    m_picture.Add(TextFigure{left, clear() ? top : lowest, text, m_font, colour, upright});
}

void Chart::Ring(double x, double y, Colour colour) {
    constexpr double radius = 90;
    m_labels.Take({ToX(x) - radius, ToY(y) - radius, ToX(x) + radius, ToY(y) + radius});
    m_picture.DrawWidth = 2;
    m_picture.Circle(ToX(x), ToY(y), radius, colour);
    m_picture.DrawWidth = 1;
}

void Chart::ArrowUp(double x, const std::string& text, Colour colour) {
    constexpr double half_head = 60;
    constexpr double head = 105;
    const double tip = m_plot.Top + kChartGap / 2;
    m_picture.DrawWidth = 2;
    m_picture.Line(ToX(x), tip + m_line, ToX(x), tip, colour);
    m_picture.Describe(text);
    m_picture.Line(ToX(x) - half_head, tip + head, ToX(x), tip, colour);
    m_picture.Line(ToX(x) + half_head, tip + head, ToX(x), tip, colour);
    m_picture.DrawWidth = 1;
    m_labels.Take({ToX(x) - half_head, tip, ToX(x) + half_head, tip + m_line});
    const double width = m_picture.WidthOf(text, m_font);
    for (const bool clear_of_lines : {true, false}) {
        for (const double left :
             {ToX(x) + 2 * kChartGap, ToX(x) - 2 * kChartGap - width, ToX(x) - width / 2}) {
            for (const double top : {tip, tip + m_line, tip + 2 * m_line}) {
                if (TryTake({left, top, left + width, top + m_line}, clear_of_lines)) {
                    m_picture.Text(left, top, text, m_font, colour);
                    return;
                }
            }
        }
    }
}

bool Chart::Label(double x, double y, const std::string& text, Colour colour, bool bold) {
    const Font font = m_picture.PageFont(0, bold);
    return TryLabel(x, y, text, font, colour, true) || TryLabel(x, y, text, font, colour, false);
}

/// Below the point before above it, to the right before to the left; then farther away.
bool Chart::TryLabel(double x, double y, const std::string& text, const Font& font, Colour colour,
                     bool clearOfLines) {
    constexpr int most_steps = 8;
    const double width = m_picture.WidthOf(text, font);
    for (int step = 0; step < most_steps; ++step) {
        const double away = kChartGap + step * m_line / 2;
        for (const double top : {ToY(y) + away, ToY(y) - away - m_line}) {
            for (const double left :
                 {ToX(x) + kChartGap, ToX(x) - kChartGap - width, ToX(x) - width / 2}) {
                if (TryTake({left, top, left + width, top + m_line}, clearOfLines)) {
                    m_picture.Text(left, top, text, font, colour);
                    return true;
                }
            }
        }
    }
    return false;
}

bool Chart::LabelAbove(double paperX, double y, const std::string& text, Colour colour) {
    const double width = m_picture.WidthOf(text, m_font);
    const double left =
        std::clamp(paperX - width / 2, m_plot.Left, std::max(m_plot.Left, m_plot.Right - width));
    for (const bool clear_of_lines : {true, false}) {
        for (const int lines : {1, 2, 3}) {
            const double top = ToY(y) - lines * m_line;
            if (TryTake({left, top, left + width, top + m_line}, clear_of_lines)) {
                m_picture.Text(left, top, text, m_font, colour);
                return true;
            }
        }
    }
    return false;
}

}  // namespace quarnel02
