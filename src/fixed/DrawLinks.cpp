#include "fixed/DrawLinks.h"

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

void DrawAllArcs(Picture& picture, const Database& database) {
    RecordSet arcs = database.OpenRecordSet("SELECT * FROM Arcs;");
    if (arcs.RecordCount() == 0) {
        return;
    }
    picture.DrawWidth = 1;
    for (; !arcs.Eof(); arcs.MoveNext()) {
        DrawArc(picture, arcs, kGrey);
    }
}

RecordSet ArcOf(const Database& database, const RecordSet& pathways) {
    return database.OpenRecordSet(
        "SELECT * FROM Arcs WHERE ArcId = " + NumberText(int{pathways.Integer(0)}) + ";");
}

void DrawArcsInState(Picture& picture, const Database& database, const char* state, Colour colour) {
    RecordSet pathways = database.OpenRecordSet(
        "SELECT DISTINCT ArcId FROM Pathways WHERE Feasible = " + std::string(state) + ";");
    if (pathways.RecordCount() == 0) {
        return;
    }
    picture.DrawWidth = 2;
    for (; !pathways.Eof(); pathways.MoveNext()) {
        DrawArc(picture, ArcOf(database, pathways), colour);
    }
}

void DrawChosenArcs(Picture& picture, const Database& database) {
    RecordSet pathways =
        database.OpenRecordSet("SELECT DISTINCT ArcId FROM Pathways WHERE Feasible = 4;");
    for (; !pathways.Eof(); pathways.MoveNext()) {
        const RecordSet arc = ArcOf(database, pathways);
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
    DrawAllArcs(picture, database);
    DrawArcsInState(picture, database, "1", kDarkBlue);
    DrawArcsInState(picture, database, "2", kRed);
    DrawChosenArcs(picture, database);
    const double tasks = TextToDouble(form.Text(TextBox::txtTasks), "Number of tasks");
    DrawNodes(picture, ToInteger(tasks + 1, "Number of tasks"));
}

}  // namespace quarnel02
