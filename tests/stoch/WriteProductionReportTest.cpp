// The production report, the summary on the main form, the marks and the pictures of a solve.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "support/FigureText.h"
#include "support/RunTimeErrors.h"
#include "support/StochModels.h"
#include "support/StochSolve.h"

namespace quarnel02 {
namespace {

using test::ModelScript;
using test::PenaltyModel;
using test::StagesModel;
using test::StochSolve;

using Lines = std::vector<std::string>;

// Capacity 600,000 = 3 x 200,000 with two Robots for each task: 30 and 24 s per unit, 36 s are
// there; 6,000 + 0.3 E + 40,000 S and 6,000 + 0.24 E + 40,000 S. One shift is enough for both
// demands; 100,000 units cost 12,000 + 54,000 + 80,000, twice as many 54,000 more.
constexpr const char* kStagesSummary =
    "Final Solution\n"
    "-------------------\n"
    "Station Limit: ---\n"
    "# of Shifts: 3\n"
    "Capacity: 600,000\n"
    "\n"
    "Sta.  Resource  Qty     Cost      Time    Tasks    Tools\n"
    " 1    Robot      2      $94000    30.     1-1      1\n"
    " 2    Robot      2      $84400    24.     2-2      2\n"
    "Cycle Time: 30. sec\n"
    "Max. Cycle Time: 36. sec\n"
    "Expected Penalty Cost: $0\n"
    "Expected Annualized System Costs: $178,400\n"
    "Expected Annualized Fixed Costs: $12,000\n";

constexpr const char* kStagesReport =
    "Production Report\n"
    "-----------------\n"
    " \n"
    "Demand:     100000\n"
    "Shifts:     1\n"
    "Total Cost: $146,000\n"
    "Penalty:    0\n"
    " \n"
    "Demand:     200000\n"
    "Shifts:     1\n"
    "Total Cost: $200,000\n"
    "Penalty:    0\n"
    " \n";

// One oven, 30,000 a year, serves 100,000; the expected shortfall of 60,000 costs 0.25 each.
constexpr const char* kPenaltySummary =
    "Final Solution\n"
    "-------------------\n"
    "Station Limit: ---\n"
    "# of Shifts: 3\n"
    "Capacity: 100,000\n"
    "\n"
    "Sta.  Resource  Qty     Cost      Time    Tasks    Tools\n"
    " 1    Oven       1      $30000    216.    1-1      7\n"
    "Cycle Time: 216. sec\n"
    "Max. Cycle Time: 216. sec\n"
    "Expected Penalty Cost: $15,000\n"
    "Expected Annualized System Costs: $45,000\n"
    "Expected Annualized Fixed Costs: $30,000\n";

constexpr const char* kPenaltyReport =
    "Production Report\n"
    "-----------------\n"
    " \n"
    "Demand:     100000\n"
    "Shifts:     3\n"
    "Total Cost: $30,000\n"
    "Penalty:    0\n"
    " \n"
    "Demand:     200000\n"
    "Shifts:     3\n"
    "Total Cost: $55,000\n"
    "Penalty:    25000\n"
    " \n";

std::string SummaryOf(StochSolve& solve) {
    return cmdStoch_Click(solve.Form).Summary;
}

/// Texts of a picture put back on their lines and columns (margin 60, 96 by 200 twips each).
std::string PrintedText(const Picture& picture) {
    std::map<int, std::string> lines;
    for (const TextFigure& text : test::FiguresOf<TextFigure>(picture)) {
        EXPECT_EQ(text.Face, (Font{FontFamily::FixedPitch, 8})) << text.Text;
        std::string& line = lines[static_cast<int>(std::lround((text.Y - 60) / 200))];
        line.resize(static_cast<std::size_t>(std::lround((text.X - 60) / 96)), ' ');
        line += text.Text;
    }
    std::string all;
    for (int line = 0; line <= lines.rbegin()->first; ++line) {
        all += lines[line] + "\n";
    }
    return all;
}

TEST(WriteProductionReport, OfTwoStationsWithoutPenalty) {
    StochSolve solve(StagesModel(), "2");
    EXPECT_EQ(SummaryOf(solve), kStagesSummary);
    EXPECT_EQ(solve.ProductionReport(), kStagesReport);
}

TEST(WriteProductionReport, OfAPenaltyThatIsCheaperThanCapacity) {
    StochSolve solve(PenaltyModel(), "0.25");
    EXPECT_EQ(SummaryOf(solve), kPenaltySummary);
    EXPECT_EQ(solve.ProductionReport(), kPenaltyReport);
}

TEST(WriteProductionReport, PenaltyIsTheTextOfTheBox) {
    StochSolve solve(PenaltyModel(), " 0.25 ");
    solve.Press();
    EXPECT_EQ(solve.ProductionReport(), kPenaltyReport);
}

TEST(WriteProductionReport, PrintsASmallPenaltyInPlainDecimals) {
    ModelScript model = PenaltyModel();
    model.Demand = {{100000, 40}, {100002.5, 60}};
    StochSolve solve(model, "0.25");
    solve.Press();
    // 2.5 units are missed, 0.625 dollars
    EXPECT_NE(solve.ProductionReport().find("\nPenalty:    0.625\n"), std::string::npos)
        << solve.ProductionReport();
    EXPECT_NE(solve.ProductionReport().find("\nDemand:     100002.5\n"), std::string::npos);
}

TEST(WriteProductionReport, PrintsLargeNumbersWithoutExponent) {
    ModelScript model = PenaltyModel();
    model.Demand = {{100000, 40}, {40000000, 60}};
    StochSolve solve(model, "0.4");
    solve.Press();
    // A unit more costs 0.3 a year and saves 0.6 x 0.4; 39,900,000 units are missed.
    EXPECT_NE(solve.ProductionReport().find("Demand:     40000000\n"
                                            "Shifts:     3\n"
                                            "Total Cost: $15,990,000\n"
                                            "Penalty:    15960000\n"),
              std::string::npos)
        << solve.ProductionReport();
}

/// The station lines of a summary.
Lines StationLines(const std::string& summary) {
    Lines lines;
    bool below = false;
    std::istringstream text(summary);
    for (std::string line; std::getline(text, line) && !line.starts_with("Cycle Time");) {
        if (below) {
            lines.push_back(line);
        }
        below = below || line.starts_with("Sta.");
    }
    return lines;
}

TEST(WriteProductionReport, AFigureTooWideForItsColumnPushesTheNextOne) {
    ModelScript model = PenaltyModel();
    model.Resources[0].ShortName = "Oven of ten";
    model.Resources[0].FixedCost = 123456789000;
    model.Matrix[0].Entry.TaskTime = 12345.678;
    model.Demand = {{1000, 40}, {1001, 60}};
    StochSolve solve(model, "100000000000");
    const std::string summary = SummaryOf(solve);
    EXPECT_EQ(StationLines(summary), Lines{" 1    Oven of ten 1     $37037035520 12345.68 1-1  7"});
    EXPECT_EQ(PrintedText(solve.Form.picGraph[0]), summary);
}

TEST(WriteProductionReport, LongToolTextsGoOnBelow) {
    ModelScript model = PenaltyModel();
    model.Tasks = 14;
    model.Matrix.clear();
    for (int task = 1; task <= model.Tasks; ++task) {
        model.Matrix.push_back({1, task, 10, 100 + task, 1000});
    }
    StochSolve solve(model, "0");
    const std::string summary = SummaryOf(solve);
    EXPECT_EQ(StationLines(summary),
              (Lines{" 1    Oven       1      $33900    140.    1-14     101 102 103 104 105 106",
                     "                                                   107 108 109 110 111 112",
                     "                                                   113 114"}));
    EXPECT_EQ(PrintedText(solve.Form.picGraph[0]), summary);
    EXPECT_LE(solve.Form.picGraph[0].Drawn().Right, solve.Form.picGraph[0].Width());
}

TEST(WriteProductionReport, AnAmountThatRoundsToNothingIsZeroDollars) {
    ModelScript model = PenaltyModel();
    model.Resources[0].FixedCost = 0;
    model.Matrix[0].Entry.ToolCost = 1;
    model.Demand = {{100000, 40}, {100001, 60}};
    StochSolve solve(model, "0.4");
    const std::string summary = SummaryOf(solve);  // 0.3 a year; 0.6 x 0.4 of shortfall
    EXPECT_EQ(StationLines(summary), Lines{" 1    Oven       1      $0        216.    1-1      7"});
    EXPECT_NE(summary.find("\nExpected Penalty Cost: $0\n"), std::string::npos) << summary;
    EXPECT_NE(summary.find("\nExpected Annualized Fixed Costs: $0\n"), std::string::npos)
        << summary;
    EXPECT_NE(solve.ProductionReport().find("\nTotal Cost: $0\n"), std::string::npos)
        << solve.ProductionReport();
    for (const std::string& text : {summary, solve.ProductionReport()}) {
        EXPECT_EQ(text.find("$\n"), std::string::npos) << text;
        EXPECT_EQ(text.find("$ "), std::string::npos) << text;
    }
}

TEST(WriteProductionReport, KeepsEveryUnitOfAVolume) {
    ModelScript model = PenaltyModel();
    model.Matrix[0].Entry.TaskTime = 1;
    model.Demand = {{1234567.5, 40}, {12345678, 60}};
    StochSolve solve(model, "0.25");
    solve.Press();
    EXPECT_NE(solve.ProductionReport().find("\nDemand:     1234567.5\n"), std::string::npos)
        << solve.ProductionReport();
    EXPECT_NE(solve.ProductionReport().find("\nDemand:     12345678\n"), std::string::npos);
}

TEST(WriteProductionReport, AFailureLeavesTheMarksAsTheyWere) {
    StochSolve solve(StagesModel(), "2");
    const auto states = solve.States();
    std::filesystem::create_directory(solve.Copy.File("ProdRpt.txt"));
    test::ExpectRunTimeError(ErrorKind::FileAccess, [&] { solve.Press(); });
    EXPECT_EQ(solve.States(), states);
    EXPECT_EQ(solve.Files(), Lines{"ProdRpt.txt"});
    EXPECT_EQ(solve.EventsOf({"start"}), Lines{});
}

TEST(WriteProductionReport, SkipsAProbabilityOfZero) {
    ModelScript model = StagesModel();
    model.Demand.push_back({150000, 0});
    StochSolve solve(model, "2");
    EXPECT_EQ(SummaryOf(solve), kStagesSummary);
    EXPECT_EQ(solve.ProductionReport(), kStagesReport);
}

TEST(WriteProductionReport, ShowsTheSummaryOnTheFirstPicture) {
    StochSolve stages(StagesModel(), "2");
    stages.Press();
    EXPECT_EQ(PrintedText(stages.Form.picGraph[0]), kStagesSummary);
    StochSolve penalty(PenaltyModel(), "0.25");
    penalty.Press();
    EXPECT_EQ(PrintedText(penalty.Form.picGraph[0]), kPenaltySummary);
}

TEST(WriteProductionReport, DrawsTheLineOnTheThirdPicture) {
    StochSolve solve(StagesModel(), "2");
    solve.Press();
    const Picture& picture = solve.Form.picGraph[2];
    Lines texts;
    for (const TextFigure& text : test::FiguresOf<TextFigure>(picture)) {
        texts.push_back(text.Text);
    }
    ASSERT_EQ(texts.size(), 10U);
    EXPECT_EQ(texts[0], "Graphical Representation");
    EXPECT_EQ(texts[1], "------------------------------------");
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "Qty: 2"), 2);
    EXPECT_EQ(test::FiguresOf<IconFigure>(picture).size(), 2U);
    EXPECT_FALSE(solve.Form.picGraph[1].Figures().empty());
    EXPECT_FALSE(solve.Form.picGraph[3].Figures().empty());
}

