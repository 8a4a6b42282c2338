#include "picture/Chart.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"

namespace quarnel02 {

namespace {

constexpr Colour kInk{40, 40, 40};
constexpr Colour kGridLine{225, 225, 225};
constexpr double kTickLength = 60;
constexpr double kGap = 60;

// Margins of the plot as shares of the paper.
constexpr double kLeftShare = 0.16;
constexpr double kRightShare = 0.96;
constexpr double kTopShare = 0.16;
constexpr double kBottomShare = 0.80;

}  // namespace

AxisScale RoundScale(double low, double high, int most) {
    const double span = high > low ? high - low : std::max(std::fabs(high), 1.0);
    const double power = std::pow(10, std::floor(std::log10(span / most)));
    double step = power;
    for (const double factor : {1.0, 2.0, 2.5, 5.0, 10.0, 20.0}) {
        step = factor * power;
        if (std::ceil(high / step) - std::floor(low / step) <= most) {
            break;
        }
    }
    const double first = std::floor(low / step) * step;
    return {first, std::max(std::ceil(high / step) * step, first + step), step};
}

std::string ThousandsText(double volume) {
    const double thousands = volume / 1000;
    const bool whole = std::fabs(thousands - std::round(thousands)) < 0.0005;
    return (whole ? Format(thousands, "###0") : NumberText(std::round(thousands * 1000) / 1000)) +
           "K";
}

Chart::Chart(Picture& picture, const std::string& title, Axis x, Axis y)
    : m_picture(picture),
      m_x(std::move(x)),
      m_y(std::move(y)),
      m_left(picture.Width() * kLeftShare),
      m_right(picture.Width() * kRightShare),
      m_top(picture.Height() * kTopShare),
      m_bottom(picture.Height() * kBottomShare) {
    m_picture.Clear();
    m_picture.DrawWidth = 1;
    m_picture.TextFont = {FontFamily::Proportional, 10};
    PrintAt((picture.Width() - TextWidth(title, picture.TextFont)) / 2, kGap, title, kInk);
    m_picture.TextFont = {FontFamily::Proportional, 8};
    DrawYTicks();
    DrawXTicks();
    DrawAxes();
}

double Chart::ToX(double x) const {
    return m_left + (x - m_x.Scale.Low) / (m_x.Scale.High - m_x.Scale.Low) * PlotWidth();
}

double Chart::ToY(double y) const {
    return m_bottom - (y - m_y.Scale.Low) / (m_y.Scale.High - m_y.Scale.Low) * (m_bottom - m_top);
}

void Chart::PrintAt(double x, double y, const std::string& text, Colour colour) {
    m_picture.CurrentX = x;
    m_picture.CurrentY = y;
    m_picture.Print(text, colour);
}

std::string Chart::TickText(const Axis& axis, double value) {
    if (axis.InThousands) {
        return ThousandsText(value);
    }
    if (axis.Money) {
        return value == 0 ? "$0" : Format(value, "$#,###");
    }
    return NumberText(std::round(value * 1e6) / 1e6);
}

void Chart::DrawAxes() {
    m_picture.Line(m_left, m_top, m_left, m_bottom, kInk);
    m_picture.Line(m_left, m_bottom, m_right, m_bottom, kInk);
    const Font& font = m_picture.TextFont;
    PrintAt(m_left + (PlotWidth() - TextWidth(m_x.Title, font)) / 2,
            m_picture.Height() - LineHeight(font) - kGap, m_x.Title, kInk);
    PrintAt(kGap, m_top - LineHeight(font) - 2 * kGap, m_y.Title, kInk);
}

void Chart::DrawXTicks() {
    const auto& [low, high, step] = m_x.Scale;
    double free_from = 0;
    const auto ticks = static_cast<int>(std::lround((high - low) / step));
    for (int tick = 0; tick <= ticks; ++tick) {
        const double value = low + tick * step;
        const double x = ToX(value);
        m_picture.Line(x, m_bottom, x, m_bottom + kTickLength, kInk);
        const std::string text = TickText(m_x, value);
        const double width = TextWidth(text, m_picture.TextFont);
        if (x - width / 2 >= free_from) {
            PrintAt(x - width / 2, m_bottom + kTickLength + kGap, text, kInk);
            free_from = x + width / 2 + kGap;
        }
    }
}

void Chart::DrawYTicks() {
    const auto& [low, high, step] = m_y.Scale;
    const auto ticks = static_cast<int>(std::lround((high - low) / step));
    for (int tick = 0; tick <= ticks; ++tick) {
        const double value = low + tick * step;
        const double y = ToY(value);
        m_picture.Line(m_left, y, m_right, y, kGridLine);
        m_picture.Line(m_left - kTickLength, y, m_left, y, kInk);
        const std::string text = TickText(m_y, value);
        PrintAt(m_left - kTickLength - kGap / 2 - TextWidth(text, m_picture.TextFont),
                y - LineHeight(m_picture.TextFont) / 2, text, kInk);
    }
}

void Chart::Line(double x1, double y1, double x2, double y2, Colour colour, int width) {
    m_picture.DrawWidth = width;
    m_picture.Line(ToX(x1), ToY(y1), ToX(x2), ToY(y2), colour);
    m_picture.DrawWidth = 1;
}

void Chart::Bar(double x, double y, double width, Colour colour) {
    m_picture.DrawWidth = std::max(1, static_cast<int>(width / kTwipsPerPixel));
    m_picture.Line(ToX(x), m_bottom, ToX(x), ToY(y), colour);
    m_picture.DrawWidth = 1;
}

void Chart::Guide(double x, Colour colour) {
    m_picture.Line(ToX(x), m_top, ToX(x), m_bottom, colour);
}

void Chart::Mark(double x, double y, Colour colour) {
    constexpr double radius = 70;
    m_picture.Fill = FillStyle::Solid;
    m_picture.Circle(ToX(x), ToY(y), radius, colour);
    m_picture.Fill = FillStyle::Transparent;
}

void Chart::PrintCentred(double x, double top, const std::string& text, Colour colour) {
    const double width = TextWidth(text, m_picture.TextFont);
    PrintAt(std::clamp(ToX(x) - width / 2, m_left, std::max(m_left, m_right - width)), top, text,
            colour);
}

void Chart::LabelAbove(double x, double y, const std::string& text, Colour colour) {
    PrintCentred(x, ToY(y) - LineHeight(m_picture.TextFont) - kGap, text, colour);
}

void Chart::LabelBelow(double x, double y, const std::string& text, Colour colour) {
    PrintCentred(x, ToY(y) + 2 * kGap, text, colour);
}

}  // namespace quarnel02
