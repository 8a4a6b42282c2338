// The charts of a stochastic solve: round axes, labels that do not run into one another, and
// everything on the paper.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "picture/Chart.h"
#include "picture/Inks.h"
#include "picture/LabelPlaces.h"
#include "shell/LoadLineModel.h"
#include "study/LineText.h"
#include "support/FigureText.h"
#include "support/StochBruteForce.h"
#include "support/StochDesk.h"
#include "support/StochModels.h"
#include "support/StochSolve.h"

namespace quarnel02 {
namespace {

using test::ModelScript;
using test::StochDesk;

Extent BoxOf(const TextFigure& text) {
    return ExtentOf(text, FileMeasure());
}

void ExpectReadable(const Picture& picture) {
    const auto texts = test::FiguresOf<TextFigure>(picture);
    EXPECT_GE(texts.size(), 5U);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        for (std::size_t j = i + 1; j < texts.size(); ++j) {
            EXPECT_FALSE(Overlap(BoxOf(texts[i]), BoxOf(texts[j])))
                << "[" << texts[i].Text << "] and [" << texts[j].Text << "]";
        }
    }
    const Extent drawn = picture.Bounds();
    EXPECT_EQ(drawn.Left, 0);
    EXPECT_EQ(drawn.Top, 0);
    EXPECT_EQ(drawn.Right, picture.Width());
    EXPECT_EQ(drawn.Bottom, picture.Height());
}

bool HasText(const Picture& picture, const std::string& text) {
    const auto texts = test::FiguresOf<TextFigure>(picture);
    return std::any_of(texts.begin(), texts.end(),
                       [&](const TextFigure& each) { return each.Text == text; });
}

std::vector<BoxFigure> Bars(const Picture& picture) {
    std::vector<BoxFigure> bars = test::FiguresOf<BoxFigure>(picture);
    std::erase_if(bars, [](const BoxFigure& each) { return !(each.Fill == kBlueInk); });
    return bars;
}

/// How many demand points the words behind the bars name.
std::size_t PointsNamed(const Picture& picture) {
    std::size_t points = 0;
    for (const HotSpot& spot : picture.HotSpots()) {
        for (auto at = spot.Text.find(" units: "); at != std::string::npos;
             at = spot.Text.find(" units: ", at + 1)) {
            ++points;
        }
    }
    return points;
}

class Charts : public testing::TestWithParam<int> {
  protected:
    /// Points of any size, evenly apart, close together, or next to one far away.
    static std::vector<DemandPoint> Points(int count, int kind) {
        std::vector<DemandPoint> points;
        for (int point = 1; point <= count; ++point) {
            const double volume = kind == 0   ? 10000.0 * point
                                  : kind == 1 ? 123456.5 + point
                                  : kind == 2 ? (point == count ? 900000.0 : 1000.0 * point)
                                              : 0.5 * point;
            points.push_back({static_cast<float>(volume), 100.0F / static_cast<float>(count)});
        }
        return points;
    }
};

TEST_P(Charts, AreReadable) {
    for (int kind = 0; kind < 4; ++kind) {
        SCOPED_TRACE("kind " + std::to_string(kind));
        ModelScript model = test::StagesModel();
        model.Demand = Points(GetParam(), kind);
        StochDesk desk(model, "3");
        desk.BuildDemandTables();
        ExpectReadable(desk.Form.picGraph[1]);
        EXPECT_EQ(PointsNamed(desk.Form.picGraph[1]), static_cast<std::size_t>(GetParam()));
        const auto bars = Bars(desk.Form.picGraph[1]);
        for (std::size_t bar = 1; bar < bars.size(); ++bar) {
            EXPECT_GE(bars[bar].X - bars[bar - 1].X - bars[bar - 1].Width, 30) << bar;
        }
        ExpectReadable(desk.Form.picGraph[3]);
        EXPECT_TRUE(HasText(desk.Form.picGraph[3], "Expected Shifts"));
        desk.Solve();
        ExpectReadable(desk.Form.picGraph[3]);
        EXPECT_TRUE(HasText(desk.Form.picGraph[3], "Expected Annual Cost"));
    }
}

INSTANTIATE_TEST_SUITE_P(Points, Charts, testing::Range(2, 11));

TEST(ChartDrawings, LabelVolumesInThousandsAndBarsWithTheirProbabilities) {
    StochDesk desk(test::StagesModel());
    desk.BuildDemandTables();
    EXPECT_TRUE(HasText(desk.Form.picGraph[1], "100K"));
    EXPECT_TRUE(HasText(desk.Form.picGraph[1], "200K"));
    EXPECT_TRUE(HasText(desk.Form.picGraph[1], "60%"));
    EXPECT_TRUE(HasText(desk.Form.picGraph[3], "600K"));
}

/// Whether the words are behind a figure of the picture.
bool Says(const Picture& picture, const std::string& words) {
    const auto spots = picture.HotSpots();
    return std::any_of(spots.begin(), spots.end(),
                       [&](const HotSpot& spot) { return WordsOf(spot) == words; });
}

TEST(ChartDrawings, MarkTheChosenCapacityWithoutHidingIt) {
    StochDesk desk(test::StagesModel());
    desk.Solve();
    const auto rings = test::FiguresOf<CircleFigure>(desk.Form.picGraph[3]);
    ASSERT_EQ(rings.size(), 1U);
    EXPECT_FALSE(rings[0].Filled);
    EXPECT_TRUE(HasText(desk.Form.picGraph[3], "600K: $178,400"));
    EXPECT_TRUE(Says(desk.Form.picGraph[3], "The cheapest capacity, 600,000: $178,400 a year"));
}

/// Lines of a colour, from left to right as they are drawn.
std::vector<LineFigure> LinesOf(const Picture& picture, Colour colour) {
    std::vector<LineFigure> lines = test::FiguresOf<LineFigure>(picture);
    std::erase_if(lines, [&](const LineFigure& line) { return !(line.Pen == colour); });
    return lines;
}

TEST(ChartDrawings, DrawTheCostCurveSegmentBySegment) {
    StochDesk desk(test::StagesModel(), "2");
    desk.Solve();
    const Picture& picture = desk.Form.picGraph[3];
    const auto designs = desk.Result.ExpectedCosts.Segments();
    ASSERT_EQ(designs.size(), 10U);
    std::vector<LineFigure> curve;
    for (const HotSpot& spot : picture.HotSpots()) {
        if (spot.Ends) {
            curve.push_back(std::get<LineFigure>(picture.Figures()[spot.Figure]));
        }
    }
    ASSERT_EQ(curve.size(), designs.size());
    // Two places tell the scales; all other ends must agree with them.
    const auto x = [&](float volume) {
        const double from = static_cast<double>(designs.front().Start);
        const double to = static_cast<double>(designs.back().End);
        return curve.front().X1 + (static_cast<double>(volume) - from) / (to - from) *
                                      (curve.back().X2 - curve.front().X1);
    };
    const auto ring = test::FiguresOf<CircleFigure>(picture).at(0);
    const auto y = [&](float cost) {
        const double from = static_cast<double>(designs.front().CostStart);
        const double chosen = static_cast<double>(desk.Line().ExpectedCost);
        return curve.front().Y1 +
               (static_cast<double>(cost) - from) / (chosen - from) * (ring.Y - curve.front().Y1);
    };
    for (std::size_t i = 0; i < designs.size(); ++i) {
        EXPECT_EQ(curve[i].Width, 2);
        EXPECT_NEAR(curve[i].X1, x(designs[i].Start), 1) << i;
        EXPECT_NEAR(curve[i].X2, x(designs[i].End), 1) << i;
        EXPECT_NEAR(curve[i].Y1, y(designs[i].CostStart), 1) << i;
        EXPECT_NEAR(curve[i].Y2, y(designs[i].CostEnd), 1) << i;
    }
}

TEST(ChartDrawings, NameTheVolumesThatSaveAShift) {
    StochDesk desk(test::StagesModel(), "2");
    desk.Solve();
    const auto guides = LinesOf(desk.Form.picGraph[3], {200, 215, 235});
    ASSERT_EQ(guides.size(), 3U);
    for (const LineFigure& guide : guides) {
        EXPECT_EQ(guide.X1, guide.X2);
    }
    // 150, 300 and 600 thousand units for demands of 100 and 200 thousand.
    EXPECT_NEAR((guides[1].X1 - guides[0].X1) / (guides[2].X1 - guides[0].X1), 1 / 3.0, 1e-6);
    EXPECT_TRUE(HasText(desk.Form.picGraph[3], "100K in two shifts"));
    EXPECT_TRUE(Says(desk.Form.picGraph[3], "200K in two shifts, 100K in one shift"));
    EXPECT_TRUE(Says(desk.Form.picGraph[3], "200K in one shift"));
}

TEST(ChartDrawings, CutThePenaltyCliffOffAndBreakTheAxis) {
    StochDesk desk(test::StagesModel(), "50");
    desk.Solve();
    const Picture& picture = desk.Form.picGraph[3];
    float dearest = 0;
    for (const CurveSegment& segment : desk.Result.ExpectedCosts.Segments()) {
        dearest = std::max({dearest, segment.CostStart, segment.CostEnd});
    }
    ASSERT_GT(dearest, 10 * desk.Line().ExpectedCost);
    EXPECT_TRUE(
        Says(picture, "up to " + ShortDollars(static_cast<double>(dearest)) + " (penalty)"));
    ExpectReadable(picture);
}

TEST(ChartDrawings, BreakTheAxisOnlyWhereItDoesNotBeginAtZero) {
    constexpr const char* sign = "This axis does not begin at 0.";
    Picture picture(7200, 4200);
    const auto draw = [&](double low) {
        picture.Compose([low](Picture& each) {
            const Chart chart(each, {"T", {0, 10, "x"}, {low, 100, "y"}, {}, {}});
        });
    };
    draw(0);
    EXPECT_FALSE(Says(picture, sign));
    draw(50);
    EXPECT_TRUE(Says(picture, sign));
}

TEST(ChartDrawings, ShowAShortFootOfTheCostsDownToZero) {
    const std::vector<DemandPoint> points = {{100, 100}};
    const DemandDistribution demand(points);
    const auto begins_at_zero = [&](float dearest) {
        CostCurve costs;
        costs.Append({100, 300, 1000, dearest, {}});
        StochasticLine line;
        line.Capacity = 100;
        line.ExpectedCost = 1000;
        Picture picture(7200, 4200);
        DrawStochasticCosts(line, costs, demand, picture);
        EXPECT_NE(HasText(picture, "$0"), Says(picture, "This axis does not begin at 0."));
        return HasText(picture, "$0");
    };
    // The axis would begin at 1000 - 15 % of the rise, and shows 0 below 35 % of its top.
    EXPECT_TRUE(begins_at_zero(3000));
    EXPECT_FALSE(begins_at_zero(2000));
}

/// The stations that a solve has marked in its tables.
std::vector<StationGroup> ChosenGroups(test::StochSolve& solve) {
    RecordSet rows = solve.Copy.Open().OpenRecordSet(
        "SELECT Pathways.ResourceId, Arcs.TaskStart, Arcs.TaskEnd FROM Pathways INNER JOIN Arcs ON "
        "Pathways.ArcId = Arcs.ArcId WHERE Pathways.Feasible = 4 ORDER BY Arcs.TaskStart;");
    std::vector<StationGroup> groups;
    for (; !rows.Eof(); rows.MoveNext()) {
        groups.push_back({rows.Integer(0), rows.Integer(1), rows.Integer(2) - 1, 2});
    }
    return groups;
}

TEST(ChartDrawings, SegmentsTellCapacityCostAndStations) {
    test::StochSolve solve(test::StagesModel(), "2");
    solve.Press();
    const Picture& picture = solve.Form.picGraph[3];
    std::string words;
    for (const HotSpot& spot : picture.HotSpots()) {
        if (spot.Ends && spot.Ends->XEnd == 600000) {
            words = WordsAt(spot, picture.Figures()[spot.Figure], picture.Width(), 0);
        }
    }
    EXPECT_TRUE(words.starts_with("Capacity 600,000: $178,400 a year; ")) << words;
    const std::string stations = words.substr(words.find("; ") + 2);
    EXPECT_EQ(stations, LineText(LoadLineModel(solve.Copy.Open()), ChosenGroups(solve)));
}

TEST(ChartDrawings, EqualAndNearVolumesShareABar) {
    ModelScript model = test::StagesModel();
    model.Demand = {{100000, 20}, {100000, 30}, {100010, 10}, {200000, 40}};
    StochDesk desk(model);
    desk.BuildDemandTables();
    EXPECT_EQ(Bars(desk.Form.picGraph[1]).size(), 2U);
    EXPECT_TRUE(HasText(desk.Form.picGraph[1], "3 points: 60%"));
    EXPECT_TRUE(HasText(desk.Form.picGraph[1], "40%"));
    EXPECT_TRUE(Says(desk.Form.picGraph[1],
                     "3 points: 60% (100,000 units: 20%; 100,000 units: 30%; 100,010 units: 10%)"));
}

TEST(ChartDrawings, OfOneVolumeAlone) {
    ModelScript model = test::StagesModel();
    model.Demand = {{100000, 50}, {100000, 50}};
    StochDesk desk(model);
    desk.Solve();
    ExpectReadable(desk.Form.picGraph[1]);
    ExpectReadable(desk.Form.picGraph[3]);
}

TEST(ChartDrawings, OfProbabilitiesThatAreAllZero) {
    ModelScript model = test::StagesModel();
    model.Demand = {{100000, 0}, {200000, 0}};
    StochDesk desk(model);
    desk.Solve();
    for (const int index : {1, 3}) {
        for (const auto& text :
             test::FiguresOf<TextFigure>(desk.Form.picGraph[static_cast<std::size_t>(index)])) {
            EXPECT_EQ(text.Text.find("NaN"), std::string::npos);
            EXPECT_TRUE(std::isfinite(text.X) && std::isfinite(text.Y)) << text.Text;
        }
    }
}

}  // namespace
}  // namespace quarnel02
