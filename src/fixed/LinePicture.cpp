#include "fixed/LinePicture.h"

#include <algorithm>
#include <utility>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "fixed/LineLayout.h"
#include "fixed/ToolsText.h"
#include "picture/Inks.h"

namespace quarnel02 {

namespace {

constexpr const char* kHeading = "Graphical Representation";
constexpr const char* kRule = "------------------------------------";
constexpr double kMargin = 60;
constexpr Colour kFlow{110, 120, 132};

bool IsResourceType(int type) {
    return type >= 0 && type <= static_cast<int>(ResourceType::Automated);
}

std::string QuantityText(const StationFigure& station) {
    return "Qty: " + NumberText(station.Quantity);
}

std::string RangeText(const StationFigure& station) {
    return TasksText(station.FirstTask, station.LastTask + 1);
}

std::string TaskLine(const StationFigure& station) {
    return (station.FirstTask == station.LastTask ? "Task " : "Tasks ") + RangeText(station);
}

/// Draws the cards of one line.
class LineDrawing {
  public:
    LineDrawing(Picture& picture, const std::vector<StationFigure>& stations)
        : m_picture(picture),
          m_stations(stations),
          m_font(picture.PageFont()),
          m_bold(picture.PageFont(0, true)),
          m_line(LineHeight(m_font)) {}

    void Draw();

  private:
    [[nodiscard]] CardTexts WidestTexts() const;
    [[nodiscard]] Font HeadingFont() const { return {FontFamily::FixedPitch, m_font.Points}; }
    [[nodiscard]] std::string Rule() const;
    void DrawHeading();
    void DrawCard(std::size_t place, const Extent& card);
    void FillFullCard(std::size_t place, const Extent& card);
    void FillFlatCard(std::size_t place, const Extent& card);
    void PrintCentred(const Extent& card, double top, const std::string& text, const Font& font,
                      Colour colour);
    void DrawFlow(std::size_t place);
    void DrawStroke(double x1, double y1, double x2, double y2);
    void DrawArrow(double x1, double y1, double x2, double y2);
    void DrawTurn(const Extent& from, const Extent& to);
    [[nodiscard]] std::string Shortened(const std::string& text, double room,
                                        const Font& font) const {
        return Elided(text, room, font, *m_picture.LaidOutFor().Measure);
    }

