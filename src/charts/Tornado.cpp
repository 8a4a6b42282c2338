#include "charts/Tornado.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "basic/NumberFormat.h"
#include "picture/Chart.h"
#include "picture/Inks.h"
#include "study/FigureText.h"

namespace quarnel02 {

namespace {

constexpr Colour kLower{66, 145, 220};
constexpr Colour kHigher{239, 140, 24};
constexpr double kGap = 75;

std::string DollarText(double dollars) {
    return Format(dollars, "$#,##0");
}

std::string ChangeText(double change) {
    return (change < 0 ? "-" : "+") + DollarText(std::fabs(change));
}

std::string EndText(double value, std::optional<float> cost, double today) {
    return FigureText(value) + ": " +
           (cost ? DollarText(static_cast<double>(*cost)) + " (" +
                       ChangeText(static_cast<double>(*cost) - today) + ")"
                 : std::string("no line"));
}

std::string WordsOf(const SensitivityRow& row, double today) {
    return row.Name + ", today " + FigureText(row.Value) + "; " +
           EndText(row.Low, row.CostLow, today) + "; " + EndText(row.High, row.CostHigh, today) +
           (row.Changes ? "; the line changes" : "") +
           (row.BreakEven ? "; nearest change of the line at " + FigureText(*row.BreakEven) : "");
}

std::string LabelOf(const SensitivityRow& row) {
    return row.Changes ? row.Name + " *" : row.Name;
}

/// Draws the rows of one chart.
class TornadoDrawing {
  public:
    TornadoDrawing(Picture& picture, const std::vector<SensitivityRow>& rows, double cost)
        : m_picture(picture),
          m_rows(rows),
          m_cost(cost),
          m_font(picture.PageFont()),
          m_line(LineHeight(m_font)) {}

    void Draw() {
        DrawHead();
        LayOut();
        DrawTicks();
        for (std::size_t place = 0; place < m_rows.size(); ++place) {
            DrawRow(m_rows[place], m_top + static_cast<double>(place) * m_step);
        }
        m_picture.Line(ToX(m_cost), m_top, ToX(m_cost), m_bottom, kInk);
        m_picture.Describe("Today's cost " + DollarText(m_cost) + " a year");
    }

  private:
    void DrawHead();
    void LayOut();
    void DrawTicks();
    void DrawRow(const SensitivityRow& row, double top);
    void DrawSide(const SensitivityRow& row, std::optional<float> cost, bool lower, double top);
    [[nodiscard]] double ToX(double cost) const {
        return m_left + (cost - m_scale.Low) / (m_scale.High - m_scale.Low) * (m_right - m_left);
    }

