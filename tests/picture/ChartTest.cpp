// Round axes, the texts of their ticks, and texts that keep out of each other's way.
#include "picture/Chart.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "basic/Numbers.h"
#include "picture/Inks.h"
#include "picture/LabelPlaces.h"
#include "support/FigureText.h"
#include "support/StochBruteForce.h"

namespace quarnel02 {
namespace {

TEST(RoundScale, HoldsTheRangeInRoundSteps) {
    const AxisScale tens = RoundScale(3, 97, 10);
    EXPECT_EQ(tens.Low, 0);
    EXPECT_EQ(tens.High, 100);
    EXPECT_EQ(tens.Step, 10);
    const AxisScale thousands = RoundScale(100000, 600000, 8);
    EXPECT_EQ(thousands.Low, 100000);
    EXPECT_EQ(thousands.High, 600000);
    EXPECT_EQ(thousands.Step, 100000);
}

TEST(RoundScale, TakesTheSmallestRoundStepThatIsLargeEnough) {
    // 8 steps from 0: of 1, 2, 2.5, 5 and 10.
    const std::pair<double, double> steps[] = {{8, 1},  {9, 2},  {16, 2},  {17, 2.5}, {20, 2.5},
                                               {21, 5}, {40, 5}, {41, 10}, {80, 10}};
    for (const auto& [high, step] : steps) {
        EXPECT_EQ(RoundScale(0, high, 8).Step, step) << high;
        EXPECT_EQ(RoundScale(0, 1000 * high, 8).Step, 1000 * step) << high;
    }
}

TEST(RoundScale, HoldsAnyRangeInAtMostSoManySteps) {
    test::Dice dice(3);
    for (int round = 0; round < 1000; ++round) {
        const double low = dice(0, 100000) / 7.0;
        const double high = low + dice(0, 5000000) / 11.0;
        const int most = dice(3, 9);
        const AxisScale scale = RoundScale(low, high, most);
        EXPECT_LE(scale.Low, low);
        EXPECT_GE(scale.High, high - 1e-9 * high);
        EXPECT_GT(scale.High, scale.Low);
        EXPECT_LE((scale.High - scale.Low) / scale.Step, most + 1e-6) << low << " to " << high;
    }
}

TEST(ThousandsText, EndsInK) {
    EXPECT_EQ(ThousandsText(12500), "12.5K");
    EXPECT_EQ(ThousandsText(600000), "600K");
    EXPECT_EQ(ThousandsText(0), "0K");
    EXPECT_EQ(ThousandsText(999), "0.999K");
}

TEST(ShortDollars, RoundsToTenthsOfAMillionAndToThousands) {
    EXPECT_EQ(ShortDollars(1249999), "$1.2M");
    EXPECT_EQ(ShortDollars(12000000), "$12M");
    EXPECT_EQ(ShortDollars(1000000), "$1M");
    EXPECT_EQ(ShortDollars(123456), "$123K");
    EXPECT_EQ(ShortDollars(999), "$999");
}

TEST(TickText, HasCentsOnlyBetweenWholeDollars) {
    const Axis money{0, 10, "", false, true};
    EXPECT_EQ(TickText(money, {0, 1, 0.25}, 0.25), "$0.25");
    EXPECT_EQ(TickText(money, {0, 1, 0.25}, 1), "$1.00");
    EXPECT_EQ(TickText(money, {0, 10, 1}, 1), "$1");
    EXPECT_EQ(TickText({0, 1, ""}, {0, 1, 0.1}, 0.1 + 0.2), "0.3");
}

Extent PlaceOf(const Picture& picture, const std::string& text) {
    for (const auto& each : test::FiguresOf<TextFigure>(picture)) {
        if (each.Text == text) {
            return ExtentOf(each, FileMeasure());
        }
    }
    ADD_FAILURE() << "no text " << text;
    return {0, 0, 0, 0};
}

Page ChartPage() {
    return {.Width = 7200, .Height = 4200};
}

/// Draws on a chart of 0 to 10 by 0 to 100.
Picture Drawn(const std::function<void(Picture&, Chart&)>& draw) {
    Picture picture(ChartPage());
    picture.Compose([&](Picture& each) {
        Chart chart(each, {"T", {0, 10, "x"}, {0, 100, "y"}, {}, {}});
        draw(each, chart);
    });
    return picture;
}

TEST(Chart, LabelsKeepClearOfLinesWhereTheyHaveRoomElsewhere) {
    Extent line{0, 0, 0, 0};
    const auto draw = [&](bool keeps_clear) {
        return Drawn([&](Picture&, Chart& chart) {
            line = {chart.ToX(0), chart.ToY(38), chart.ToX(10), chart.ToY(36)};
            if (keeps_clear) {
                chart.KeepClear(0, 38, 10, 36);
            }
            EXPECT_TRUE(chart.Label(5, 40, "label", kInk));
            EXPECT_TRUE(chart.LabelAbove(chart.ToX(2), 35, "above", kInk));
        });
    };
    const Picture careless = draw(false);
    EXPECT_TRUE(Overlap(PlaceOf(careless, "label"), line));
    EXPECT_TRUE(Overlap(PlaceOf(careless, "above"), line));
    const Picture careful = draw(true);
    EXPECT_FALSE(Overlap(PlaceOf(careful, "label"), line));
    EXPECT_FALSE(Overlap(PlaceOf(careful, "above"), line));
}

TEST(Chart, ALabelThatFindsNoClearPlaceStandsOnTheLine) {
    const Picture crowded = Drawn([](Picture&, Chart& chart) {
        for (int y = 0; y <= 100; y += 2) {
            chart.KeepClear(0, y, 10, y);
        }
        EXPECT_TRUE(chart.Label(5, 50, "label", kInk));
    });
    PlaceOf(crowded, "label");
}

bool Shows(const Picture& picture, const std::string& text) {
    const auto texts = test::FiguresOf<TextFigure>(picture);
    return std::any_of(texts.begin(), texts.end(),
                       [&](const TextFigure& each) { return each.Text == text; });
}

TEST(Chart, NamesAGuideNowhereRatherThanOnALine) {
    const Picture crowded = Drawn([](Picture&, Chart& chart) {
        for (int y = 0; y <= 100; y += 2) {
            chart.KeepClear(0, y, 10, y);
        }
        chart.Guide(3, "guide", kInk);
        chart.NameGuide(3, "guide", "g");
        chart.Guide(6, "other", kInk);
        chart.NameGuideAcross(6, "other", "o");
    });
    for (const char* name : {"guide", "g", "other", "o"}) {
        EXPECT_FALSE(Shows(crowded, name)) << name;
    }
    ASSERT_EQ(crowded.HotSpots().size(), 2U);
    EXPECT_EQ(crowded.HotSpots()[0].Text, "guide");
    EXPECT_EQ(crowded.HotSpots()[1].Text, "other");
}

TEST(Chart, NamesOfGuidesCrossNoOtherGuide) {
    Extent between{0, 0, 0, 0};
    const Picture picture = Drawn([&](Picture&, Chart& chart) {
        between = {chart.ToX(5), 0, chart.ToX(5.2), 1e6};
        for (const double x : {5.0, 5.1, 5.2}) {
            chart.Guide(x, "at " + NumberText(x), kInk);
        }
        for (const double x : {5.0, 5.1, 5.2}) {
            chart.NameGuide(x, "at " + NumberText(x), "short");
        }
    });
    // To the left of the first, to the right of the last, and no room for the one between.
    EXPECT_LT(PlaceOf(picture, "at 5").Right, between.Left);
    EXPECT_GT(PlaceOf(picture, "at 5.2").Left, between.Right);
    EXPECT_FALSE(Shows(picture, "at 5.1"));
    EXPECT_FALSE(Shows(picture, "short"));
}

TEST(Chart, NamesAGuideAcrossWhereThatHasRoomElseAlong) {
    const auto drawn = [](double next) {
        return Drawn([next](Picture&, Chart& chart) {
            for (const double x : {5 - next, 5.0, 5 + next}) {
                chart.Guide(x, "", kInk);
            }
            chart.NameGuideAcross(5, "the name", "short");
        });
    };
    const Extent across = PlaceOf(drawn(3), "the name");
    EXPECT_GT(across.Right - across.Left, across.Bottom - across.Top);
    const Extent along = PlaceOf(drawn(0.6), "the name");
    EXPECT_LT(along.Right - along.Left, along.Bottom - along.Top);
}

bool IsUpright(const Picture& picture, const std::string& text) {
    const auto texts = test::FiguresOf<TextFigure>(picture);
    return std::any_of(texts.begin(), texts.end(),
                       [&](const TextFigure& each) { return each.Text == text && each.Turned; });
}

/// A chart of so many bars that are nearly as high as each other, on paper of that width.
Picture LabelledBars(int count, double width, std::vector<double>& tops) {
    ChartFrame frame{"T", {0, 1, "x"}, {0, 100, "y"}, {}, {}};
    for (int place = 1; place <= count; ++place) {
        frame.Places.push_back("Place " + NumberText(place));
        frame.BarLabels.push_back("in full " + NumberText(place));
        frame.ShortBarLabels.push_back("s" + NumberText(place));
    }
    Picture picture(Page{.Width = width, .Height = 4200});
    picture.Compose([&](Picture& each) {
        Chart chart(each, frame);
        tops.clear();
        for (int place = 0; place < count; ++place) {
            const double value = 100 - place % 2;
            tops.push_back(chart.ToY(value));
            chart.LabelBar(static_cast<std::size_t>(place), value, kInk);
        }
    });
    return picture;
}

TEST(Chart, LabelsAllBarsTheSameWayEachRightOverItsBar) {
    constexpr int count = 12;
    struct Case {
        double Width;
        std::string Start;
        bool Upright;
    };
    for (const Case& each :
         {Case{20000, "in full ", false}, Case{7200, "s", false}, Case{4200, "s", true}}) {
        SCOPED_TRACE(each.Width);
        std::vector<double> tops;
        const Picture picture = LabelledBars(count, each.Width, tops);
        for (int place = 1; place <= count; ++place) {
            const Extent label = PlaceOf(picture, each.Start + NumberText(place));
            EXPECT_EQ(IsUpright(picture, each.Start + NumberText(place)), each.Upright);
            EXPECT_NEAR(label.Bottom, tops[static_cast<std::size_t>(place) - 1], kChartGap);
            EXPECT_GE(label.Top, 0);
        }
    }
    std::vector<double> tops;
    const Picture narrow = LabelledBars(40, 4200, tops);
    EXPECT_FALSE(Shows(narrow, "s1"));
    EXPECT_FALSE(Shows(narrow, "in full 1"));
}

TEST(Chart, TheLabelOfABarStandsCloseOverALineThatIsInItsWay) {
    double limit = 0;
    Picture picture(ChartPage());
    picture.Compose([&](Picture& each) {
        ChartFrame frame{"T", {0, 1, "x"}, {0, 100, "y"}, {}, {}};
        frame.Places = {"A", "B"};
        frame.BarLabels = {"low", "near"};
        frame.ShortBarLabels = frame.BarLabels;
        Chart chart(each, frame);
        chart.Limit(80, kRedInk);
        limit = chart.ToY(80);
        chart.LabelBar(0, 20, kInk);
        chart.LabelBar(1, 78, kInk);
    });
    EXPECT_GT(PlaceOf(picture, "low").Top, limit);
    const double line = LineHeight(Font{});
    EXPECT_LE(PlaceOf(picture, "near").Bottom, limit);
    EXPECT_GT(PlaceOf(picture, "near").Bottom, limit - line / 2);
}

TEST(Chart, TheLegendTakesNoMoreRowsThanItFills) {
    // On paper that is narrower than the chart, which grows.
    double plot = 0;
    const auto top = [&](double width) {
        Picture picture(Page{.Width = width, .Height = 9000});
        picture.Compose([&](Picture& each) {
            const Chart chart(each, {"T",
                                     {0, 10, "x"},
                                     {0, 100, "y"},
                                     {{"one", kInk}, {"two", kInk}, {"three", kInk}},
                                     {}});
            plot = chart.Plot().Top;
        });
        return plot;
    };
    Picture grown(Page{.Width = 100, .Height = 9000});
    grown.Compose([](Picture& each) {
        const Chart chart(each, {"T", {0, 10, "x"}, {0, 100, "y"}, {}, {}});
    });
    EXPECT_GT(grown.Width(), 100);
    EXPECT_EQ(top(100), top(grown.Width()));
}

TEST(Chart, CutsALineOffAtEitherEndOfTheAxis) {
    Extent plot{0, 0, 0, 0};
    const Picture picture = Drawn([&](Picture& each, Chart& chart) {
        plot = chart.Plot();
        EXPECT_TRUE(chart.Line(0, 0, 10, 200, kRedInk));
        EXPECT_TRUE(chart.Line(0, 200, 10, 0, kGreenInk));
        EXPECT_TRUE(chart.Line(0, 50, 10, -50, kBlueInk));
        const std::size_t drawn = each.Figures().size();
        EXPECT_FALSE(chart.Line(0, 101, 10, 200, kInk));
        EXPECT_EQ(each.Figures().size(), drawn);
    });
    const auto ends = [&](Colour pen) {
        for (const auto& line : test::FiguresOf<LineFigure>(picture)) {
            if (line.Pen == pen) {
                return std::vector<double>{line.X1, line.Y1, line.X2, line.Y2};
            }
        }
        return std::vector<double>();
    };
    const double middle = (plot.Left + plot.Right) / 2;
    EXPECT_EQ(ends(kRedInk), (std::vector{plot.Left, plot.Bottom, middle, plot.Top}));
    EXPECT_EQ(ends(kGreenInk), (std::vector{middle, plot.Top, plot.Right, plot.Bottom}));
    EXPECT_EQ(ends(kBlueInk),
              (std::vector{plot.Left, (plot.Top + plot.Bottom) / 2, middle, plot.Bottom}));
}

TEST(Chart, LabelsKeepOffBarsAndRings) {
    Extent bar{0, 0, 0, 0};
    Extent ring{0, 0, 0, 0};
    const Picture picture = Drawn([&](Picture& each, Chart& chart) {
        chart.Bar(chart.ToX(2), chart.ToX(4), 0, 50, kBlueInk);
        bar = ExtentOf(each.Figures().back(), FileMeasure());
        EXPECT_TRUE(chart.LabelAbove(chart.ToX(2), 45, "lower bar", kInk));
        chart.Ring(7, 50, kRedInk);
        ring = ExtentOf(each.Figures().back(), FileMeasure());
        EXPECT_TRUE(chart.Label(7, 50, "ring", kInk));
    });
    EXPECT_FALSE(Overlap(PlaceOf(picture, "lower bar"), bar));
    EXPECT_LT(PlaceOf(picture, "lower bar").Bottom, bar.Top + 1);
    EXPECT_FALSE(Overlap(PlaceOf(picture, "ring"), ring));
}

TEST(Chart, LeavesOutALabelOfTheAxisThatWouldReachBeyondThePaper) {
    Picture picture(Page{.Width = 3000, .Height = 4200});
    picture.Compose([](Picture& each) {
        const Chart chart(each, {"T", {123456789012.0, 123456789016.0, "x"}, {0, 10, "y"}, {}, {}});
    });
    int labels = 0;
    for (const auto& text : test::FiguresOf<TextFigure>(picture)) {
        labels += text.Text.starts_with("1234567890") ? 1 : 0;
        EXPECT_GE(text.X, 0) << text.Text;
        EXPECT_LE(ExtentOf(text, FileMeasure()).Right, picture.Width()) << text.Text;
    }
    EXPECT_GE(labels, 1);
}

TEST(Chart, NamesGuidesAsHighUpAsTheyHaveRoom) {
    Extent taken{0, 0, 0, 0};
    const Picture picture = Drawn([&](Picture&, Chart& chart) {
        chart.NameGuide(2, "high up", "short");
        chart.KeepClear(5, 95, 7, 95);
        chart.NameGuide(5.1, "lower down", "short");
        taken = {chart.ToX(5), chart.ToY(96), chart.ToX(7), chart.ToY(94)};
        chart.NameGuide(8, "a name that is much longer than the chart is high, so that it has none",
                        "short");
        chart.NameGuide(9, "", "");
    });
    const double top = PlaceOf(picture, "high up").Top;
    EXPECT_GT(PlaceOf(picture, "lower down").Top, top);
    EXPECT_FALSE(Overlap(PlaceOf(picture, "lower down"), taken));
    EXPECT_EQ(PlaceOf(picture, "short").Top, top);
}

TEST(Chart, NumbersPlacesInEvenStepsWhereTheirNamesHaveNoRoom) {
    const auto shown = [](int count, const std::string& name) {
        ChartFrame frame{"T", {0, 1, "x"}, {0, 100, "y"}, {}, {}};
        for (int place = 1; place <= count; ++place) {
            frame.Places.push_back(name + NumberText(place));
        }
        Picture picture(ChartPage());
        picture.Compose([&](Picture& each) { const Chart chart(each, frame); });
        std::vector<std::string> texts;
        for (const HotSpot& spot : picture.HotSpots()) {
            texts.push_back(std::get<TextFigure>(picture.Figures()[spot.Figure]).Text);
        }
        return texts;
    };
    EXPECT_EQ(shown(3, "Place "), (std::vector<std::string>{"Place 1", "Place 2", "Place 3"}));
    EXPECT_EQ(shown(4, "A rather long name "), (std::vector<std::string>{"1", "2", "3", "4"}));
    const auto many = shown(60, "Place ");
    ASSERT_GT(many.size(), 5U);
    EXPECT_EQ(many[1], NumberText(2 * TextToDouble(many[0], "")));
    EXPECT_EQ(many.size(), 60 / static_cast<std::size_t>(TextToDouble(many[0], "")));
}

}  // namespace
}  // namespace quarnel02
