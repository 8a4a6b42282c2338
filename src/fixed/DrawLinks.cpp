#include "fixed/DrawLinks.h"

#include <array>
#include <span>
#include <unordered_set>
#include <vector>

#include "basic/Numbers.h"
#include "fixed/ArcDrawing.h"
#include "line/CheapestLine.h"

namespace quarnel02 {

namespace {

constexpr Colour kGrey{125, 125, 125};
constexpr Colour kDarkBlue{0, 0, 127};
constexpr Colour kRed{200, 0, 0};
constexpr Colour kBrightRed{250, 0, 50};
constexpr Colour kYellow{250, 250, 0};
constexpr Colour kBlack{0, 0, 0};

void DrawAllArcs(Picture& picture, const Arcs& arcs) {
    if (arcs.All().empty()) {
        return;
    }
    picture.DrawWidth = 1;
    for (const Arc& arc : arcs.All()) {
        DrawArc(picture, arc, kGrey);
    }
}

/// The arcs by the states of their pathways, each in the order of its first pathway.
class ArcsByState {
  public:
    explicit ArcsByState(const Database& database);

    /// Arcs that have a pathway in the state.
    [[nodiscard]] std::span<const int> In(PathwayState state) const {
        return m_arcs.at(static_cast<std::size_t>(state));
    }

  private:
    static constexpr std::size_t kStates = 5;  ///< with 0, which is none

    std::array<std::vector<int>, kStates> m_arcs;
};

ArcsByState::ArcsByState(const Database& database) {
    std::array<std::unordered_set<int>, kStates> known;
    RecordSet pathways =
        database.OpenRecordSet("SELECT ArcId, Feasible FROM Pathways WHERE Feasible <> 3;");
    for (; !pathways.Eof(); pathways.MoveNext()) {
        const auto state = static_cast<std::size_t>(pathways.Integer(1));
        const int arc = pathways.Integer(0);
        if (state < kStates && known[state].insert(arc).second) {
            m_arcs[state].push_back(arc);
        }
    }
}

void DrawArcsInState(Picture& picture, const Arcs& arcs, std::span<const int> found,
                     Colour colour) {
    if (found.empty()) {
        return;
    }
    picture.DrawWidth = 2;
    for (const int arc : found) {
        DrawArc(picture, arcs.WithId(arc), colour);
    }
}

void DrawChosenArcs(Picture& picture, const Arcs& arcs, std::span<const int> chosen) {
    for (const int number : chosen) {
        const Arc& arc = arcs.WithId(number);
        picture.DrawWidth = 4;
        DrawArc(picture, arc, kBrightRed);
        picture.DrawWidth = 2;
        DrawArc(picture, arc, kYellow);
    }
}

/// The last node stays without a label: labels number the tasks, each between two nodes.
void DrawNodes(Picture& picture, std::int16_t nodes) {
    constexpr double radius = 50;
    constexpr double half_line = 85;
    constexpr double half_digit = 85;
    constexpr double half_two_digits = 120;
    const double spacing = NodeSpacing(nodes);
    picture.Fill = FillStyle::Solid;
    picture.DrawWidth = 1;
    for (int node = 1; node <= nodes; ++node) {
        picture.Circle(node * spacing, kNetworkAxis, radius, kBlack);
        picture.CurrentX += spacing * 0.5 - (node < 10 ? half_digit : half_two_digits);
        picture.CurrentY -= half_line;
        if (node < nodes) {
            picture.PrintNumber(node);
        }
    }
    picture.Fill = FillStyle::Transparent;
}

}  // namespace

void DrawLinks(const Database& database, const TextBoxes& boxes, Picture& network) {
    network.Clear();
    const Arcs arcs(database);
    DrawAllArcs(network, arcs);
    const ArcsByState states(database);
    DrawArcsInState(network, arcs, states.In(PathwayState::Feasible), kDarkBlue);
    DrawArcsInState(network, arcs, states.In(PathwayState::OverLimit), kRed);
    DrawChosenArcs(network, arcs, states.In(PathwayState::Chosen));
    const double tasks = TextToDouble(boxes.Text(TextBox::txtTasks), "Number of tasks");
    DrawNodes(network, ToInteger(tasks + 1, "Number of tasks"));
}

}  // namespace quarnel02
