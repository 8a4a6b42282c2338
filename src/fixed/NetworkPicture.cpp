#include "fixed/NetworkPicture.h"

#include <algorithm>
#include <numbers>
#include <utility>

#include "basic/Numbers.h"
#include "fixed/ArcDrawing.h"
#include "line/CheapestLine.h"
#include "picture/Chart.h"
#include "picture/Inks.h"

namespace quarnel02 {

namespace {

constexpr Colour kGrey{125, 125, 125};
constexpr Colour kDarkBlue{0, 0, 127};
constexpr Colour kRed{200, 0, 0};
constexpr Colour kBrightRed{250, 0, 50};
constexpr Colour kYellow{250, 250, 0};
constexpr Colour kBlack{0, 0, 0};

constexpr double kNetworkMargin = 150;
constexpr double kFaded = 0.3;
constexpr double kVeil = 0.15;

/// Draws one network on a page.
class NetworkDrawing {
  public:
    NetworkDrawing(Picture& picture, const NetworkValues& values)
        : m_picture(picture), m_values(values) {}

    void Draw();

  private:
    [[nodiscard]] Extent Outline() const;
    void PlaceSheet(double head);
    void DrawAllArcs();
    void DrawState(PathwayState state, Colour colour, double opacity = 1);
    /// Of possible arcs: where they are many, a veil that clears as the network is enlarged.
    [[nodiscard]] double VeilOpacity() const;
    void DrawChosen();
    void DrawArcAt(std::size_t place, int width, Colour colour, double opacity = 1);
    void DrawNodes();
    void DrawChips();
    void DrawChip(int task);
    static double DrawLegendAt(Picture& picture);
    void DrawFixedLegend(double height);
    [[nodiscard]] double ToX(double x) const {
        return m_picture.Sheet.Left + m_picture.Sheet.Scale * x;
    }
    [[nodiscard]] double ToY(double y) const {
        return m_picture.Sheet.Top + m_picture.Sheet.Scale * y;
    }
    [[nodiscard]] std::span<const std::size_t> In(PathwayState state) const {
        return m_values.InState.at(static_cast<std::size_t>(state));
    }

