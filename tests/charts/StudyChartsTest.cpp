// The charts of studies: what they show of the values.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "charts/BreakEvenBars.h"
#include "charts/CapacityChart.h"
#include "charts/CostBars.h"
#include "charts/StationLoad.h"
#include "charts/Tornado.h"
#include "charts/VolumeChart.h"
#include "study/CostBasis.h"
#include "support/FigureText.h"
#include "support/ModelScript.h"

namespace quarnel02 {
namespace {

using test::FiguresOf;
using Texts = std::vector<std::string>;

/// A bench for tasks 1 to 3 with tools 1, 2, 2, and a robot for task 4.
LineModel BenchAndRobot() {
    test::ModelScript model;
    model.Tasks = 4;
    model.TransportTime = 3;
    model.Resources = {{"Bench", 0, 1000, 0, 100, 1, 5, 1}, {"Robot", 2, 40000, 9, 80, 1.25, 0, 4}};
    model.Matrix = {
        {1, 1, 20, 1, 100}, {1, 2, 30, 2, 250}, {1, 3, 10, 2, 999}, {2, 4, 16, 7, 2000}};
    return model.Model();
}

Texts TextsOf(const Picture& picture) {
    Texts texts;
    for (const auto& text : FiguresOf<TextFigure>(picture)) {
        texts.push_back(text.Text);
    }
    return texts;
}

bool Has(const Texts& texts, const std::string& text) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

Texts WordsOf(const Picture& picture) {
    Texts words;
    for (const HotSpot& spot : picture.HotSpots()) {
        words.push_back(WordsOf(spot));
    }
    return words;
}

LineTable TableOfBenchAndRobot(const LineModel& model) {
    const std::vector<StationGroup> groups = {{1, 1, 3, 1}, {2, 4, 4, 2}};
    return TableOf(model, groups, BasisOf({60000, 2, {}}, model.Parameters()));
}

TEST(StationLoad, StacksTasksToolChangesTransportAndLossOfEachStation) {
    const LineModel model = BenchAndRobot();
    const LineTable table = TableOfBenchAndRobot(model);
    Picture picture(9000, 6000);
    DrawStationLoad(picture, model, table);
    const Texts words = WordsOf(picture);
    // 60 s of tasks; two changes of 5 s, of which the second holds the transport of 3 s.
    for (const char* part :
         {"1 Bench: Task 1, 20.0 s of 70.0 s", "1 Bench: Task 2, 30.0 s of 70.0 s",
          "1 Bench: Task 3, 10.0 s of 70.0 s"}) {
        EXPECT_TRUE(std::any_of(words.begin(), words.end(), [&](const std::string& each) {
            return each == part;
        })) << part;
    }
    EXPECT_TRUE(std::any_of(words.begin(), words.end(), [](const std::string& each) {
        return each.starts_with("1 Bench: Tool changes, ");
    }));
    // Two robots with an uptime of 80 %: 16 s of the task are 8 s of the time of each unit.
    EXPECT_TRUE(std::any_of(words.begin(), words.end(), [](const std::string& each) {
        return each.starts_with("2 Robot x2: Task 4, 8.0 s of ");
    }));
    EXPECT_TRUE(std::any_of(words.begin(), words.end(), [](const std::string& each) {
        return each.starts_with("2 Robot x2: Uptime loss, ");
    }));
}

TEST(StationLoad, StandsAgainstTheAvailableCycleTime) {
    const LineModel model = BenchAndRobot();
    const LineTable table = TableOfBenchAndRobot(model);
    Picture picture(9000, 6000);
    DrawStationLoad(picture, model, table);
    const auto lines = FiguresOf<LineFigure>(picture);
    const auto limit = std::find_if(lines.begin(), lines.end(), [](const LineFigure& line) {
        return line.Dashed && line.X2 - line.X1 > 1000;
    });
    ASSERT_NE(limit, lines.end());
    const auto boxes = FiguresOf<BoxFigure>(picture);
    const auto bench_top =
        std::min_element(boxes.begin(), boxes.end(), [](const BoxFigure& a, const BoxFigure& b) {
            return a.X < b.X || (a.X == b.X && a.Y < b.Y);
        });
    // Heights over the foot of the plot are as the seconds.
    const double foot = bench_top->Y + [&] {
        double height = 0;
        for (const BoxFigure& box : boxes) {
            height += box.X == bench_top->X ? box.Height : 0;
        }
        return height;
    }();
    EXPECT_NEAR((foot - limit->Y1) / (foot - bench_top->Y),
                table.Basis.AvailableCycleTime / table.Rows[0].Time, 1e-6);
}

std::vector<VolumeRange> Ranges() {
    const std::vector<StationGroup> bench = {{1, 1, 4, 1}};
    const std::vector<StationGroup> robots = {{2, 1, 4, 2}};
    return {{1, 1000, 4000, bench, 10000, 20000, 0, true},
            {1, 4001, 8000, robots, 50000, 58000, 0, false},
            {2, 1000, 8000, bench, 30000, 37000, 0, true}};
}

TEST(VolumeChart, HasACurveForEachNumberOfShiftsWithItsLines) {
    Picture picture(9000, 6000);
    const auto curves = CurvesOf(BenchAndRobot(), Ranges());
    ASSERT_EQ(curves.size(), 2U);
    DrawVolumes(picture, curves, VolumeCost::Total);
    const Texts words = WordsOf(picture);
    EXPECT_EQ(words,
              (Texts{"1,000 to 4,000 units, 1 shift: $10,000 to $20,000 a year; Bench 1-4",
                     "4,001 to 8,000 units, 1 shift: $50,000 to $58,000 a year; Robot x2 1-4",
                     "1,000 to 8,000 units, 2 shifts: $30,000 to $37,000 a year; Bench 1-4"}));
    std::vector<int> widths;
    for (const HotSpot& spot : picture.HotSpots()) {
        widths.push_back(std::get<LineFigure>(picture.Figures()[spot.Figure]).Width);
    }
    EXPECT_EQ(widths, (std::vector<int>{3, 1, 3}));  // the best ones are thick
    EXPECT_TRUE(Has(TextsOf(picture), "2 shifts"));
}

TEST(VolumeChart, ReadsTheCostPerUnitOnTheCurve) {
    Picture picture(9000, 6000);
    DrawVolumes(picture, CurvesOf(BenchAndRobot(), Ranges()), VolumeCost::PerUnit);
    const HotSpot* last = nullptr;
    for (const HotSpot& spot : picture.HotSpots()) {
        if (spot.Text.find("2 shifts") != std::string::npos) {
            last = &spot;
        }
    }
    ASSERT_NE(last, nullptr);
    ASSERT_TRUE(last->Ends.has_value());
    EXPECT_DOUBLE_EQ(last->Ends->XEnd, 8000);
    EXPECT_DOUBLE_EQ(last->Ends->YEnd, 37000.0 / 8000);
    // Half-way between 1,000 and 8,000 units the cost is half-way too, not the cost per unit.
    for (const HotSpot& spot : picture.HotSpots()) {
        if (spot.Ends && spot.Text.find("2 shifts") != std::string::npos) {
            const double cost = 30000 + 7000 * (spot.Ends->XStart - 1000) / 7000;
            EXPECT_NEAR(spot.Ends->YStart, cost / spot.Ends->XStart, 1e-9);
        }
    }
}

TEST(VolumeChart, ShowsTheBestOfAClassDashed) {
    Picture picture(9000, 6000);
    const VolumeCurve manual = CurveOfClass(BenchAndRobot(), ResourceType::Manual, Ranges());
    EXPECT_EQ(manual.Name, "only manual");
    EXPECT_EQ(manual.Ranges.size(), 2U);
    DrawVolumes(picture, {manual}, VolumeCost::Total);
    for (const HotSpot& spot : picture.HotSpots()) {
        if (spot.Ends) {
            EXPECT_TRUE(std::get<LineFigure>(picture.Figures()[spot.Figure]).Dashed);
        }
    }
    EXPECT_TRUE(Has(WordsOf(picture),
                    "1,000 to 4,000 units, only manual, 1 shift: $10,000 to $20,000 a year; "
                    "Bench 1-4"));
}

SensitivityRow Row(const std::string& name, std::optional<float> low, std::optional<float> high) {
    SensitivityRow row;
    row.Name = name;
    row.Value = 20;
    row.Low = 18;
    row.High = 22;
    row.CostLow = low;
    row.CostHigh = high;
    for (const auto& cost : {low, high}) {
        row.Swing = std::max(row.Swing, cost ? std::abs(static_cast<double>(*cost) - 1000) : 0);
    }
    return row;
}

TEST(Tornado, ShowsTheTwelveStrongestFiguresAndWhatTheyDo) {
    std::vector<SensitivityRow> rows;
    for (int i = 1; i <= 14; ++i) {
        rows.push_back(Row("Figure " + std::to_string(i), 1000.0F - static_cast<float>(i),
                           1000.0F + static_cast<float>(2 * i)));
    }
    rows[13].Changes = true;
    rows[13].BreakEven = 20.5;
    Picture picture(9000, 9000);
    DrawTornado(picture, rows, 1000);
    const Texts texts = TextsOf(picture);
    EXPECT_TRUE(Has(texts, "Figure 14 *"));
    EXPECT_TRUE(Has(texts, "Figure 3"));
    EXPECT_FALSE(Has(texts, "Figure 2"));
    EXPECT_TRUE(Has(WordsOf(picture),
                    "Figure 14, today 20; 18: $986 (-$14); 22: $1,028 (+$28); "
                    "the line changes; nearest change of the line at 20.5"));
    const auto bars = FiguresOf<BoxFigure>(picture);
    ASSERT_EQ(bars.size(), 24U);
    EXPECT_NEAR(bars[1].Width, 2 * bars[0].Width, 1e-6);      // the higher figure costs twice that
    EXPECT_NEAR(bars[0].X + bars[0].Width, bars[1].X, 1e-6);  // from today's cost to both sides
    EXPECT_GT(bars[0].Width, bars[22].Width);
}

TEST(Tornado, SaysWhereThereIsNoLine) {
    Picture picture(9000, 6000);
    DrawTornado(picture, {Row("Days", std::nullopt, 990.0F)}, 1000);
    EXPECT_TRUE(Has(WordsOf(picture), "Days, today 20; 18: no line; 22: $990 (-$10)"));
}

TEST(CostBars, StackCapitalMachineLabourAndPenalty) {
    Picture picture(9000, 6000);
    DrawCostBars(picture, {{"Today", {0, 100, 50, 200, 350}, 0, "Bench 1-4"},
                           {"Busy", {0, 200, 50, 250, 500}, 100, ""}});
    EXPECT_TRUE(Has(WordsOf(picture), "Today: Capital $100 of $350 a year; Bench 1-4"));
    EXPECT_TRUE(Has(WordsOf(picture), "Busy: Penalty $100 of $600 a year"));
    const auto boxes = FiguresOf<BoxFigure>(picture);
    ASSERT_EQ(boxes.size(), 7U);  // no penalty today
    EXPECT_NEAR(boxes[2].Height, 4 * boxes[1].Height, 1e-6);
    EXPECT_NEAR(boxes[1].Y + boxes[1].Height, boxes[0].Y, 1e-6);
    EXPECT_TRUE(Has(TextsOf(picture), "$600"));
}

TEST(CostBars, ShortenAllSumsWhereNotAllHaveRoom) {
    std::vector<CostBar> bars(10, {"1", {0, 100000, 50000, 40442, 190442}, 0, ""});
    Picture narrow(5000, 6000);
    DrawCostBars(narrow, bars);
    const Texts texts = TextsOf(narrow);
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "$190K"), 10);
    EXPECT_FALSE(Has(texts, "$190,442"));
    Picture wide(15000, 6000);
    DrawCostBars(wide, bars);
    const Texts full = TextsOf(wide);
    EXPECT_EQ(std::count(full.begin(), full.end(), "$190,442"), 10);
}