    Picture& m_picture;
    const std::vector<SensitivityRow>& m_rows;
    double m_cost;
    Font m_font;
    double m_line;
    AxisScale m_scale{0, 1, 1};
    double m_left = 0;
    double m_right = 0;
    double m_top = 0;
    double m_bottom = 0;
    double m_step = 0;
};

/// The paper grows for rows that would be lower than a line of text.
void TornadoDrawing::DrawHead() {
    constexpr double least_columns = 22;
    const Page& page = m_picture.LaidOutFor();
    const Font bold = m_picture.PageFont(1, true);
    const auto rows = static_cast<double>(m_rows.size());
    m_picture.SetPaper(std::max(page.Width, least_columns * m_line),
                       std::max(page.Height, (rows * 1.2 + 7) * m_line));
    const std::string title =
        Elided("Sensitivity of the cost", m_picture.Width() - 2 * kGap, bold, *page.Measure);
    m_picture.Text((m_picture.Width() - m_picture.WidthOf(title, bold)) / 2, kGap, title, bold,
                   kInk);
    m_top = kGap + LineHeight(bold);
    m_top += DrawLegend(m_picture,
                        std::vector<LegendEntry>{{"figure lower", kLower, false, {}},
                                                 {"figure higher", kHigher, false, {}}},
                        kGap, m_top, m_picture.Width() - kGap);
    m_bottom = m_picture.Height() - 2 * m_line - 2 * kGap;
    const std::string axis = Elided("Dollars per year (*: the line changes)",
                                    m_picture.Width() - 2 * kGap, m_font, *page.Measure);
    m_picture.Text((m_picture.Width() - m_picture.WidthOf(axis, m_font)) / 2,
                   m_picture.Height() - m_line - kGap, axis, m_font, kSoftInk);
}

void TornadoDrawing::LayOut() {
    constexpr double widest_name = 0.4;
    double name = 0;
    double low = m_cost;
    double high = m_cost;
    for (const SensitivityRow& row : m_rows) {
        name = std::max(name, m_picture.WidthOf(LabelOf(row), m_font));
        for (const std::optional<float>& cost : {row.CostLow, row.CostHigh}) {
            low = std::min(low, cost ? static_cast<double>(*cost) : low);
            high = std::max(high, cost ? static_cast<double>(*cost) : high);
        }
    }
    m_left = 2 * kGap + std::min(name, widest_name * m_picture.Width());
    m_step = (m_bottom - m_top) / static_cast<double>(m_rows.size());
    for (int most = 8; most >= 1; --most) {
        m_scale = RoundScale(low, high, most);
        const double tick = WidestTick({low, high, "", false, true}, m_scale, m_font,
                                       *m_picture.LaidOutFor().Measure);
        m_right = m_picture.Width() - kGap - tick / 2;
        if (tick * 1.3 * (m_scale.High - m_scale.Low) / m_scale.Step <= m_right - m_left) {
            break;
        }
    }
}

void TornadoDrawing::DrawTicks() {
    const Axis axis{m_scale.Low, m_scale.High, "", false, true};
    double free_from = 0;
    for (const double value : TicksOf(m_scale)) {
        m_picture.Line(ToX(value), m_top, ToX(value), m_bottom, kGridLine);
        const std::string text = TickText(axis, m_scale, value);
        const double width = m_picture.WidthOf(text, m_font);
        if (ToX(value) - width / 2 >= free_from) {
            m_picture.Text(ToX(value) - width / 2, m_bottom, text, m_font, kSoftInk);
            free_from = ToX(value) + width / 2 + kGap;
        }
    }
}

void TornadoDrawing::DrawRow(const SensitivityRow& row, double top) {
    const std::string name =
        Elided(LabelOf(row), m_left - 2 * kGap, m_font, *m_picture.LaidOutFor().Measure);
    m_picture.Text(m_left - kGap - m_picture.WidthOf(name, m_font), top + (m_step - m_line) / 2,
                   name, m_font, kInk);
    m_picture.Describe(WordsOf(row, m_cost));
    DrawSide(row, row.CostLow, true, top);
    DrawSide(row, row.CostHigh, false, top);
}

/// The lower half of a row is that of the higher figure, so that bars to one side do not cover one
/// another.
void TornadoDrawing::DrawSide(const SensitivityRow& row, std::optional<float> cost, bool lower,
                              double top) {
    constexpr double share = 0.38;
    constexpr double thinnest = 2 * kTwipsPerPixel;
    const double end = cost ? ToX(static_cast<double>(*cost)) : ToX(m_cost);
    const double left = std::min(end, ToX(m_cost));
    const double width = std::max(std::fabs(end - ToX(m_cost)), thinnest);
    const double y = top + m_step * (lower ? 0.5 - share : 0.5);
    m_picture.Add(BoxFigure{left, y, width, m_step * share, 0, lower ? kLower : kHigher});
    m_picture.Describe(WordsOf(row, m_cost));
}

}  // namespace

void DrawTornado(Picture& picture, std::vector<SensitivityRow> rows, double cost) {
    std::vector<SensitivityRow> strongest = Strongest(std::move(rows), kTornadoRows);
    if (strongest.empty()) {
        picture.Clear();
        return;
    }
    picture.Compose([shown = std::move(strongest), cost](Picture& each) {
        TornadoDrawing(each, shown, cost).Draw();
    });
}

}  // namespace quarnel02
