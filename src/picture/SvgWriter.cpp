#include "picture/SvgWriter.h"

#include <cmath>
#include <numbers>

#include "basic/Numbers.h"
#include "picture/Icons.h"

namespace quarnel02 {

namespace {

constexpr double kTwipsPerPoint = kTwipsPerInch / 72;

std::string Coordinate(double twips) {
    return NumberText(std::round(twips * 100) / 100);
}

std::string Attribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + value + "\"";
}

std::string Attribute(const char* name, double twips) {
    return Attribute(name, Coordinate(twips));
}

std::string ColourText(Colour colour) {
    return "rgb(" + NumberText(int{colour.Red}) + "," + NumberText(int{colour.Green}) + "," +
           NumberText(int{colour.Blue}) + ")";
}

std::string Stroke(Colour colour, int pixels) {
    return Attribute("stroke", ColourText(colour)) +
           Attribute("stroke-width", pixels * kTwipsPerPixel);
}

std::string Escaped(const std::string& text) {
    std::string safe;
    for (const char c : text) {
        switch (c) {
            case '&':
                safe += "&amp;";
                break;
            case '<':
                safe += "&lt;";
                break;
            case '>':
                safe += "&gt;";
                break;
            default:
                safe += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
        }
    }
    return safe;
}

std::string Element(const LineFigure& line) {
    return "<line" + Attribute("x1", line.X1) + Attribute("y1", line.Y1) +
           Attribute("x2", line.X2) + Attribute("y2", line.Y2) + Stroke(line.Pen, line.Width) +
           "/>\n";
}

std::string FullEllipse(const CircleFigure& circle) {
    return "<ellipse" + Attribute("cx", circle.X) + Attribute("cy", circle.Y) +
           Attribute("rx", circle.Radius) + Attribute("ry", circle.Radius * circle.Aspect) +
           Attribute("fill", circle.Filled ? ColourText(circle.Pen) : "none") +
           Stroke(circle.Pen, circle.Width) + "/>\n";
}

std::string Element(const CircleFigure& circle) {
    const double sweep = circle.End - circle.Start;
    if (sweep >= 2 * std::numbers::pi - 1e-3) {
        return FullEllipse(circle);
    }
    const double height = circle.Radius * circle.Aspect;
    const auto point = [&](double angle) {
        return Coordinate(circle.X + circle.Radius * std::cos(angle)) + " " +
               Coordinate(circle.Y - height * std::sin(angle));
    };
    const std::string path = "M " + point(circle.Start) + " A " + Coordinate(circle.Radius) + " " +
                             Coordinate(height) + " 0 " + (sweep > std::numbers::pi ? "1" : "0") +
                             " 0 " + point(circle.End);
    return "<path" + Attribute("d", path) +
           Attribute("fill", circle.Filled ? ColourText(circle.Pen) : "none") +
           Stroke(circle.Pen, circle.Width) + "/>\n";
}

std::string Element(const TextFigure& text) {
    constexpr double ascent = 0.95;
    const double size = text.Face.Points * kTwipsPerPoint;
    const bool fixed = text.Face.Family == FontFamily::FixedPitch;
    std::string element = "<text xml:space=\"preserve\"" + Attribute("x", text.X) +
                          Attribute("y", text.Y + size * ascent) + Attribute("font-size", size) +
                          Attribute("class", fixed ? "fixed" : "label") +
                          Attribute("fill", ColourText(text.Pen));
    if (fixed) {
        element += Attribute("textLength", TextWidth(text.Text, text.Face));
    }
    return element + ">" + Escaped(text.Text) + "</text>\n";
}

/// A measure in the unit square of an icon.
std::string UnitMeasure(double value) {
    return NumberText(std::round(value * 1e6) / 1e6);
}

std::string ShapeElement(const IconShape& shape) {
    const std::string fill = Attribute("fill", ColourText(shape.Fill));
    if (shape.Radius > 0) {
        return "<circle" + Attribute("cx", UnitMeasure(shape.Points[0].X)) +
               Attribute("cy", UnitMeasure(shape.Points[0].Y)) +
               Attribute("r", UnitMeasure(shape.Radius)) + fill + "/>";
    }
    std::string points;
    for (const IconPoint& point : shape.Points) {
        points += (points.empty() ? "" : " ") + UnitMeasure(point.X) + "," + UnitMeasure(point.Y);
    }
    return "<polygon" + Attribute("points", points) + fill + "/>";
}

std::string Element(const IconFigure& icon) {
    std::string element =
        "<g" +
        Attribute("transform", "translate(" + Coordinate(icon.X) + " " + Coordinate(icon.Y) +
                                   ") scale(" + Coordinate(icon.Size) + ")") +
        ">";
    for (const IconShape& shape : IconShapes(icon.Type)) {
        element += ShapeElement(shape);
    }
    return element + "</g>\n";
}

}  // namespace

std::string ToSvg(const Picture& picture) {
    const Extent extent = picture.Bounds();
    const double width = extent.Right - extent.Left;
    const double height = extent.Bottom - extent.Top;
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\"" +
                      Attribute("width", width / kTwipsPerPixel) +
                      Attribute("height", height / kTwipsPerPixel) +
                      Attribute("viewBox", Coordinate(extent.Left) + " " + Coordinate(extent.Top) +
                                               " " + Coordinate(width) + " " + Coordinate(height)) +
                      ">\n<style>text{white-space:pre}"
                      ".fixed{font-family:'Liberation Mono','DejaVu Sans Mono',monospace}"
                      ".label{font-family:'Liberation Sans','DejaVu Sans',Arial,sans-serif}"
                      "</style>\n";
    svg += "<rect" + Attribute("x", extent.Left) + Attribute("y", extent.Top) +
           Attribute("width", width) + Attribute("height", height) + Attribute("fill", "white") +
           "/>\n";
    for (const PictureFigure& figure : picture.Figures()) {
        svg += std::visit([](const auto& each) { return Element(each); }, figure);
    }
    return svg + "</svg>\n";
}

}  // namespace quarnel02