TEST(CostBars, CoverNoLabel) {
    Picture picture(5000, 6000);
    DrawCostBars(picture, {{"Low", {0, 100000, 0, 0, 100000}, 0, ""},
                           {"High", {0, 400000, 0, 0, 400000}, 0, ""}});
    std::size_t last_box = 0;
    std::size_t label = 0;
    for (std::size_t place = 0; place < picture.Figures().size(); ++place) {
        const PictureFigure& figure = picture.Figures()[place];
        if (std::holds_alternative<BoxFigure>(figure)) {
            last_box = place;
        }
        const auto* text = std::get_if<TextFigure>(&figure);
        if (text != nullptr && text->Text == "$100,000" && text->X > 1000) {
            label = place;
        }
    }
    EXPECT_GT(label, last_box);
}

TEST(CostBars, AreCalledAfterWhatTheyAreOf) {
    Picture picture(9000, 6000);
    DrawCostBars(picture, {{"1", {0, 100, 50, 200, 350}, 0, ""}}, {"Cost of the lines", "Rank"});
    EXPECT_TRUE(Has(TextsOf(picture), "Cost of the lines"));
    EXPECT_TRUE(Has(TextsOf(picture), "Rank"));
}

TEST(StationLoad, PutsNoLabelOnTheLineOfTheAvailableTime) {
    const LineModel model = BenchAndRobot();
    LineTable table = TableOfBenchAndRobot(model);
    for (const double available : {70.5, 72.0, 75.0, 90.0, 60.0}) {
        table.Basis.AvailableCycleTime = available;
        Picture picture(9000, 6000);
        DrawStationLoad(picture, model, table);
        const auto lines = FiguresOf<LineFigure>(picture);
        const auto limit = std::find_if(lines.begin(), lines.end(), [](const LineFigure& line) {
            return line.Dashed && line.X2 - line.X1 > 1000;
        });
        ASSERT_NE(limit, lines.end());
        const auto texts = FiguresOf<TextFigure>(picture);
        const auto label = std::find_if(texts.begin(), texts.end(), [](const TextFigure& text) {
            return text.Text == "70.0 s";
        });
        ASSERT_NE(label, texts.end()) << available;
        EXPECT_TRUE(label->Y >= limit->Y1 || label->Y + LineHeight(label->Face) <= limit->Y1 + 1)
            << available;
    }
}

