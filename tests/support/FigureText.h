#pragma once

#include <cmath>
#include <string>
#include <variant>
#include <vector>

#include "basic/Numbers.h"
#include "picture/Picture.h"

namespace quarnel02::test {

inline std::string PairText(double x, double y) {
    return "(" + NumberText(x) + ", " + NumberText(y) + ")";
}

inline std::string PenText(int width, Colour pen) {
    return " width " + NumberText(width) + " rgb " + NumberText(int{pen.Red}) + "," +
           NumberText(int{pen.Green}) + "," + NumberText(int{pen.Blue});
}

inline std::string FigureText(const LineFigure& line) {
    return "line " + PairText(line.X1, line.Y1) + " to " + PairText(line.X2, line.Y2) +
           PenText(line.Width, line.Pen);
}

inline std::string FigureText(const CircleFigure& circle) {
    return "circle " + PairText(circle.X, circle.Y) + " radius " + NumberText(circle.Radius) +
           " from " + NumberText(circle.Start) + " to " + NumberText(circle.End) + " aspect " +
           NumberText(circle.Aspect) + PenText(circle.Width, circle.Pen) +
           (circle.Filled ? " filled" : "");
}

inline std::string FigureText(const BoxFigure& box) {
    return "box " + PairText(box.X, box.Y) + " size " + PairText(box.Width, box.Height) +
           PenText(box.FrameWidth, box.Fill);
}

inline std::string FigureText(const TextFigure& text) {
    return "text " + PairText(text.X, text.Y) + " [" + text.Text + "]";
}

inline std::string FigureText(const IconFigure& icon) {
    return "icon " + NumberText(static_cast<int>(icon.Type)) + " " + PairText(icon.X, icon.Y) +
           " size " + NumberText(icon.Size);
}

/// The figures of a picture in drawing order, one text each, for whole comparisons.
inline std::vector<std::string> FigureTexts(const Picture& picture) {
    std::vector<std::string> texts;
    for (const PictureFigure& figure : picture.Figures()) {
        texts.push_back(std::visit([](const auto& each) { return FigureText(each); }, figure));
    }
    return texts;
}

/// A measure of a drawing, freed of the rounding of its placement.
inline double Rounded(double value) {
    return std::round(value * 1000) / 1000;
}

/// Arcs, nodes and task numbers of a network in the units of its sheet, in drawing order.
inline std::vector<std::string> NetworkTexts(const Picture& picture) {
    const auto& [scale, left, top, stretch] = picture.Sheet;
    std::vector<std::string> texts;
    for (std::size_t place = 0; place < picture.Figures().size(); ++place) {
        if (picture.IsFixed(place)) {
            continue;
        }
        const PictureFigure& figure = picture.Figures()[place];
        if (const auto* circle = std::get_if<CircleFigure>(&figure)) {
            CircleFigure on_sheet = *circle;
            on_sheet.X = Rounded((circle->X - left) / scale);
            on_sheet.Y = Rounded((circle->Y - top) / (scale * stretch));
            on_sheet.Radius = circle->Filled ? 0 : Rounded(circle->Radius / scale);
            on_sheet.Aspect = circle->Filled ? 1 : Rounded(circle->Aspect / stretch);
            texts.push_back(FigureText(on_sheet));
        } else if (const auto* text = std::get_if<TextFigure>(&figure)) {
            const double middle = text->X + picture.WidthOf(text->Text, text->Face) / 2;
            texts.push_back("task " + text->Text + " at " +
                            NumberText(Rounded((middle - left) / scale)));
        }
    }
    return texts;
}

/// Figures of one kind, in drawing order.
template <class Kind>
std::vector<Kind> FiguresOf(const Picture& picture) {
    std::vector<Kind> found;
    for (const PictureFigure& figure : picture.Figures()) {
        if (const auto* each = std::get_if<Kind>(&figure)) {
            found.push_back(*each);
        }
    }
    return found;
}

}  // namespace quarnel02::test
