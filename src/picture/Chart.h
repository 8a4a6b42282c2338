#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "picture/Axis.h"
#include "picture/LabelPlaces.h"
#include "picture/Picture.h"

namespace quarnel02 {

inline constexpr double kChartGap = 75;  ///< between the parts of a chart, twips

/// A curve or a kind of bar in the legend of a drawing.
struct LegendEntry {
    std::string Text;
    Colour Pen;
    bool Dashed = false;
    std::optional<Colour> Core = {};  ///< of a thinner line inside
};

/// What stands round the plot of a chart.
struct ChartFrame {
    std::string Title;
    Axis X;
    Axis Y;
    std::vector<LegendEntry> Legend;
    /// Names of the places along x instead of a scale: place i reaches from i to i + 1. Their
    /// numbers stand alone, or every second, fifth and so on, where the names have no room.
    std::vector<std::string> Places;
    bool LabelsOnBars = false;  ///< the highest value needs room for a label over it
    /// What stands over the bars of the places, and what instead where not all have room; see
    /// LabelBar.
    std::vector<std::string> BarLabels = {};
    std::vector<std::string> ShortBarLabels = {};
};

/// How the bars of a chart are labelled.
enum class BarLabelling { InFull, InShort, Upright, None };

/// Writes a legend in rows from (left, top) to `right` and returns the height of the rows.
double DrawLegend(Picture& picture, std::span<const LegendEntry> legend, double left, double top,
                  double right);

/// A chart that fills the paper: title, legend, axes with ticks and labels, and lines or bars in
/// data units. Paper that is too small for it grows. To be drawn by a recipe.
class Chart {
  public:
    Chart(Picture& picture, ChartFrame frame);

    /// A line, as far as it lies within the y axis; false when nothing of it does.
    bool Line(double x1, double y1, double x2, double y2, Colour colour, int width = 1,
              bool dashed = false);
    /// A dashed line across the plot at a value of y.
    void Limit(double y, Colour colour);
    /// A bar between two places on the paper and two values of y.
    void Bar(double left, double right, double from, double to, Colour colour);
    /// Texts keep clear of this line of the data as long as they have room elsewhere.
    void KeepClear(double x1, double y1, double x2, double y2);
    /// A full height line at a value of x; the name is behind it.
    void Guide(double x, const std::string& name, Colour colour);
    /// Writes the name of a guide along it, as high up as it is clear of lines and other guides,
    /// else a shorter one, else none.
    void NameGuide(double x, const std::string& name, const std::string& shorter);
    /// The same with the name across, where it has room, before a name along the guide.
    void NameGuideAcross(double x, const std::string& name, const std::string& shorter);
    /// The label of a place over the value of its bar, as soon as it is clear of lines. All bars
    /// are labelled the same way: in full, in short, upright or not at all.
    void LabelBar(std::size_t place, double y, Colour colour);
    /// A ring round a point of the curve, which stays visible in it.
    void Ring(double x, double y, Colour colour);
    /// An arrow to what lies above the plot at a value of x, with a text beside it.
    void ArrowUp(double x, const std::string& text, Colour colour);
    /// A text beside a point, where there is room for it.
    bool Label(double x, double y, const std::string& text, Colour colour, bool bold = false);
    /// A text centred over a point, at most two lines higher than that, where there is room.
    bool LabelAbove(double paperX, double y, const std::string& text, Colour colour);

    [[nodiscard]] double ToX(double x) const;
    [[nodiscard]] double ToY(double y) const;
    [[nodiscard]] const Extent& Plot() const { return m_plot; }
    [[nodiscard]] double Highest() const { return m_yScale.High; }
    [[nodiscard]] double Lowest() const { return m_yScale.Low; }

  private:
    void LayOutPlot();
    void DrawHead();
    void DrawAxes();
    void DrawBreak();
    void DrawXTicks();
    void DrawPlaces();
    [[nodiscard]] int NumberStep(int count) const;
    void DrawYTicks();
    void PrintCentred(double x, double top, const std::string& text, const Font& font,
                      Colour colour);
    bool TryTake(const Extent& place, bool clearOfLines);
    bool TryName(double x, const std::string& text, const std::string& name, bool across);
    [[nodiscard]] BarLabelling LabellingIn(double room) const;
    [[nodiscard]] double BarLabelHeight() const;
    [[nodiscard]] double LongestBarLabel(const std::vector<std::string>& labels) const;
    void LayOutScales();
    bool TryLabel(double x, double y, const std::string& text, const Font& font, Colour colour,
                  bool clearOfLines);
    [[nodiscard]] AxisScale WidestScale(double width) const;
    [[nodiscard]] double LegendHeight() const;

    Picture& m_picture;
    ChartFrame m_frame;
    Font m_font;
    double m_line;  ///< height of a line of text
    AxisScale m_xScale{0, 1, 1};
    AxisScale m_yScale{0, 1, 1};
    Extent m_plot{0, 0, 0, 0};
    LabelPlaces m_labels;
    LabelPlaces m_lines;   ///< what texts keep clear of
    LabelPlaces m_guides;  ///< what names of guides keep clear of, too
    BarLabelling m_labelling = BarLabelling::None;
};

}  // namespace quarnel02
