#pragma once

#include <string>
#include <vector>

#include "picture/Picture.h"

namespace quarnel02 {

/// Range of an axis and the distance of its ticks.
struct AxisScale {
    double Low;
    double High;
    double Step;
};

/// A range that holds `low` to `high` in round steps, of which there are at most `most`.
AxisScale RoundScale(double low, double high, int most);

/// A volume in thousands: "12.5K".
std::string ThousandsText(double volume);

/// A chart on a picture: title, axes with ticks and labels, and lines or bars in data units.
/// The picture is cleared first.
class Chart {
  public:
    struct Axis {
        AxisScale Scale;
        std::string Title;
        bool InThousands = false;  ///< labels such as "20K"
        bool Money = false;        ///< labels such as "$1,200"
    };

    Chart(Picture& picture, const std::string& title, Axis x, Axis y);

    void Line(double x1, double y1, double x2, double y2, Colour colour, int width = 1);
    /// A bar from the x axis up to `y`, `width` in twips.
    void Bar(double x, double y, double width, Colour colour);
    /// A full height line behind a value of x.
    void Guide(double x, Colour colour);
    /// A disc on a point of the curve.
    void Mark(double x, double y, Colour colour);
    /// A text centred over or under a place in the plot, kept between its left and right ends.
    void LabelAbove(double x, double y, const std::string& text, Colour colour);
    void LabelBelow(double x, double y, const std::string& text, Colour colour);

    [[nodiscard]] double ToX(double x) const;
    [[nodiscard]] double ToY(double y) const;
    [[nodiscard]] double PlotWidth() const { return m_right - m_left; }

  private:
    void DrawAxes();
    void DrawXTicks();
    void DrawYTicks();
    void PrintCentred(double x, double top, const std::string& text, Colour colour);
    void PrintAt(double x, double y, const std::string& text, Colour colour);
    [[nodiscard]] static std::string TickText(const Axis& axis, double value);

    Picture& m_picture;
    Axis m_x;
    Axis m_y;
    double m_left;
    double m_right;
    double m_top;
    double m_bottom;
};

}  // namespace quarnel02
