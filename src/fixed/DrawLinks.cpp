#include "fixed/DrawLinks.h"

#include <string>
#include <vector>

#include "basic/Numbers.h"
#include "fixed/ArcDrawing.h"

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

/// The arcs that have a pathway in a state, in the order of their first ones.
std::vector<int> ArcsInState(const Database& database, const std::string& state) {
    RecordSet pathways = database.OpenRecordSet(
        "SELECT DISTINCT ArcId FROM Pathways WHERE Feasible = " + state + ";");
    std::vector<int> found;
    for (; !pathways.Eof(); pathways.MoveNext()) {
        found.push_back(pathways.Integer(0));
    }
    return found;
}

void DrawArcsInState(Picture& picture, const Database& database, const Arcs& arcs,
                     const char* state, Colour colour) {
    const std::vector<int> found = ArcsInState(database, state);
    if (found.empty()) {
        return;
    }
    picture.DrawWidth = 2;
    for (const int arc : found) {
        DrawArc(picture, arcs.WithId(arc), colour);
    }
}

void DrawChosenArcs(Picture& picture, const Database& database, const Arcs& arcs) {
    for (const int number : ArcsInState(database, "4")) {
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

void DrawLinks(MainForm& form) {
    const Database& database = form.OpenWorkingCopy();
    Picture& picture = form.picArc;
    picture.Clear();
    const Arcs arcs(database);
    DrawAllArcs(picture, arcs);
    DrawArcsInState(picture, database, arcs, "1", kDarkBlue);
    DrawArcsInState(picture, database, arcs, "2", kRed);
    DrawChosenArcs(picture, database, arcs);
    const double tasks = TextToDouble(form.Text(TextBox::txtTasks), "Number of tasks");
    DrawNodes(picture, ToInteger(tasks + 1, "Number of tasks"));
}

}  // namespace quarnel02