TEST(StationLoad, LeavesTheUnitOutWhereLabelsHaveNoRoomForIt) {
    const LineModel model = BenchAndRobot();
    LineTable table = TableOfBenchAndRobot(model);
    table.Rows.resize(5, table.Rows[0]);
    Picture narrow(3300, 6000);
    DrawStationLoad(narrow, model, table);
    EXPECT_TRUE(Has(TextsOf(narrow), "70.0"));
    EXPECT_FALSE(Has(TextsOf(narrow), "70.0 s"));
}

TEST(CostBars, HaveALegendOfWhatTheyShow) {
    Picture fixed(9000, 6000);
    DrawCostBars(fixed, {{"1", {0, 100, 50, 200, 350}, 0, ""}});
    EXPECT_TRUE(Has(TextsOf(fixed), "Labour"));
    EXPECT_FALSE(Has(TextsOf(fixed), "Penalty"));
    Picture expected(9000, 6000);
    DrawCostBars(expected, {{"1", {0, 100, 50, 200, 350}, 0, ""}, {"2", {0, 0, 0, 1, 1}, 7, ""}});
    EXPECT_TRUE(Has(TextsOf(expected), "Penalty"));
}

bool Crosses(const LineFigure& line, const Extent& place) {
    constexpr int points = 200;
    for (int i = 0; i <= points; ++i) {
        const double x = line.X1 + (line.X2 - line.X1) * i / points;
        const double y = line.Y1 + (line.Y2 - line.Y1) * i / points;
        if (x > place.Left && x < place.Right && y > place.Top && y < place.Bottom) {
            return true;
        }
    }
    return false;
}

