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
constexpr double kChipPadding = 10;
constexpr double kSmallestDisc = 30;

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
    void DrawState(PathwayState state, Colour colour);
    void DrawReaching();
    [[nodiscard]] bool IsDense() const { return m_values.Nodes > kVeilFromTasks; }
    [[nodiscard]] double GreyOpacity(const Arc& arc) const;
    /// Where arcs are many they are a veil, thinner from the short ones near the axis to the long
    /// ones, which clears as the network is enlarged.
    [[nodiscard]] double VeilOpacity(const Arc& arc) const;
    /// Arcs that are drawn in the colour of a state.
    [[nodiscard]] std::vector<bool> Coloured() const;
    void DrawChosen();
    void DrawArcAt(std::size_t place, int width, Colour colour, double opacity = 1);
    [[nodiscard]] double ChipWidth() const;
    [[nodiscard]] double DiscRadius() const;
    void DrawNodes();
    void DrawChips();
    void DrawChip(int task);
    static double DrawLegendAt(Picture& picture);
    void DrawFixedLegend(double height);
    [[nodiscard]] double ToX(double x) const {
        return m_picture.Sheet.Left + m_picture.Sheet.Scale * x;
    }
    [[nodiscard]] double ToY(double y) const {
        return m_picture.Sheet.Top + m_picture.Sheet.Scale * m_picture.Sheet.Stretch * y;
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

/// Fills the page below the head, times the zoom; arcs become flatter or higher for it.
void NetworkDrawing::PlaceSheet(double head) {
    constexpr double largest = 2.5;
    constexpr double smallest = 0.001;
    constexpr double flattest = 0.4;
    constexpr double highest = 1.8;
    const Page& page = m_picture.LaidOutFor();
    const Extent outline = Outline();
    const double across = std::max(1.0, outline.Right - outline.Left);
    const double chips = LineHeight(m_picture.PageFont());
    const double down = std::max(1.0, outline.Bottom - outline.Top);
    const double room = page.Height - head - 2 * kNetworkMargin;
    const double fit = std::max(
        smallest,
        std::min({largest, (page.Width - 2 * kNetworkMargin) / across, room / (flattest * down)}));
    m_picture.Sheet.Scale = page.Zoom * fit;
    const auto fill = [&](double height) {
        m_picture.Sheet.Stretch = std::clamp(height / (fit * down), flattest, highest);
    };
    fill(room);
    fill(room -
         2 * ArcLift(m_picture, fit * m_picture.Sheet.Stretch * kArcAspect * m_values.Spacing / 2));
    const double upright = m_picture.Sheet.Scale * m_picture.Sheet.Stretch;
    m_picture.SetPaper(
        std::max(page.Width, m_picture.Sheet.Scale * across + 2 * kNetworkMargin),
        std::max(page.Height, std::max(upright * down, chips) + head + 2 * kNetworkMargin));
    m_picture.Sheet.Left =
        m_picture.Width() / 2 - m_picture.Sheet.Scale * (outline.Left + outline.Right) / 2;
    m_picture.Sheet.Top =
        (head + m_picture.Height()) / 2 - upright * (outline.Top + outline.Bottom) / 2;
}

void NetworkDrawing::Draw() {
    Picture probe(m_picture.LaidOutFor());
    const double head = DrawLegendAt(probe);
    PlaceSheet(head);
    DrawAllArcs();
    DrawState(PathwayState::Feasible, kDarkBlue);
    DrawState(PathwayState::OverLimit, kRed);
    DrawReaching();
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

/// Grey would shine through a veil.
void NetworkDrawing::DrawAllArcs() {
    const std::vector<bool> covered = Coloured();
    for (std::size_t place = 0; place < m_values.Arcs.size(); ++place) {
        if (!IsDense() || !covered[place]) {
            DrawArcAt(place, 1, kGrey, GreyOpacity(m_values.Arcs[place]));
        }
    }
}

double NetworkDrawing::GreyOpacity(const Arc& arc) const {
    constexpr double strongest = 0.3;
    constexpr double faintest = 0.08;
    return m_values.Nodes > kFadeFromTasks ? std::max(faintest, strongest * VeilOpacity(arc)) : 1;
}

std::vector<bool> NetworkDrawing::Coloured() const {
    std::vector<bool> coloured(m_values.Arcs.size());
    for (const PathwayState state :
         {PathwayState::Feasible, PathwayState::OverLimit, PathwayState::Chosen}) {
        for (const std::size_t place : In(state)) {
            coloured[place] = true;
        }
    }
    return coloured;
}

double NetworkDrawing::VeilOpacity(const Arc& arc) const {
    constexpr double arcs_in_sight = 5000;
    constexpr double clear_tasks = 4;
    constexpr double thinnest = 0.03;
    if (!IsDense()) {
        return 1;
    }
    const double tasks = m_values.Nodes - 1;
    const double clear =
        std::max(clear_tasks, arcs_in_sight / (tasks * tasks)) / (arc.TaskEnd - arc.TaskStart);
    const double zoom = m_picture.LaidOutFor().Zoom;
    return std::clamp(zoom * clear * clear, std::min(1.0, zoom * thinnest), 1.0);
}

void NetworkDrawing::DrawState(PathwayState state, Colour colour) {
    for (const std::size_t place : In(state)) {
        DrawArcAt(place, 2, colour, VeilOpacity(m_values.Arcs[place]));
    }
}

/// Only where the veil would hide them.
void NetworkDrawing::DrawReaching() {
    if (IsDense()) {
        for (const std::size_t place : m_values.Reaching) {
            DrawArcAt(place, 2, kDarkBlue);
        }
    }
}

void NetworkDrawing::DrawChosen() {
    for (const std::size_t place : In(PathwayState::Chosen)) {
        DrawArcAt(place, 4, kBrightRed);
        DrawArcAt(place, 2, kYellow);
    }
}

double NetworkDrawing::ChipWidth() const {
    const int tasks = std::max(m_values.Nodes - 1, 1);
    return m_picture.WidthOf(NumberText(tasks), m_picture.PageFont()) + 2 * kChipPadding;
}

/// Smaller where the chips need the room.
double NetworkDrawing::DiscRadius() const {
    constexpr double radius = 50;
    constexpr double largest = 75;
    const double scale = m_picture.Sheet.Scale;
    const double room = (scale * m_values.Spacing - ChipWidth()) / 2;
    return std::clamp(std::min(radius * scale, room), kSmallestDisc, largest);
}

void NetworkDrawing::DrawNodes() {
    m_picture.Fill = FillStyle::Solid;
    m_picture.DrawWidth = 1;
    for (int node = 1; node <= m_values.Nodes; ++node) {
        m_picture.Circle(ToX(node * m_values.Spacing), ToY(kNetworkAxis), DiscRadius(), kBlack);
    }
    m_picture.Fill = FillStyle::Transparent;
}

/// The last node stays without a number: numbers are those of the tasks, each between two nodes.
void NetworkDrawing::DrawChips() {
    const int tasks = m_values.Nodes - 1;
    const double widest = ChipWidth() + 2 * kSmallestDisc;
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
    constexpr double rounding = 45;
    const Font font = m_picture.PageFont();
    const std::string number = NumberText(task);
    const double width = m_picture.WidthOf(number, font);
    const double line = LineHeight(font);
    const double height = ChipHeight(m_picture);
    const double left = ToX((task + 0.5) * m_values.Spacing) - width / 2;
    m_picture.Add(BoxFigure{left - kChipPadding,
                            ToY(kNetworkAxis) - height / 2,
                            width + 2 * kChipPadding,
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
