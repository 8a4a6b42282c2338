#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "basic/LinePrinter.h"
#include "picture/Figures.h"
#include "picture/HotSpot.h"
#include "picture/TextMeasure.h"
#include "picture/Units.h"

namespace quarnel02 {

enum class FillStyle { Solid = 0, Transparent = 1 };

/// What a picture is laid out for: paper or box, and the letters that will be used.
struct Page {
    static constexpr double kUsualPoints = 9;
    static constexpr double kSmallestPoints = 8;

    double Width = 0;   ///< twips
    double Height = 0;  ///< twips
    double Points = kUsualPoints;
    double Zoom = 1;  ///< how much larger than the page a drawing that can be enlarged shall be
    const TextMeasure* Measure = &FileMeasure();  ///< outlives the picture
    bool operator==(const Page&) const = default;
};

/// Where the units of a drawing that is made on a fixed sheet stand on the paper.
struct Placement {
    double Scale = 1;
    double Left = 0;     ///< twips
    double Top = 0;      ///< twips
    double Stretch = 1;  ///< of heights, beside Scale
    bool operator==(const Placement&) const = default;
};

/// A drawing as data: a list of figures that a window paints, a file writer writes and a test
/// reads, with the words behind them. Its size is that of the paper drawn for; figures may reach
/// beyond it.
///
/// A picture that was composed can be laid out anew for another page: what it shows stays, how it
/// fills the page follows.
class Picture {
  public:
    using Recipe = std::function<void(Picture&)>;

    Picture(double width, double height);
    explicit Picture(const Page& page);

    [[nodiscard]] double Width() const { return m_width; }
    [[nodiscard]] double Height() const { return m_height; }
    [[nodiscard]] const std::vector<PictureFigure>& Figures() const { return m_figures; }
    [[nodiscard]] std::span<const HotSpot> HotSpots() const { return m_hotSpots; }
    [[nodiscard]] const Page& LaidOutFor() const { return m_page; }
    [[nodiscard]] bool IsComposed() const { return m_recipe != nullptr; }
    /// Whether a figure stays where it is when the paper is moved under its window.
    [[nodiscard]] bool IsFixed(std::size_t figure) const {
        return figure >= m_firstFixed && figure < m_endFixed;
    }
    /// Another one after Clear and after every composition: figures of one revision are only added
    /// to.
    [[nodiscard]] int Revision() const { return m_revision; }

    /// Removes every figure and recipe and puts the text position at the upper left corner. Line
    /// width, fill style and font stay as they are.
    void Clear();
    /// Clears the picture and draws it by a recipe, which owns all that it needs; it is run again
    /// for every other page.
    void Compose(Recipe recipe);
    /// Draws a composed picture anew for a page; of any other one only the page changes.
    void LayOut(const Page& page);
    /// Another size of the paper, for a recipe that needs more than the page or less.
    void SetPaper(double width, double height);
    /// All further figures of the recipe are fixed.
    void BeginFixed() { m_firstFixed = m_figures.size(); }

    int DrawWidth = 1;  ///< line width of further lines and circles, pixels
    FillStyle Fill = FillStyle::Transparent;
    Font TextFont;
    Placement Sheet;
    /// Told of every change, right after it: of each further figure, of a whole composition, and of
    /// Clear, after which there are no figures.
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
    /// Adds a figure as it is.
    void Add(PictureFigure figure);
    /// Writes a text, with a blank for every control character; the text position stays.
    void Text(double x, double y, std::string_view text, const Font& font, Colour colour);

    /// Puts words behind the figure that was added last.
    void Describe(std::string words, std::optional<Reading> ends = {});
    /// The hot spot whose figure is nearest to a point and at most `reach` away, of equally near
    /// ones the topmost; null when there is none.
    [[nodiscard]] const HotSpot* HotSpotAt(double x, double y, double reach) const;

    /// A font of the page: its size plus `more` points.
    [[nodiscard]] Font PageFont(double more = 0, bool bold = false) const;
    [[nodiscard]] double WidthOf(std::string_view text, const Font& font) const {
        return m_page.Measure->Width(text, font);
    }

    /// The paper and everything drawn beyond it.
    [[nodiscard]] Extent Bounds() const;
    /// Everything drawn, from the paper's upper left corner on.
    [[nodiscard]] Extent Drawn() const;

  private:
    void Empty();
    void Redraw();
    void Changed() const;
    [[nodiscard]] Extent GrownByFigures(Extent extent) const;

    Page m_page;
    double m_width;
    double m_height;
    std::vector<PictureFigure> m_figures;
    std::vector<HotSpot> m_hotSpots;
    std::size_t m_firstFixed = 0;
    std::size_t m_endFixed = 0;
    int m_revision = 0;
    Recipe m_recipe;
    bool m_composing = false;
};

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

/// The lines of a picture on which there is nothing but what PictureLines wrote from its corner;
/// none for any other picture and for an empty one.
std::optional<std::string> TextOf(const Picture& picture);

}  // namespace quarnel02
