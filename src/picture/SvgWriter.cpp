#include "picture/SvgWriter.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <pugixml.hpp>
#include <span>
#include <sstream>
#include <string>

#include "basic/Numbers.h"
#include "picture/Fonts.h"
#include "picture/Icons.h"

namespace quarnel02 {

namespace {

/// A list of families for a style sheet; names of several words in quotes.
std::string FontList(std::span<const char* const> families) {
    std::string list;
    for (const std::string family : families) {
        const std::string quote = family.find(' ') == std::string::npos ? "" : "'";
        list.append(list.empty() ? "" : ",").append(quote).append(family).append(quote);
    }
    return list;
}

std::string Coordinate(double twips) {
    return NumberText(std::round(twips * 100) / 100);
}

/// A measure in the unit square of an icon.
std::string UnitMeasure(double value) {
    return NumberText(std::round(value * 1e6) / 1e6);
}

std::string ColourText(Colour colour) {
    return "rgb(" + NumberText(int{colour.Red}) + "," + NumberText(int{colour.Green}) + "," +
           NumberText(int{colour.Blue}) + ")";
}

/// Control characters, which no XML holds, become blanks.
std::string Printable(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < ' '; }, ' ');
    return text;
}

/// A new last child of another element; attributes stand in the order in which they are set.
class Element {
  public:
    Element(pugi::xml_node parent, const char* name) : m_node(parent.append_child(name)) {}

    Element& Set(const char* attribute, const std::string& value) {
        m_node.append_attribute(attribute).set_value(value.c_str());
        return *this;
    }
    Element& Set(const char* attribute, double twips) { return Set(attribute, Coordinate(twips)); }
    Element& Stroke(Colour colour, int pixels) {
        return Set("stroke", ColourText(colour)).Set("stroke-width", pixels * kTwipsPerPixel);
    }
    Element& Fill(const CircleFigure& circle) {
        return Set("fill", circle.Filled ? ColourText(circle.Pen) : "none");
    }
    void Text(const std::string& text) { m_node.text().set(text.c_str()); }
    [[nodiscard]] pugi::xml_node Node() const { return m_node; }

  private:
    pugi::xml_node m_node;
};

void Append(pugi::xml_node svg, const LineFigure& line) {
    Element(svg, "line")
        .Set("x1", line.X1)
        .Set("y1", line.Y1)
        .Set("x2", line.X2)
        .Set("y2", line.Y2)
        .Stroke(line.Pen, line.Width);
}

void AppendFullEllipse(pugi::xml_node svg, const CircleFigure& circle) {
    Element(svg, "ellipse")
        .Set("cx", circle.X)
        .Set("cy", circle.Y)
        .Set("rx", circle.Radius)
        .Set("ry", circle.Radius * circle.Aspect)
        .Fill(circle)
        .Stroke(circle.Pen, circle.Width);
}

void Append(pugi::xml_node svg, const CircleFigure& circle) {
    const double sweep = circle.End - circle.Start;
    if (sweep >= 2 * std::numbers::pi - 1e-3) {
        AppendFullEllipse(svg, circle);
        return;
    }
    const double height = circle.Radius * circle.Aspect;
    const auto point = [&](double angle) {
        return Coordinate(circle.X + circle.Radius * std::cos(angle)) + " " +
               Coordinate(circle.Y - height * std::sin(angle));
    };
    Element(svg, "path")
        .Set("d", "M " + point(circle.Start) + " A " + Coordinate(circle.Radius) + " " +
                      Coordinate(height) + " 0 " + (sweep > std::numbers::pi ? "1" : "0") + " 0 " +
                      point(circle.End))
        .Fill(circle)
        .Stroke(circle.Pen, circle.Width);
}

void Append(pugi::xml_node svg, const TextFigure& text) {
    constexpr double ascent = 0.95;
    const double size = text.Face.Points * kTwipsPerPoint;
    const bool fixed = text.Face.Family == FontFamily::FixedPitch;
    Element element(svg, "text");
    element.Set("xml:space", "preserve")
        .Set("x", text.X)
        .Set("y", text.Y + size * ascent)
        .Set("font-size", size)
        .Set("class", fixed ? "fixed" : "label")
        .Set("fill", ColourText(text.Pen));
    if (fixed) {
        element.Set("textLength", TextWidth(text.Text, text.Face));
    }
    element.Text(Printable(text.Text));
}

void AppendShape(pugi::xml_node icon, const IconShape& shape) {
    if (shape.Radius > 0) {
        Element(icon, "circle")
            .Set("cx", UnitMeasure(shape.Points[0].X))
            .Set("cy", UnitMeasure(shape.Points[0].Y))
            .Set("r", UnitMeasure(shape.Radius))
            .Set("fill", ColourText(shape.Fill));
        return;
    }
    std::string points;
    for (const IconPoint& point : shape.Points) {
        points += (points.empty() ? "" : " ") + UnitMeasure(point.X) + "," + UnitMeasure(point.Y);
    }
    Element(icon, "polygon").Set("points", points).Set("fill", ColourText(shape.Fill));
}

void Append(pugi::xml_node svg, const IconFigure& icon) {
    Element group(svg, "g");
    group.Set("transform", "translate(" + Coordinate(icon.X) + " " + Coordinate(icon.Y) +
                               ") scale(" + Coordinate(icon.Size) + ")");
    for (const IconShape& shape : IconShapes(icon.Type)) {
        AppendShape(group.Node(), shape);
    }
}

void EndLine(pugi::xml_node svg) {
    svg.append_child(pugi::node_pcdata).set_value("\n");
}

/// The root, with style and paper, one line each.
pugi::xml_node AppendPaper(pugi::xml_document& document, const Extent& extent) {
    const double width = extent.Right - extent.Left;
    const double height = extent.Bottom - extent.Top;
    Element root(document.root(), "svg");
    root.Set("xmlns", "http://www.w3.org/2000/svg")
        .Set("width", width / kTwipsPerPixel)
        .Set("height", height / kTwipsPerPixel)
        .Set("viewBox", Coordinate(extent.Left) + " " + Coordinate(extent.Top) + " " +
                            Coordinate(width) + " " + Coordinate(height));
    EndLine(root.Node());
    Element(root.Node(), "style")
        .Text("text{white-space:pre}.fixed{font-family:" + FontList(kFixedPitchFamilies) +
              "}.label{font-family:" + FontList(kProportionalFamilies) + "}");
    EndLine(root.Node());
    Element(root.Node(), "rect")
        .Set("x", extent.Left)
        .Set("y", extent.Top)
        .Set("width", width)
        .Set("height", height)
        .Set("fill", "white");
    EndLine(root.Node());
    return root.Node();
}

}  // namespace

std::string ToSvg(const Picture& picture) {
    pugi::xml_document document;
    const pugi::xml_node svg = AppendPaper(document, picture.Bounds());
    for (const PictureFigure& figure : picture.Figures()) {
        std::visit([&](const auto& each) { Append(svg, each); }, figure);
        EndLine(svg);
    }
    std::ostringstream text;
    document.save(text, "", pugi::format_raw | pugi::format_no_declaration);
    return text.str() + "\n";
}

}  // namespace quarnel02