TEST(WriteProductionReport, MarksExactlyTheChosenPathways) {
    StochSolve solve(StagesModel(), "2");
    solve.Press();
    const auto chosen = solve.Copy.RowsOf(
        "SELECT Arcs.TaskStart, Arcs.TaskEnd, Pathways.ResourceId FROM Pathways INNER JOIN Arcs "
        "ON Pathways.ArcId = Arcs.ArcId WHERE Pathways.Feasible = 4 ORDER BY Arcs.TaskStart;",
        3);
    EXPECT_EQ(chosen, (Lines{"1|2|1", "2|3|1"}));  // an arc ends at the node behind its last task
    const auto states = solve.States();
    EXPECT_EQ(std::count(states.begin(), states.end(), "4"), 2);
    EXPECT_EQ(std::count(states.begin(), states.end(), "1"),
              static_cast<std::ptrdiff_t>(states.size()) - 2);
    EXPECT_EQ(states.size(), 4U);
}

TEST(WriteProductionReport, TakesEarlierMarksAway) {
    StochSolve solve(StagesModel(), "2");
    RecordSet pathways = solve.Copy.Open().OpenRecordSet("SELECT * FROM Pathways;");
    for (int state = 2; !pathways.Eof(); pathways.MoveNext()) {
        pathways.Edit();
        pathways.Set("Feasible", state++ % 3 + 2);
        pathways.Update();
        pathways.MoveToLastModified();
    }
    solve.Press();
    auto states = solve.States();
    std::sort(states.begin(), states.end());
    EXPECT_EQ(states, (Lines{"1", "1", "4", "4"}));
}

TEST(WriteProductionReport, RedrawsTheNetworkWithTheChosenArcs) {
    constexpr Colour chosen{250, 250, 0};
    const auto chosen_arcs = [&](const Picture& picture) {
        const auto circles = test::FiguresOf<CircleFigure>(picture);
        return std::count_if(circles.begin(), circles.end(),
                             [&](const CircleFigure& each) { return each.Pen == chosen; });
    };
    StochSolve solve(StagesModel(), "2");
    EXPECT_EQ(chosen_arcs(solve.Form.picArc), 0);
    solve.Press();
    EXPECT_EQ(chosen_arcs(solve.Form.picArc), 2);
}

}  // namespace
}  // namespace quarnel02
