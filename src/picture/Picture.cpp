#include "picture/Picture.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace quarnel02 {

namespace {

constexpr double kMargin = 60;  ///< between the paper's edge and a line printer's text, twips

void Grow(Extent& extent, double left, double top, double right, double bottom) {
    extent.Left = std::min(extent.Left, left);
    extent.Top = std::min(extent.Top, top);
    extent.Right = std::max(extent.Right, right);
    extent.Bottom = std::max(extent.Bottom, bottom);
}

void GrowBy(Extent& extent, const LineFigure& line) {
    Grow(extent, std::min(line.X1, line.X2), std::min(line.Y1, line.Y2), std::max(line.X1, line.X2),
         std::max(line.Y1, line.Y2));
}

/// The half of an ellipse that is not drawn does not count.
void GrowBy(Extent& extent, const CircleFigure& circle) {
    const double height = circle.Radius * circle.Aspect;
    const double pen = circle.Width * kTwipsPerPixel / 2;
    constexpr double almost_pi = std::numbers::pi - 0.001;
    const bool lower_half = circle.Start >= almost_pi;
    const bool upper_half = circle.Start >= 0 && circle.End <= std::numbers::pi + 0.001;
    Grow(extent, circle.X - circle.Radius - pen, circle.Y - (lower_half ? 0 : height) - pen,
         circle.X + circle.Radius + pen, circle.Y + (upper_half ? 0 : height) + pen);
}

void GrowBy(Extent& extent, const TextFigure& text) {
    Grow(extent, text.X, text.Y, text.X + TextWidth(text.Text, text.Face),
         text.Y + LineHeight(text.Face));
}

void GrowBy(Extent& extent, const IconFigure& icon) {
    Grow(extent, icon.X, icon.Y, icon.X + icon.Size, icon.Y + icon.Size);
}

}  // namespace

void Picture::Clear() {
    m_figures.clear();
    CurrentX = 0;
    CurrentY = 0;
    if (OnChange) {
        OnChange();
    }
}

void Picture::Add(PictureFigure figure) {
    m_figures.push_back(std::move(figure));
    if (OnChange) {
        OnChange();
    }
}

void Picture::Line(double x1, double y1, double x2, double y2, Colour colour) {
    Add(LineFigure{x1, y1, x2, y2, DrawWidth, colour});
}

void Picture::Circle(double x, double y, double radius, Colour colour, double start, double end,
                     double aspect) {
    Add(CircleFigure{x, y, radius, start, end, aspect, DrawWidth, colour,
                     Fill == FillStyle::Solid});
    CurrentX = x;
    CurrentY = y;
}

void Picture::Circle(double x, double y, double radius, Colour colour) {
    Circle(x, y, radius, colour, 0, 2 * std::numbers::pi, 1);
}

void Picture::Print(std::string_view text, Colour colour) {
    Add(TextFigure{CurrentX, CurrentY, WithoutControls(text), TextFont, colour});
    CurrentX += TextWidth(text, TextFont);
}

void Picture::PrintNumber(double number) {
    Print(PrintedNumber(number));
}

void Picture::Icon(ResourceType type, double x, double y, double size) {
    Add(IconFigure{x, y, size, type});
}

Extent Picture::Bounds() const {
    return GrownByFigures({0, 0, m_width, m_height});
}

Extent Picture::Drawn() const {
    return GrownByFigures({0, 0, 0, 0});
}

Extent Picture::GrownByFigures(Extent extent) const {
    for (const PictureFigure& figure : m_figures) {
        std::visit([&](const auto& each) { GrowBy(extent, each); }, figure);
    }
    return extent;
}

double LineHeight(const Font& font) {
    return std::round(font.Points * kTwipsPerPoint * 1.25);
}

double CharacterWidth(const Font& font) {
    return font.Points * kTwipsPerPoint * 0.6;
}

double TextWidth(std::string_view text, const Font& font) {
    constexpr double proportional_share = 0.85;
    const double width = CharacterCount(text) * CharacterWidth(font);
    return font.Family == FontFamily::FixedPitch ? width : width * proportional_share;
}

PictureLines::PictureLines(Picture& picture)
    : m_picture(picture), m_left(picture.CurrentX + kMargin), m_top(picture.CurrentY + kMargin) {
    m_picture.TextFont.Family = FontFamily::FixedPitch;
}

void PictureLines::Write(int column, std::string_view text) {
    if (text.find_first_not_of(' ') == std::string_view::npos) {
        return;
    }
    m_picture.CurrentX = m_left + (column - 1) * CharacterWidth(m_picture.TextFont);
    m_picture.CurrentY = m_top;
    m_picture.Print(text);
}

void PictureLines::EndLine() {
    m_top += LineHeight(m_picture.TextFont);
    m_picture.CurrentX = m_left;
    m_picture.CurrentY = m_top;
}

}  // namespace quarnel02