/// How many texts that start like that lie on a curve.
std::size_t OnCurves(const Picture& picture, const std::string& start) {
    std::size_t count = 0;
    for (const auto& text : FiguresOf<TextFigure>(picture)) {
        const Extent place = ExtentOf(text, *picture.LaidOutFor().Measure);
        for (const HotSpot& spot : picture.HotSpots()) {
            if (spot.Ends && text.Text.starts_with(start)) {
                const auto& line = std::get<LineFigure>(picture.Figures()[spot.Figure]);
                count += Crosses(line, place) ? 1U : 0U;
            }
        }
    }
    return count;
}

TEST(VolumeChart, PutsNoNameOfADemandOnACurve) {
    for (const double height : {3000.0, 4000.0, 6000.0, 9000.0}) {
        for (const double volume : {1500.0, 2500.0, 4500.0, 6500.0, 7900.0}) {
            Picture picture(9000, height);
            DrawVolumes(picture, CurvesOf(BenchAndRobot(), Ranges()), VolumeCost::Total, {volume});
            EXPECT_EQ(OnCurves(picture, "Demand"), 0U) << height << ", " << volume;
        }
    }
}

TEST(VolumeChart, MarksTheVolumesThatAreAskedFor) {
    Picture picture(9000, 6000);
    DrawVolumes(picture, CurvesOf(BenchAndRobot(), Ranges()), VolumeCost::Total, {500, 4500, 9000});
    EXPECT_TRUE(Has(TextsOf(picture), "Demand 4,500"));
    const Texts words = WordsOf(picture);
    EXPECT_EQ(std::count_if(words.begin(), words.end(),
                            [](const std::string& each) { return each.starts_with("Demand "); }),
              2);  // the line and its name
    std::optional<LineFigure> mark;
    for (const HotSpot& spot : picture.HotSpots()) {
        if (spot.Text == "Demand 4,500" && !mark) {
            mark = std::get<LineFigure>(picture.Figures()[spot.Figure]);
        }
    }
    ASSERT_TRUE(mark);
    EXPECT_EQ(mark->X1, mark->X2);
    // 4,500 is half-way between 1,000 and 8,000.
    const HotSpot& two_shifts = picture.HotSpots().back();
    const auto curve = std::get<LineFigure>(picture.Figures()[two_shifts.Figure]);
    EXPECT_NEAR(mark->X1, (curve.X1 + curve.X2) / 2, 1e-6);
}

