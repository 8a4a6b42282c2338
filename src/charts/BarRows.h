#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "picture/Axis.h"
#include "picture/Chart.h"
#include "picture/Picture.h"

namespace quarnel02 {

/// What stands round a chart of bars that lie.
struct BarRowsFrame {
    std::string Title;
    std::string Axis;  ///< what its scale is
    std::vector<LegendEntry> Legend;
    std::vector<std::string> Names;  ///< of the rows
    double Low = 0;                  ///< values that the bars reach
    double High = 1;
    bool Money = true;  ///< ticks such as "$1,200"
};

/// Which part of its row a bar fills.
enum class BarPart : std::int8_t { Whole, Upper, Lower };

/// Bars that lie, a row for each name, on both sides of a middle value. Title, scale and legend
/// stand on top, where they are seen while the rows scroll: paper that is too low for the rows
/// grows. To be drawn by a recipe.
class BarRows {
  public:
    BarRows(Picture& picture, const BarRowsFrame& frame, double middle);

    /// The name of a row, which is at least one line of text high.
    void Name(std::size_t row, const std::string& words);
    void Bar(std::size_t row, double from, double to, BarPart part, Colour colour,
             const std::string& words);
    /// The line at the middle value.
    void Middle(const std::string& words);

  private:
    void DrawHead();
    void LayOut();
    void DrawTicks();
    [[nodiscard]] double ToX(double value) const {
        return m_left + (value - m_scale.Low) / (m_scale.High - m_scale.Low) * (m_right - m_left);
    }
    [[nodiscard]] double TopOf(std::size_t row) const {
        return m_top + static_cast<double>(row) * m_step;
    }

    Picture& m_picture;
    const BarRowsFrame& m_frame;
    double m_middle;
    Font m_font;
    double m_line;
    AxisScale m_scale{0, 1, 1};
    double m_left = 0;
    double m_right = 0;
    double m_top = 0;
    double m_bottom = 0;
    double m_step = 0;
};

}  // namespace quarnel02
