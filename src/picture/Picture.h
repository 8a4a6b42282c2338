#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "basic/LinePrinter.h"

namespace quarnel02 {

/// Twips per inch, per point of 72 and per screen pixel of 96 to the inch: the unit of all picture
/// coordinates.
constexpr double kTwipsPerInch = 1440.0;
constexpr double kTwipsPerPoint = 20.0;
constexpr double kTwipsPerPixel = 15.0;

struct Colour {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;
    bool operator==(const Colour&) const = default;
};

/// Equipment classes, with the codes that Resources.Type stores.
enum class ResourceType : std::int8_t { Manual = 0, Fixed = 1, Programmable = 2, Automated = 3 };

enum class FillStyle { Solid = 0, Transparent = 1 };

/// A fixed-pitch font puts the columns of a line printer under one another.
enum class FontFamily { Proportional, FixedPitch };

struct Font {
    FontFamily Family = FontFamily::Proportional;
    double Points = 8;
    bool operator==(const Font&) const = default;
};

/// What a picture shows: figures in drawing order, later ones over earlier ones. Coordinates and
/// sizes in twips, x to the right, y downwards; line widths in pixels of 15 twips.
struct LineFigure {
    double X1;
    double Y1;
    double X2;
    double Y2;
    int Width;
    Colour Pen;
    bool operator==(const LineFigure&) const = default;
};

/// Part of an ellipse round (X, Y), from angle Start to angle End in radians, counter-clockwise
/// from the right. Radius is the half width, Radius x Aspect the half height. A filled one is
/// closed and filled with the colour of its line.
struct CircleFigure {
    double X;
    double Y;
    double Radius;
    double Start;
    double End;
    double Aspect;
    int Width;
    Colour Pen;
    bool Filled;
    bool operator==(const CircleFigure&) const = default;
};

/// A text whose upper left corner is at (X, Y).
struct TextFigure {
    double X;
    double Y;
    std::string Text;
    Font Face;
    Colour Pen;
    bool operator==(const TextFigure&) const = default;
};

/// The drawing of an equipment class in the square of side Size whose upper left corner is at
/// (X, Y).
struct IconFigure {
    double X;
    double Y;
    double Size;
    ResourceType Type;
    bool operator==(const IconFigure&) const = default;
};

using PictureFigure = std::variant<LineFigure, CircleFigure, TextFigure, IconFigure>;

/// Smallest upright rectangle round something.
struct Extent {
    double Left;
    double Top;
    double Right;
    double Bottom;
};

/// A drawing as data: a list of figures that a window paints, a file writer writes and a test
/// reads. Its size is that of the paper drawn for; figures may reach beyond it.
class Picture {
  public:
    Picture(double width, double height) : m_width(width), m_height(height) {}

    [[nodiscard]] double Width() const { return m_width; }
    [[nodiscard]] double Height() const { return m_height; }
    [[nodiscard]] const std::vector<PictureFigure>& Figures() const { return m_figures; }

    /// Removes every figure and puts the text position at the upper left corner. Line width, fill
    /// style and font stay as they are.
    void Clear();

    int DrawWidth = 1;  ///< line width of further lines and circles, pixels
    FillStyle Fill = FillStyle::Transparent;
    Font TextFont;
    /// Told of every change, right after it: of each further figure, and of Clear, after which
    /// there are no figures.
    std::function<void()> OnChange;
    double CurrentX = 0;  ///< text position
    double CurrentY = 0;

    void Line(double x1, double y1, double x2, double y2, Colour colour);
    /// Draws part of an ellipse and leaves the text position at its centre.
    void Circle(double x, double y, double radius, Colour colour, double start, double end,
                double aspect);
    /// Draws a full circle and leaves the text position at its centre.
    void Circle(double x, double y, double radius, Colour colour);
    /// Writes a text at the text position, with a blank for every control character, and moves the
    /// position to the text's end.
    void Print(std::string_view text, Colour colour = {});
    /// Writes a number as a line printer does, with a blank on either side.
    void PrintNumber(double number);
    void Icon(ResourceType type, double x, double y, double size);

    /// The paper and everything drawn beyond it.
    [[nodiscard]] Extent Bounds() const;
    /// Everything drawn, from the paper's upper left corner on.
    [[nodiscard]] Extent Drawn() const;

  private:
    void Add(PictureFigure figure);
    [[nodiscard]] Extent GrownByFigures(Extent extent) const;

    double m_width;
    double m_height;
    std::vector<PictureFigure> m_figures;
};

/// Height of a line of text and width of a fixed-pitch character, twips.
double LineHeight(const Font& font);
double CharacterWidth(const Font& font);
/// Width of a text, twips: exact in fixed pitch, else an estimate for laying out labels.
double TextWidth(std::string_view text, const Font& font);

/// Lets a line printer write on a picture in fixed pitch, from the upper left corner down.
class PictureLines : public LineSink {
  public:
    explicit PictureLines(Picture& picture);
    void Write(int column, std::string_view text) override;
    void EndLine() override;

  private:
    Picture& m_picture;
    double m_left;
    double m_top;
};

}  // namespace quarnel02
