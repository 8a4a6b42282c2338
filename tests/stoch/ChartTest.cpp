// The charts of a stochastic solve: round axes, labels that do not run into one another, and
// everything on the paper.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "picture/Chart.h"
#include "support/FigureText.h"
#include "support/StochBruteForce.h"
#include "support/StochDesk.h"
#include "support/StochModels.h"

namespace quarnel02 {
namespace {

using test::ModelScript;
using test::StochDesk;

struct Box {
    double Left;
    double Top;
    double Right;
    double Bottom;
};

Box BoxOf(const TextFigure& text) {
    return {text.X, text.Y, text.X + TextWidth(text.Text, text.Face),
            text.Y + LineHeight(text.Face)};
}

bool Overlap(const Box& a, const Box& b) {
    return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
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

/// Lines of the chart's blue on the demand picture: its bars.
std::size_t Bars(const Picture& picture) {
    const auto lines = test::FiguresOf<LineFigure>(picture);
    return static_cast<std::size_t>(
        std::count_if(lines.begin(), lines.end(), [](const LineFigure& each) {
            return each.Pen == Colour{21, 101, 192};
        }));
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
        EXPECT_EQ(Bars(desk.Form.picGraph[1]), static_cast<std::size_t>(GetParam()));
        ExpectReadable(desk.Form.picGraph[3]);
        EXPECT_TRUE(HasText(desk.Form.picGraph[3], "Expected Shifts"));
        desk.Solve();
        ExpectReadable(desk.Form.picGraph[3]);
        EXPECT_TRUE(HasText(desk.Form.picGraph[3], "Expected Annual Cost"));
    }
}

INSTANTIATE_TEST_SUITE_P(Points, Charts, testing::Range(2, 11));

TEST(ChartDrawings, LabelVolumesInThousands) {
    StochDesk desk(test::StagesModel());
    desk.BuildDemandTables();
    EXPECT_TRUE(HasText(desk.Form.picGraph[1], "100K"));
    EXPECT_TRUE(HasText(desk.Form.picGraph[1], "200K"));
    EXPECT_TRUE(HasText(desk.Form.picGraph[3], "600K"));
}

TEST(ChartDrawings, MarkTheChosenCapacity) {
    StochDesk desk(test::StagesModel());
    desk.Solve();
    const auto discs = test::FiguresOf<CircleFigure>(desk.Form.picGraph[3]);
    ASSERT_EQ(discs.size(), 1U);
    EXPECT_TRUE(discs[0].Filled);
    EXPECT_EQ(discs[0].X, desk.Form.picGraph[3].Width() * 0.96);  // the last volume is on the edge
    EXPECT_TRUE(HasText(desk.Form.picGraph[3], "600K: $178,400"));
}

/// Lines of a colour, from left to right as they are drawn.
std::vector<LineFigure> LinesOf(const Picture& picture, Colour colour) {
    std::vector<LineFigure> lines = test::FiguresOf<LineFigure>(picture);
    std::erase_if(lines, [&](const LineFigure& line) { return !(line.Pen == colour); });
    return lines;
}

/// The plot reaches from 16 to 96 % of the width and from 80 up to 16 % of the height.
struct CostPlot {
    explicit CostPlot(const Picture& paper) : Paper(paper) {}
    [[nodiscard]] double X(double volume) const {
        return Paper.Width() * (0.16 + 0.80 * (volume - 100000) / 500000);
    }
    [[nodiscard]] double Y(double cost, double low, double high) const {
        return Paper.Height() * (0.80 - 0.64 * (cost - low) / (high - low));
    }
    const Picture& Paper;
};

TEST(ChartDrawings, DrawTheCostCurveSegmentBySegment) {
    StochDesk desk(test::StagesModel(), "2");
    desk.Solve();
    const CostPlot plot(desk.Form.picGraph[3]);
    const auto curve = LinesOf(plot.Paper, {0, 0, 127});
    const auto designs = desk.Result.ExpectedCosts.Segments();
    ASSERT_EQ(designs.size(), 10U);
    ASSERT_EQ(curve.size(), designs.size());
    // costs from 178,400 to 354,000, and a tenth of that below
    const AxisScale scale = RoundScale(178400 - 17560, 354000, 6);
    for (std::size_t i = 0; i < designs.size(); ++i) {
        const auto y = [&](float cost) {
            return plot.Y(static_cast<double>(cost), scale.Low, scale.High);
        };
        EXPECT_EQ(curve[i].Width, 2);
        EXPECT_NEAR(curve[i].X1, plot.X(static_cast<double>(designs[i].Start)), 1) << i;
        EXPECT_NEAR(curve[i].X2, plot.X(static_cast<double>(designs[i].End)), 1) << i;
        EXPECT_NEAR(curve[i].Y1, y(designs[i].CostStart), 1) << i;
        EXPECT_NEAR(curve[i].Y2, y(designs[i].CostEnd), 1) << i;
    }
}

TEST(ChartDrawings, GuideToTheVolumesThatSaveAShift) {
    StochDesk desk(test::StagesModel(), "2");
    desk.Solve();
    const CostPlot plot(desk.Form.picGraph[3]);
    const auto guides = LinesOf(plot.Paper, {200, 215, 235});
    const std::vector<double> volumes = {150000, 300000, 600000};
    ASSERT_EQ(guides.size(), volumes.size());
    for (std::size_t i = 0; i < volumes.size(); ++i) {
        EXPECT_NEAR(guides[i].X1, plot.X(volumes[i]), 1);
        EXPECT_EQ(guides[i].X1, guides[i].X2);
        EXPECT_NEAR(std::min(guides[i].Y1, guides[i].Y2), plot.Paper.Height() * 0.16, 1);
        EXPECT_NEAR(std::max(guides[i].Y1, guides[i].Y2), plot.Paper.Height() * 0.80, 1);
    }
}

TEST(ChartDrawings, EqualVolumesShareABar) {
    ModelScript model = test::StagesModel();
    model.Demand = {{100000, 20}, {100000, 30}, {200000, 50}};
    StochDesk desk(model);
    desk.BuildDemandTables();
    const auto bars = LinesOf(desk.Form.picGraph[1], {21, 101, 192});
    ASSERT_EQ(bars.size(), 2U);
    EXPECT_EQ(bars[0].Y2, bars[1].Y2);  // 50 % each
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
