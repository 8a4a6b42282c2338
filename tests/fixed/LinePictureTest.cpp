#include "fixed/LinePicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "basic/Numbers.h"
#include "picture/LabelPlaces.h"
#include "support/FigureText.h"

namespace quarnel02 {
namespace {

using test::FiguresOf;

constexpr double kTolerance = 1e-6;

std::vector<StationFigure> Line(int count, int quantity = 1, const std::string& name = "Bench") {
    std::vector<StationFigure> stations;
    for (int i = 0; i < count; ++i) {
        stations.push_back({i % 4, quantity, name, 2 * i + 1, 2 * i + 2, 1000.4});
    }
    return stations;
}

Picture Drawn(const std::vector<StationFigure>& stations, Page page = {7200, 4200}) {
    Picture picture(page);
    DrawLine(picture, stations);
    return picture;
}

std::vector<std::string> TextsOf(const Picture& picture) {
    std::vector<std::string> texts;
    for (const auto& text : FiguresOf<TextFigure>(picture)) {
        texts.push_back(text.Text);
    }
    return texts;
}

int Count(const Picture& picture, const std::string& text) {
    const auto texts = TextsOf(picture);
    return static_cast<int>(std::count(texts.begin(), texts.end(), text));
}

bool IsInside(const Extent& inner, const Extent& outer) {
    return inner.Left >= outer.Left - kTolerance && inner.Top >= outer.Top - kTolerance &&
           inner.Right <= outer.Right + kTolerance && inner.Bottom <= outer.Bottom + kTolerance;
}

std::vector<Extent> Cards(const Picture& picture) {
    std::vector<Extent> cards;
    for (const auto& box : FiguresOf<BoxFigure>(picture)) {
        cards.push_back(ExtentOf(box, FileMeasure()));
    }
    return cards;
}

/// Texts and icons on their cards and apart from one another, cards apart and on the paper.
void ExpectTidy(const Picture& picture) {
    const auto cards = Cards(picture);
    const Extent paper{0, 0, picture.Width(), picture.Height()};
    std::vector<Extent> contents;
    for (const PictureFigure& figure : picture.Figures()) {
        if (std::holds_alternative<TextFigure>(figure) ||
            std::holds_alternative<IconFigure>(figure)) {
            contents.push_back(ExtentOf(figure, FileMeasure()));
        }
    }
    for (std::size_t i = 0; i < contents.size(); ++i) {
        EXPECT_TRUE(IsInside(contents[i], paper));
        for (std::size_t j = i + 1; j < contents.size(); ++j) {
            EXPECT_FALSE(Overlap(contents[i], contents[j])) << i << " and " << j;
        }
        for (const Extent& card : cards) {
            EXPECT_TRUE(!Overlap(contents[i], card) || IsInside(contents[i], card)) << i;
        }
    }
    for (std::size_t i = 0; i < cards.size(); ++i) {
        EXPECT_TRUE(IsInside(cards[i], paper));
        for (std::size_t j = i + 1; j < cards.size(); ++j) {
            EXPECT_FALSE(Overlap(cards[i], cards[j])) << i << " and " << j;
        }
    }
}

class LineOf : public testing::TestWithParam<int> {};

TEST_P(LineOf, IsTidyOnPaperOfAnyShape) {
    for (const Page& page : {Page{7200, 4200}, Page{15000, 2500}, Page{3900, 9000},
                             Page{4000, 1800}, Page{30000, 15000, 12}}) {
        for (const int quantity : {1, 99}) {
            SCOPED_TRACE(test::PairText(page.Width, page.Height));
            const Picture picture = Drawn(Line(GetParam(), quantity), page);
            ExpectTidy(picture);
            EXPECT_EQ(FiguresOf<IconFigure>(picture).size(), static_cast<std::size_t>(GetParam()));
            EXPECT_EQ(Count(picture, "Qty: " + NumberText(quantity)), GetParam());
        }
    }
}

TEST_P(LineOf, StandsInLineOrderAndCentred) {
    const Picture picture = Drawn(Line(GetParam()));
    std::map<double, std::vector<Extent>> rows;
    const auto cards = Cards(picture);
    for (std::size_t i = 0; i < cards.size(); ++i) {
        rows[cards[i].Top].push_back(cards[i]);
        EXPECT_TRUE(i == 0 || cards[i].Top > cards[i - 1].Top ||
                    cards[i].Left > cards[i - 1].Right);
    }
    for (const auto& [top, row] : rows) {
        EXPECT_NEAR(row.front().Left + row.back().Right, picture.Width(), 1e-6) << top;
    }
}

TEST_P(LineOf, FlowsFromCardToCard) {
    const Picture picture = Drawn(Line(GetParam()));
    const auto cards = Cards(picture);
    const auto lines = FiguresOf<LineFigure>(picture);
    const auto reaches = [&](const Extent& card, bool leaves) {
        return std::any_of(lines.begin(), lines.end(), [&](const LineFigure& line) {
            const double x = leaves ? line.X1 : line.X2;
            const double y = leaves ? line.Y1 : line.Y2;
            return x > card.Left - 50 && x < card.Right + 50 && y > card.Top - 50 &&
                   y < card.Bottom + 50;
        });
    };
    for (std::size_t i = 0; i < cards.size(); ++i) {
        EXPECT_TRUE(i + 1 == cards.size() || reaches(cards[i], true)) << i;
        EXPECT_TRUE(i == 0 || reaches(cards[i], false)) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Stations, LineOf, testing::Values(1, 2, 3, 5, 7, 8, 11, 14, 24, 31, 50));

TEST(DrawLine, SaysOfAStationNumberResourceQuantityAndTasks) {
    const Picture picture = Drawn({{2, 3, "Robot", 5, 9, 93442.6}, {0, 1, "Bench", 10, 10, 0}});
    EXPECT_EQ(TextsOf(picture),
              (std::vector<std::string>{
                  "Graphical Representation", "------------------------------------", "Station 1",
                  "Robot", "Qty: 3", "Tasks 5-9", "Station 2", "Bench", "Qty: 1", "Task 10"}));
    ASSERT_EQ(picture.HotSpots().size(), 2U);
    EXPECT_EQ(picture.HotSpots()[0].Text, "Station 1: Robot, Qty: 3, tasks 5-9, $93,443 a year");
    EXPECT_EQ(picture.HotSpots()[1].Text, "Station 2: Bench, Qty: 1, task 10");
}

TEST(DrawLine, FillsItsBox) {
    for (const Page& page : {Page{7200, 4200}, Page{15000, 3000}, Page{4500, 9000}}) {
        const auto cards = Cards(Drawn(Line(4), page));
        const double across = cards.back().Right - cards.front().Left;
        const double down = cards.back().Bottom - cards.front().Top;
        EXPECT_TRUE(across > 0.7 * page.Width || down > 0.6 * page.Height)
            << across << " " << down << " of " << test::PairText(page.Width, page.Height);
    }
}

TEST(DrawLine, ShortensALongNameWithAnEllipsis) {
    const Picture picture = Drawn(Line(5, 1, "Vollautomatischer Bestückungsautomat mit Zuführung"));
    ExpectTidy(picture);
    const auto texts = TextsOf(picture);
    EXPECT_EQ(std::count_if(texts.begin(), texts.end(),
                            [](const std::string& text) { return text.ends_with("…"); }),
              5);
}

TEST(DrawLine, GrowsDownwardsForMoreStationsThanThePaperHolds) {
    const Picture picture = Drawn(Line(50), {4400, 1800});
    EXPECT_EQ(picture.Width(), 4400);
    EXPECT_GT(picture.Height(), 1800);
    EXPECT_EQ(Cards(picture).size(), 50U);
    EXPECT_EQ(Count(picture, "50 Bench"), 1);
}

TEST(DrawLine, CallsTasksByThatNameOnFlatCardsToo) {
    const Picture picture = Drawn(Line(50), {4400, 1800});
    const auto cards = Cards(picture);
    std::size_t tasks = 0;
    for (const auto& text : FiguresOf<TextFigure>(picture)) {
        tasks += text.Text.starts_with("Task") ? 1U : 0U;
        EXPECT_FALSE(text.Text.find_first_not_of("0123456789-") == std::string::npos &&
                     text.Text.front() != '-')
            << text.Text;
    }
    EXPECT_EQ(tasks, cards.size());
}

TEST(DrawLine, ShortensTheRuleOnNarrowPaper) {
    const Picture picture = Drawn(Line(1), {3300, 3000});
    EXPECT_EQ(picture.Width(), 3300);
    const std::string rule = TextsOf(picture).at(1);
    EXPECT_EQ(rule.find_first_not_of('-'), std::string::npos);
    EXPECT_LT(rule.size(), 36U);
    EXPECT_GT(rule.size(), 24U);
    ExpectTidy(picture);
}

TEST(DrawLine, DrawsTheHeadingAloneForNoStation) {
    EXPECT_EQ(Drawn({}).Figures().size(), 2U);
}

TEST(DrawLine, LabelsAStationOfUnknownTypeWithoutIcon) {
    const Picture picture = Drawn({{7, 2, "A", 1, 1}, {-1, 3, "B", 2, 2}, {1, 4, "C", 3, 3}});
    EXPECT_EQ(FiguresOf<IconFigure>(picture).size(), 1U);
    for (const char* quantity : {"Qty: 2", "Qty: 3", "Qty: 4"}) {
        EXPECT_EQ(Count(picture, quantity), 1);
    }
}

TEST(DrawLine, ClearsWhatThePictureHeld) {
    Picture picture(7200, 4200);
    DrawLine(picture, Line(3));
    const auto first = picture.Figures();
    picture.CurrentY = 700;
    DrawLine(picture, Line(3));
    EXPECT_EQ(picture.Figures(), first);
}

}  // namespace
}  // namespace quarnel02