TEST(Tornado, HasItsScaleOnTopOfTheRows) {
    std::vector<SensitivityRow> rows;
    for (int i = 1; i <= 12; ++i) {
        rows.push_back(Row("Figure " + std::to_string(i), 900.0F, 1100.0F));
    }
    Picture picture(9000, 2400);  // lower than the rows
    DrawTornado(picture, rows, 1000);
    const auto texts = FiguresOf<TextFigure>(picture);
    const auto place = [&](const std::string& text) {
        return std::find_if(texts.begin(), texts.end(),
                            [&](const TextFigure& each) { return each.Text == text; });
    };
    ASSERT_NE(place("$1,000"), texts.end());
    EXPECT_LT(place("$1,000")->Y, place("Figure 1")->Y);
    EXPECT_LT(place("$1,000")->Y, 2400);
    EXPECT_GT(place("Figure 12")->Y, 2400);
}

TEST(BreakEvens, ShowTheNearestOnesFirstInPercentOfToday) {
    std::vector<SensitivityRow> rows = {Row("None", 900.0F, 1100.0F), Row("Far", 900.0F, 1100.0F),
                                        Row("Near", 900.0F, 1100.0F), Row("Zero", 900.0F, 1100.0F)};
    rows[1].BreakEven = 30;  // of 20
    rows[2].BreakEven = 19;
    rows[3].Value = 0;
    rows[3].BreakEven = 1;
    rows.push_back(Row("Too far", 900.0F, 1100.0F));
    rows.back().BreakEven = 41;
    Picture picture(9000, 6000);
    DrawBreakEvens(picture, rows);
    EXPECT_TRUE(Has(WordsOf(picture), "Far, today 20: the line changes at 30 (+50.0 %)"));
    EXPECT_TRUE(Has(WordsOf(picture), "Near, today 20: the line changes at 19 (-5.0 %)"));
    const auto bars = FiguresOf<BoxFigure>(picture);
    ASSERT_EQ(bars.size(), 2U);
    EXPECT_LT(bars[0].Y, bars[1].Y);
    EXPECT_NEAR(bars[1].Width, 10 * bars[0].Width, 1e-6);
    EXPECT_NEAR(bars[0].X + bars[0].Width, bars[1].X, 1e-6);  // today's value between them
    for (int i = 0; i < 20; ++i) {
        rows.push_back(rows[1]);
    }
    DrawBreakEvens(picture, rows);
    EXPECT_EQ(FiguresOf<BoxFigure>(picture).size(), 12U);
}