    Picture& m_picture;
    const std::vector<StationFigure>& m_stations;
    Font m_font;
    Font m_bold;
    double m_line;
    LineLayout m_layout;
};

CardTexts LineDrawing::WidestTexts() const {
    constexpr double longest_name = 9;  // in lines
    CardTexts texts{};
    int number = 0;
    for (const StationFigure& station : m_stations) {
        const auto width = [&](const std::string& text) { return m_picture.WidthOf(text, m_font); };
        const std::string mark = NumberText(++number);
        const double name =
            std::min(m_picture.WidthOf(station.Name, m_bold), longest_name * m_line);
        texts.Full = std::max({texts.Full, name, width("Station " + mark),
                               width(QuantityText(station)), width(TaskLine(station))});
        texts.Flat = std::max({texts.Flat, name + m_picture.WidthOf(mark + " ", m_bold),
                               width(QuantityText(station)), width(TaskLine(station))});
    }
    return texts;
}

void LineDrawing::Draw() {
    const Page& page = m_picture.LaidOutFor();
    m_picture.SetPaper(std::max(page.Width, 2 * kMargin + TextWidth(kHeading, HeadingFont())),
                       page.Height);
    DrawHeading();
    if (m_stations.empty()) {
        return;
    }
    const Extent area{kMargin, m_picture.CurrentY, m_picture.Width() - kMargin,
                      m_picture.Height() - kMargin};
    m_layout = LayOutLine(static_cast<int>(m_stations.size()), area, WidestTexts(), m_line);
    m_picture.SetPaper(std::max(m_picture.Width(), m_layout.Right + kMargin),
                       std::max(m_picture.Height(), m_layout.Bottom + kMargin));
    for (std::size_t place = 0; place < m_stations.size(); ++place) {
        DrawCard(place, m_layout.Cards[place]);
        if (place > 0) {
            DrawFlow(place);
        }
    }
}

/// No longer than the paper is wide: a line of its own deserves no scroll bar.
std::string LineDrawing::Rule() const {
    const std::string rule = kRule;
    const double dash = TextWidth(rule, HeadingFont()) / static_cast<double>(rule.size());
    const double room = m_picture.Width() - 2 * kMargin;
    return rule.substr(0, static_cast<std::size_t>(room / dash));
}

void LineDrawing::DrawHeading() {
    m_picture.TextFont = HeadingFont();
    PictureLines lines(m_picture);
    LinePrinter printer(lines);
    printer.Print(kHeading);
    printer.Print(Rule());
}

void LineDrawing::DrawCard(std::size_t place, const Extent& card) {
    constexpr double rounding = 75;
    const StationFigure& station = m_stations[place];
    m_picture.Add(BoxFigure{card.Left, card.Top, card.Right - card.Left, card.Bottom - card.Top,
                            rounding, kCard, 1, kCardFrame});
    const std::string number = NumberText(static_cast<int>(place) + 1);
    const std::string tasks = (station.FirstTask == station.LastTask ? ", task " : ", tasks ");
    m_picture.Describe(
        "Station " + number + ": " + station.Name + ", " + QuantityText(station) + tasks +
        RangeText(station) +
        (station.Cost > 0 ? ", " + Format(station.Cost, "$#,##0") + " a year" : std::string()));
    m_layout.IsFlat ? FillFlatCard(place, card) : FillFullCard(place, card);
}

void LineDrawing::PrintCentred(const Extent& card, double top, const std::string& text,
                               const Font& font, Colour colour) {
    const std::string shown = Shortened(text, card.Right - card.Left - kCardPadding, font);
    const double width = m_picture.WidthOf(shown, font);
    m_picture.Text((card.Left + card.Right - width) / 2, top, shown, font, colour);
}

void LineDrawing::FillFullCard(std::size_t place, const Extent& card) {
    const StationFigure& station = m_stations[place];
    double top = card.Top + kCardPadding / 2;
    PrintCentred(card, top, "Station " + NumberText(static_cast<int>(place) + 1), m_font, kSoftInk);
    top += m_line;
    if (IsResourceType(station.Type)) {
        m_picture.Icon(static_cast<ResourceType>(station.Type),
                       (card.Left + card.Right - m_layout.Icon) / 2, top, m_layout.Icon);
    }
    top += m_layout.Icon;
    PrintCentred(card, top, station.Name, m_bold, kInk);
    PrintCentred(card, top + m_line, QuantityText(station), m_font, kInk);
    PrintCentred(card, top + 2 * m_line, TaskLine(station), m_font, kInk);
}

/// The icon to the left of three lines.
void LineDrawing::FillFlatCard(std::size_t place, const Extent& card) {
    const StationFigure& station = m_stations[place];
    const double top = card.Top + kCardPadding / 2;
    const double left = card.Left + kCardPadding + m_layout.Icon;
    const double room = card.Right - left - kCardPadding / 2;
    if (IsResourceType(station.Type)) {
        m_picture.Icon(static_cast<ResourceType>(station.Type), card.Left + kCardPadding / 2,
                       (card.Top + card.Bottom - m_layout.Icon) / 2, m_layout.Icon);
    }
    m_picture.Text(
        left, top,
        Shortened(NumberText(static_cast<int>(place) + 1) + " " + station.Name, room, m_bold),
        m_bold, kInk);
    m_picture.Text(left, top + m_line, QuantityText(station), m_font, kInk);
    m_picture.Text(left, top + 2 * m_line, TaskLine(station), m_font, kInk);
}

void LineDrawing::DrawStroke(double x1, double y1, double x2, double y2) {
    m_picture.DrawWidth = 2;
    m_picture.Line(x1, y1, x2, y2, kFlow);
}

/// To the right or downwards.
void LineDrawing::DrawArrow(double x1, double y1, double x2, double y2) {
    constexpr double head = 75;
    DrawStroke(x1, y1, x2, y2);
    if (y1 == y2) {
        DrawStroke(x2 - head, y2 - head, x2, y2);
        DrawStroke(x2 - head, y2 + head, x2, y2);
    } else {
        DrawStroke(x2 - head, y2 - head, x2, y2);
        DrawStroke(x2 + head, y2 - head, x2, y2);
    }
}

void LineDrawing::DrawFlow(std::size_t place) {
    constexpr double clear = 30;
    const Extent& from = m_layout.Cards[place - 1];
    const Extent& to = m_layout.Cards[place];
    const double middle = (to.Top + to.Bottom) / 2;
    if (from.Top == to.Top) {
        DrawArrow(from.Right + clear, middle, to.Left - clear, middle);
    } else if (m_layout.PerRow == 1) {
        const double centre = (to.Left + to.Right) / 2;
        DrawArrow(centre, from.Bottom + clear, centre, to.Top - clear);
    } else {
        DrawTurn(from, to);
    }
}

/// From under the last card of a row to over the first one of the next.
void LineDrawing::DrawTurn(const Extent& from, const Extent& to) {
    constexpr double clear = 30;
    const double between = (from.Bottom + to.Top) / 2;
    const double start = (from.Left + from.Right) / 2;
    const double end = (to.Left + to.Right) / 2;
    DrawStroke(start, from.Bottom + clear, start, between);
    DrawStroke(start, between, end, between);
    DrawArrow(end, between, end, to.Top - clear);
}

}  // namespace

void DrawLine(Picture& picture, std::vector<StationFigure> stations) {
    picture.Compose([all = std::move(stations)](Picture& each) { LineDrawing(each, all).Draw(); });
}

}  // namespace quarnel02
