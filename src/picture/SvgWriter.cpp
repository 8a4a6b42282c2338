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

constexpr double kDash = 90;     ///< twips
constexpr double kDashGap = 60;  ///< twips

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
    /// Nothing is said of what is not faded.
    Element& Fade(double opacity) {
        return opacity < 1 ? Set("opacity", UnitMeasure(opacity)) : *this;
    }
    void Text(const std::string& text) { m_node.text().set(text.c_str()); }
    [[nodiscard]] pugi::xml_node Node() const { return m_node; }

  private:
    pugi::xml_node m_node;
};

pugi::xml_node Append(pugi::xml_node svg, const LineFigure& line) {
    Element element(svg, "line");
    element.Set("x1", line.X1)
        .Set("y1", line.Y1)
        .Set("x2", line.X2)
        .Set("y2", line.Y2)
        .Stroke(line.Pen, line.Width);
    if (line.Dashed) {
        element.Set("stroke-dasharray", Coordinate(kDash) + " " + Coordinate(kDashGap));
    }
    return element.Node();
}

pugi::xml_node Append(pugi::xml_node svg, const BoxFigure& box) {
    Element element(svg, "rect");
    element.Set("x", box.X)
        .Set("y", box.Y)
        .Set("width", box.Width)
        .Set("height", box.Height)
        .Set("fill", ColourText(box.Fill));
    if (box.Rounding > 0) {
        element.Set("rx", box.Rounding);
    }
    if (box.FrameWidth > 0) {
        element.Stroke(box.Frame, box.FrameWidth);
    }
    return element.Node();
}

pugi::xml_node AppendFullEllipse(pugi::xml_node svg, const CircleFigure& circle) {
    return Element(svg, "ellipse")
        .Set("cx", circle.X)
        .Set("cy", circle.Y)
        .Set("rx", circle.Radius)
        .Set("ry", circle.Radius * circle.Aspect)
        .Fill(circle)
        .Stroke(circle.Pen, circle.Width)
        .Fade(circle.Opacity)
        .Node();
}

pugi::xml_node Append(pugi::xml_node svg, const CircleFigure& circle) {
    const double sweep = circle.End - circle.Start;
    if (sweep >= 2 * std::numbers::pi - 1e-3) {
        return AppendFullEllipse(svg, circle);
    }
    const double height = circle.Radius * circle.Aspect;
    const auto point = [&](double angle) {
        return Coordinate(circle.X + circle.Radius * std::cos(angle)) + " " +
               Coordinate(circle.Y - height * std::sin(angle));
    };
    return Element(svg, "path")
        .Set("d", "M " + point(circle.Start) + " A " + Coordinate(circle.Radius) + " " +
                      Coordinate(height) + " 0 " + (sweep > std::numbers::pi ? "1" : "0") + " 0 " +
                      point(circle.End))
        .Fill(circle)
        .Stroke(circle.Pen, circle.Width)
        .Fade(circle.Opacity)
        .Node();
}

pugi::xml_node Append(pugi::xml_node svg, const TextFigure& text) {
    const double size = text.Face.Points * kTwipsPerPoint;
    const bool fixed = text.Face.Family == FontFamily::FixedPitch;
    Element element(svg, "text");
    element.Set("xml:space", "preserve")
        .Set("x", text.Turned ? text.X + LineHeight(text.Face) - Baseline(text.Face) : text.X)
        .Set("y", text.Turned ? text.Y : text.Y + Baseline(text.Face))
        .Set("font-size", size)
        .Set("class", fixed ? "fixed" : "label")
        .Set("fill", ColourText(text.Pen));
    if (fixed) {
        element.Set("textLength", TextWidth(text.Text, text.Face));
    }
    if (text.Face.Bold) {
        element.Set("font-weight", "bold");
    }
    if (text.Turned) {
        element.Set("transform",
                    "rotate(90 " +
                        Coordinate(text.X + LineHeight(text.Face) - Baseline(text.Face)) + " " +
                        Coordinate(text.Y) + ")");
    }
    element.Text(Printable(text.Text));
    return element.Node();
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

pugi::xml_node Append(pugi::xml_node svg, const IconFigure& icon) {
    Element group(svg, "g");
    group.Set("transform", "translate(" + Coordinate(icon.X) + " " + Coordinate(icon.Y) +
                               ") scale(" + Coordinate(icon.Size) + ")");
    for (const IconShape& shape : IconShapes(icon.Type)) {
        AppendShape(group.Node(), shape);
    }
    return group.Node();
}

/// What a viewer shows when the pointer rests on the figure.
void AppendTitle(pugi::xml_node figure, const std::string& words) {
    figure.prepend_child("title").text().set(Printable(words).c_str());
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
    auto spot = picture.HotSpots().begin();
    for (std::size_t place = 0; place < picture.Figures().size(); ++place) {
        pugi::xml_node node = std::visit([&](const auto& each) { return Append(svg, each); },
                                         picture.Figures()[place]);
        for (; spot != picture.HotSpots().end() && spot->Figure == place; ++spot) {
            AppendTitle(node, WordsOf(*spot));
        }
        EndLine(svg);
    }
    std::ostringstream text;
    document.save(text, "", pugi::format_raw | pugi::format_no_declaration);
    return text.str() + "\n";
}

}  // namespace quarnel02