TEST(BreakEvens, OfOneFigureIsABarAndNoSlab) {
    std::vector<SensitivityRow> rows = {Row("Penalty", 900.0F, 1100.0F)};
    rows[0].BreakEven = 19;
    Picture picture(9000, 9000);
    DrawBreakEvens(picture, rows);
    const auto bars = FiguresOf<BoxFigure>(picture);
    ASSERT_EQ(bars.size(), 1U);
    EXPECT_LE(bars[0].Height, 3 * LineHeight(picture.PageFont()));
    EXPECT_LT(bars[0].Y + bars[0].Height, picture.Height() / 2);
}

TEST(CapacityChart, RingsTheLocalMinimaOnTheCurve) {
    CostCurve curve;
    curve.Append({1000, 2000, 500000, 90000, {}});
    curve.Append({2000.0001F, 4000, 100000, 120000, {}});
    curve.Append({4000.0002F, 5000, 110000, 130000, {}});
    Picture picture(9000, 6000);
    DrawCapacities(picture, curve, {{2000, 90000, "1: Bench 1-4"}, {4000, 110000, "2: Robot 1-4"}});
    const Texts words = WordsOf(picture);
    EXPECT_TRUE(Has(words, "1: Bench 1-4"));
    EXPECT_TRUE(Has(words, "2: Robot 1-4"));
    EXPECT_TRUE(Has(words, "Capacity 2,000 to 3,500: $100,000 to $115,000 expected a year"));
    EXPECT_TRUE(Has(TextsOf(picture), "1: $90,000"));
    EXPECT_TRUE(Has(TextsOf(picture), "2"));
    const auto rings = FiguresOf<CircleFigure>(picture);
    ASSERT_EQ(rings.size(), 2U);
    EXPECT_LT(rings[0].X, rings[1].X);
    EXPECT_GT(rings[0].Y, rings[1].Y);
    // The penalties of the lowest capacities are cut off.
    for (const LineFigure& line : FiguresOf<LineFigure>(picture)) {
        EXPECT_GE(std::min(line.Y1, line.Y2), 0);
    }
    for (const HotSpot& spot : picture.HotSpots()) {
        if (spot.Ends) {
            EXPECT_LE(std::max(spot.Ends->YStart, spot.Ends->YEnd), 115000);
            EXPECT_GE(spot.Ends->XEnd, spot.Ends->XStart);
        }
    }
}

TEST(StudyCharts, AreEmptyWithoutValues) {
    Picture picture(9000, 6000);
    for (const auto& draw : std::vector<std::function<void()>>{
             [&] { DrawCostBars(picture, {}); }, [&] { DrawTornado(picture, {}, 1); },
             [&] { DrawVolumes(picture, {}, VolumeCost::Total); },
             [&] { DrawBreakEvens(picture, {}); }, [&] { DrawCapacities(picture, {}, {}); },
             [&] { DrawStationLoad(picture, LineModel(), LineTable()); }}) {
        picture.Line(0, 0, 1, 1, {});
        draw();
        EXPECT_TRUE(picture.Figures().empty());
    }
}

}  // namespace
}  // namespace quarnel02
