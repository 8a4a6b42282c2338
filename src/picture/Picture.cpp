#include "picture/Picture.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <numbers>
#include <utility>

#include "basic/ScopeGuard.h"

namespace quarnel02 {

namespace {

constexpr double kMargin = 60;  ///< between the paper's edge and a line printer's text, twips

Extent Union(const Extent& a, const Extent& b) {
    return {std::min(a.Left, b.Left), std::min(a.Top, b.Top), std::max(a.Right, b.Right),
            std::max(a.Bottom, b.Bottom)};
}

}  // namespace

Picture::Picture(double width, double height) : Picture(Page{width, height}) {}

Picture::Picture(const Page& page) : m_page(page), m_width(page.Width), m_height(page.Height) {}

void Picture::Empty() {
    ++m_revision;
    m_figures.clear();
    m_hotSpots.clear();
    m_firstFixed = 0;
    m_endFixed = 0;
    m_width = m_page.Width;
    m_height = m_page.Height;
    CurrentX = 0;
    CurrentY = 0;
}

void Picture::Clear() {
    Empty();
    m_recipe = nullptr;
    Sheet = {};
    Changed();
}

void Picture::Compose(Recipe recipe) {
    Clear();
    m_recipe = std::move(recipe);
    Redraw();
    Changed();
}

void Picture::LayOut(const Page& page) {
    if (page == m_page) {
        return;
    }
    m_page = page;
    m_width = page.Width;
    m_height = page.Height;
    if (IsComposed()) {
        Redraw();
        Changed();
    }
}

/// A recipe starts from the same pen whatever was drawn before.
void Picture::Redraw() {
    Empty();
    DrawWidth = 1;
    Fill = FillStyle::Transparent;
    TextFont = {};
    m_composing = true;
    const ScopeGuard composed([this] { m_composing = false; });
    m_firstFixed = std::numeric_limits<std::size_t>::max();
    m_recipe(*this);
    m_endFixed = m_figures.size();
}

void Picture::SetPaper(double width, double height) {
    m_width = width;
    m_height = height;
}

void Picture::Changed() const {
    if (OnChange && !m_composing) {
        OnChange();
    }
}

void Picture::Add(PictureFigure figure) {
    m_figures.push_back(std::move(figure));
    Changed();
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

void Picture::Text(double x, double y, std::string_view text, const Font& font, Colour colour) {
    Add(TextFigure{x, y, WithoutControls(text), font, colour});
}

void Picture::Print(std::string_view text, Colour colour) {
    Text(CurrentX, CurrentY, text, TextFont, colour);
    CurrentX += WidthOf(text, TextFont);
}

void Picture::PrintNumber(double number) {
    Print(PrintedNumber(number));
}

void Picture::Icon(ResourceType type, double x, double y, double size) {
    Add(IconFigure{x, y, size, type});
}

void Picture::Describe(std::string words, std::optional<Reading> ends) {
    m_hotSpots.push_back({m_figures.size() - 1, std::move(words), ends});
}

const HotSpot* Picture::HotSpotAt(double x, double y, double reach) const {
    const HotSpot* nearest = nullptr;
    double shortest = reach;
    for (const HotSpot& spot : m_hotSpots) {
        const double distance = DistanceTo(m_figures[spot.Figure], x, y, *m_page.Measure);
        if (distance <= shortest) {
            shortest = distance;
            nearest = &spot;
        }
    }
    return nearest;
}

Font Picture::PageFont(double more, bool bold) const {
    return {FontFamily::Proportional, std::max(m_page.Points + more, Page::kSmallestPoints), bold};
}

Extent Picture::Bounds() const {
    return GrownByFigures({0, 0, m_width, m_height});
}

Extent Picture::Drawn() const {
    return GrownByFigures({0, 0, 0, 0});
}

Extent Picture::GrownByFigures(Extent extent) const {
    for (const PictureFigure& figure : m_figures) {
        extent = Union(extent, ExtentOf(figure, *m_page.Measure));
    }
    return extent;
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

std::optional<std::string> TextOf(const Picture& picture) {
    std::map<long, std::string> lines;
    for (const PictureFigure& figure : picture.Figures()) {
        const auto* text = std::get_if<TextFigure>(&figure);
        if (text == nullptr || text->Face.Family != FontFamily::FixedPitch) {
            return std::nullopt;
        }
        std::string& line = lines[std::lround((text->Y - kMargin) / LineHeight(text->Face))];
        const long column = std::lround((text->X - kMargin) / CharacterWidth(text->Face));
        line.append(static_cast<std::size_t>(std::max(0L, column - CharacterCount(line))), ' ');
        line += text->Text;
    }
    if (lines.empty()) {
        return std::nullopt;
    }
    std::string all;
    for (long line = 0; line <= lines.rbegin()->first; ++line) {
        all += lines[line] + "\n";
    }
    return all;
}

}  // namespace quarnel02