    Picture& m_picture;
    const NetworkValues& m_values;
};

/// What the network covers in its own units.
Extent NetworkDrawing::Outline() const {
    Extent outline{m_values.Spacing, kNetworkAxis, m_values.Spacing * m_values.Nodes, kNetworkAxis};
    for (const Arc& arc : m_values.Arcs) {
        const double height = arc.Radius * kArcAspect;
        const bool below = arc.Start > 0;
        outline.Top = std::min(outline.Top, kNetworkAxis - (below ? 0 : height));
        outline.Bottom = std::max(outline.Bottom, kNetworkAxis + (below ? height : 0));
    }
    return outline;
}

/// Fills the page below the head, times the zoom.
void NetworkDrawing::PlaceSheet(double head) {
    constexpr double largest = 2.5;
    constexpr double smallest = 0.001;
    const Page& page = m_picture.LaidOutFor();
    const Extent outline = Outline();
    const double across = std::max(1.0, outline.Right - outline.Left);
    const double chips = LineHeight(m_picture.PageFont());
    const double down = outline.Bottom - outline.Top;
    const double room = page.Height - head - 2 * kNetworkMargin;
    const double scale = page.Zoom * std::min({largest, (page.Width - 2 * kNetworkMargin) / across,
                                               room / std::max(1.0, down)});
    m_picture.Sheet.Scale = std::max(scale, smallest);
    m_picture.SetPaper(std::max(page.Width, m_picture.Sheet.Scale * across + 2 * kNetworkMargin),
                       std::max(page.Height, std::max(m_picture.Sheet.Scale * down, chips) + head +
                                                 2 * kNetworkMargin));
    m_picture.Sheet.Left =
        m_picture.Width() / 2 - m_picture.Sheet.Scale * (outline.Left + outline.Right) / 2;
    m_picture.Sheet.Top = (head + m_picture.Height()) / 2 -
                          m_picture.Sheet.Scale * (outline.Top + outline.Bottom) / 2;
}

void NetworkDrawing::Draw() {
    Picture probe(m_picture.LaidOutFor());
    const double head = DrawLegendAt(probe);
    PlaceSheet(head);
    DrawAllArcs();
    DrawState(PathwayState::Feasible, kDarkBlue, VeilOpacity());
    DrawState(PathwayState::OverLimit, kRed);
    DrawChosen();
    DrawNodes();
    DrawChips();
    DrawFixedLegend(head);
}

void NetworkDrawing::DrawArcAt(std::size_t place, int width, Colour colour, double opacity) {
    m_picture.DrawWidth = width;
    DrawArc(m_picture, m_values.Arcs[place], colour, opacity);
    m_picture.Describe(m_values.Words[place]);
}

void NetworkDrawing::DrawAllArcs() {
    const bool fades = m_values.Nodes > kFadeFromTasks;
    for (std::size_t place = 0; place < m_values.Arcs.size(); ++place) {
        DrawArcAt(place, 1, kGrey, fades ? kFaded : 1);
    }
}

double NetworkDrawing::VeilOpacity() const {
    return m_values.Nodes > kFadeFromTasks ? std::min(1.0, kVeil * m_picture.LaidOutFor().Zoom) : 1;
}

void NetworkDrawing::DrawState(PathwayState state, Colour colour, double opacity) {
    for (const std::size_t place : In(state)) {
        DrawArcAt(place, 2, colour, opacity);
    }
}

void NetworkDrawing::DrawChosen() {
    for (const std::size_t place : In(PathwayState::Chosen)) {
        DrawArcAt(place, 4, kBrightRed);
        DrawArcAt(place, 2, kYellow);
    }
}

void NetworkDrawing::DrawNodes() {
    constexpr double radius = 50;
    constexpr double smallest = 35;
    constexpr double largest = 75;
    m_picture.Fill = FillStyle::Solid;
    m_picture.DrawWidth = 1;
    const double disc = std::clamp(radius * m_picture.Sheet.Scale, smallest, largest);
    for (int node = 1; node <= m_values.Nodes; ++node) {
        m_picture.Circle(ToX(node * m_values.Spacing), ToY(kNetworkAxis), disc, kBlack);
    }
    m_picture.Fill = FillStyle::Transparent;
}

/// The last node stays without a number: numbers are those of the tasks, each between two nodes.
void NetworkDrawing::DrawChips() {
    constexpr double disc_room = 45;
    const int tasks = m_values.Nodes - 1;
    const Font font = m_picture.PageFont();
    const double widest = m_picture.WidthOf(NumberText(std::max(tasks, 1)), font) + disc_room;
    int every = 1;
    for (const int step : {1, 2, 5, 10, 20, 50, 100}) {
        every = step;
        if (step * m_values.Spacing * m_picture.Sheet.Scale >= widest) {
            break;
        }
    }
    for (int task = 1; task <= tasks; ++task) {
        if (every == 1 || task % every == 0) {
            DrawChip(task);
        }
    }
}

void NetworkDrawing::DrawChip(int task) {
    constexpr double padding = 15;
    constexpr double rounding = 45;
    constexpr double share_of_line = 0.86;
    const Font font = m_picture.PageFont();
    const std::string number = NumberText(task);
    const double width = m_picture.WidthOf(number, font);
    const double line = LineHeight(font);
    const double height = share_of_line * line;
    const double left = ToX((task + 0.5) * m_values.Spacing) - width / 2;
    m_picture.Add(BoxFigure{left - padding,
                            ToY(kNetworkAxis) - height / 2,
                            width + 2 * padding,
                            height,
                            rounding,
                            kPaper,
                            0,
                            {}});
    m_picture.Text(left, ToY(kNetworkAxis) - line / 2, number, font, kBlack);
}

double NetworkDrawing::DrawLegendAt(Picture& picture) {
    const std::vector<LegendEntry> legend = {{"no resource", kGrey},
                                             {"possible", kDarkBlue},
                                             {"over the limit", kRed},
                                             {"chosen", kBrightRed, false, kYellow}};
    const double height = DrawLegend(picture, legend, kNetworkMargin / 2, kNetworkMargin / 2,
                                     picture.LaidOutFor().Width - kNetworkMargin / 2);
    return height + kNetworkMargin / 2;
}

/// On paper of its own where the network moves under it.
void NetworkDrawing::DrawFixedLegend(double height) {
    m_picture.BeginFixed();
    if (m_picture.LaidOutFor().Zoom > 1) {
        m_picture.Add(BoxFigure{0, 0, m_picture.LaidOutFor().Width, height, 0, kPaper, 0, {}});
    }
    DrawLegendAt(m_picture);
}

}  // namespace

void ComposeNetwork(Picture& picture, NetworkValues values) {
    picture.Compose(
        [network = std::move(values)](Picture& each) { NetworkDrawing(each, network).Draw(); });
}

}  // namespace quarnel02
