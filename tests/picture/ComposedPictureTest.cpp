// Pictures that are drawn by a recipe, the words behind figures, and measures of texts.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

#include "picture/Picture.h"
#include "picture/SvgWriter.h"
#include "support/FigureText.h"

namespace quarnel02 {
namespace {

using test::FiguresOf;
using test::FigureTexts;
using Texts = std::vector<std::string>;

constexpr double kPi = std::numbers::pi;

/// A line across the paper.
void DrawAcross(Picture& picture) {
    picture.Line(0, 0, picture.Width(), picture.Height(), {});
}

TEST(ComposedPicture, FollowsThePage) {
    Picture picture(1000, 500);
    picture.Compose(DrawAcross);
    EXPECT_EQ(FigureTexts(picture), Texts{"line (0, 0) to (1000, 500) width 1 rgb 0,0,0"});
    picture.LayOut({.Width = 300, .Height = 200});
    EXPECT_EQ(FigureTexts(picture), Texts{"line (0, 0) to (300, 200) width 1 rgb 0,0,0"});
    EXPECT_TRUE(picture.IsComposed());
}

TEST(ComposedPicture, TellsOfAWholeCompositionOnce) {
    Picture picture(1000, 500);
    picture.Line(0, 0, 1, 1, {});
    std::vector<std::size_t> changes;
    picture.OnChange = [&] { changes.push_back(picture.Figures().size()); };
    picture.Compose([](Picture& each) {
        DrawAcross(each);
        DrawAcross(each);
    });
    EXPECT_EQ(changes, (std::vector<std::size_t>{0, 2}));
    picture.LayOut({.Width = 300, .Height = 200});
    EXPECT_EQ(changes.size(), 3U);
    picture.LayOut({.Width = 300, .Height = 200});  // the same page
    EXPECT_EQ(changes.size(), 3U);
}

TEST(ComposedPicture, LosesItsRecipeWhenItIsCleared) {
    Picture picture(1000, 500);
    picture.Compose(DrawAcross);
    picture.Clear();
    picture.LayOut({.Width = 300, .Height = 200});
    EXPECT_TRUE(picture.Figures().empty());
    EXPECT_FALSE(picture.IsComposed());
}

TEST(ComposedPicture, LeavesOtherFiguresAsTheyAre) {
    Picture picture(1000, 500);
    picture.Line(0, 0, 7, 8, {});
    picture.LayOut({.Width = 300, .Height = 200});
    EXPECT_EQ(FigureTexts(picture), Texts{"line (0, 0) to (7, 8) width 1 rgb 0,0,0"});
    EXPECT_EQ(picture.Width(), 300);
}

TEST(ComposedPicture, StartsFromTheSamePenEveryTime) {
    Picture picture(1000, 500);
    picture.Compose([](Picture& each) {
        each.Circle(10, 10, 5, {});
        each.DrawWidth = 7;
        each.Fill = FillStyle::Solid;
    });
    const auto first = picture.Figures();
    picture.LayOut({.Width = 300, .Height = 200});
    EXPECT_EQ(picture.Figures(), first);
}

TEST(ComposedPicture, MayNeedMorePaperThanThePage) {
    Picture picture(1000, 500);
    picture.Compose([](Picture& each) { each.SetPaper(each.LaidOutFor().Width, 900); });
    EXPECT_EQ(picture.Height(), 900);
    picture.Clear();
    EXPECT_EQ(picture.Height(), 500);
}

TEST(PageFont, IsNeverBelowEightPoints) {
    Picture picture(Page{.Width = 100, .Height = 100, .Points = 9});
    EXPECT_EQ(picture.PageFont().Points, 9);
    EXPECT_EQ(picture.PageFont(-5).Points, 8);
    EXPECT_EQ(picture.PageFont(2, true), (Font{FontFamily::Proportional, 11, true}));
}

TEST(HotSpots, AreFoundNearTheirFigures) {
    Picture picture(1000, 1000);
    picture.Line(100, 100, 500, 100, {});
    picture.Describe("line");
    picture.Circle(500, 500, 200, {}, 0, kPi, 0.5);
    picture.Describe("arc");
    picture.Icon(ResourceType::Manual, 800, 800, 100);
    picture.Describe("icon");
    const auto words = [&](double x, double y) {
        const HotSpot* spot = picture.HotSpotAt(x, y, 30);
        return spot == nullptr ? std::string() : WordsOf(*spot);
    };
    EXPECT_EQ(words(300, 125), "line");
    EXPECT_EQ(words(300, 135), "");
    EXPECT_EQ(words(525, 110), "line");
    EXPECT_EQ(words(500, 400), "arc");  // the top of the arc
    EXPECT_EQ(words(500, 600), "");     // the half that is not drawn
    EXPECT_EQ(words(500, 500), "");     // inside
    EXPECT_EQ(words(300, 500), "arc");
    EXPECT_EQ(words(850, 850), "icon");
    EXPECT_EQ(words(915, 850), "icon");
}

TEST(HotSpots, OfTwoTheNearerAndOfEqualOnesTheTopmostCounts) {
    Picture picture(1000, 1000);
    for (const double y : {100.0, 120.0, 120.0}) {
        picture.Line(0, y, 500, y, {});
        picture.Describe(std::to_string(picture.Figures().size()));
    }
    EXPECT_EQ(WordsOf(*picture.HotSpotAt(200, 104, 50)), "1");
    EXPECT_EQ(WordsOf(*picture.HotSpotAt(200, 114, 50)), "3");
}

TEST(HotSpots, ReadTheValuesUnderThePointer) {
    Picture picture(1000, 1000);
    picture.Line(100, 500, 300, 100, {});
    picture.Describe("{x} units: {y}", Reading{1000, 3000, 20000, 60000});
    const HotSpot& spot = picture.HotSpots()[0];
    EXPECT_EQ(WordsAt(spot, picture.Figures()[0], 200, 300), "2,000 units: $40,000");
    EXPECT_EQ(WordsAt(spot, picture.Figures()[0], 0, 900), "1,000 units: $20,000");
    EXPECT_EQ(WordsOf(spot), "1,000 to 3,000 units: $20,000 to $60,000");
    const HotSpot cents{0, "{y}", Reading{0, 0, 3.174, 3.174}};
    EXPECT_EQ(WordsOf(cents), "$3.17");
}

TEST(HotSpots, AreTitlesInAFile) {
    Picture picture(1000, 1000);
    picture.Line(1, 2, 3, 4, {});
    picture.Describe("a <b>");
    EXPECT_NE(ToSvg(picture).find("stroke-width=\"15\"><title>a &lt;b&gt;</title></line>"),
              std::string::npos)
        << ToSvg(picture);
}

TEST(ToSvgOfNewFigures, WritesBoxesDashesFadesBoldAndTurnedTexts) {
    Picture picture(1000, 1000);
    picture.Add(BoxFigure{10, 20, 300, 400, 5, {1, 2, 3}, 1, {4, 5, 6}});
    picture.Add(LineFigure{1, 2, 3, 4, 1, {}, true});
    picture.Add(CircleFigure{50, 60, 10, 0, 2 * kPi, 1, 1, {}, false, 0.25});
    picture.Add(TextFigure{100, 200, "Down", {FontFamily::Proportional, 10, true}, {}, true});
    const std::string svg = ToSvg(picture);
    EXPECT_NE(svg.find("<rect x=\"10\" y=\"20\" width=\"300\" height=\"400\" fill=\"rgb(1,2,3)\" "
                       "rx=\"5\" stroke=\"rgb(4,5,6)\" stroke-width=\"15\"/>"),
              std::string::npos)
        << svg;
    EXPECT_NE(svg.find("stroke-dasharray=\"90 60\"/>"), std::string::npos) << svg;
    EXPECT_NE(svg.find("opacity=\"0.25\"/>"), std::string::npos) << svg;
    // A line of 250 with its base line at 190, seen from the left of what the text covers.
    EXPECT_NE(svg.find("x=\"160\" y=\"200\" font-size=\"200\" class=\"label\" fill=\"rgb(0,0,0)\" "
                       "font-weight=\"bold\" transform=\"rotate(90 160 200)\">Down</text>"),
              std::string::npos)
        << svg;
}

TEST(FileMeasure, KnowsTheWidthsOfTheLetters) {
    const Font font{FontFamily::Proportional, 10};
    // 200 twips to the em of 2048 units: "i" 455, "M" 1706, "ö" 1139, "…" a whole em.
    EXPECT_DOUBLE_EQ(TextWidth("i", font), 455 * 200.0 / 2048);
    EXPECT_DOUBLE_EQ(TextWidth("iM", font), (455 + 1706) * 200.0 / 2048);
    EXPECT_DOUBLE_EQ(TextWidth("ö", font), 1139 * 200.0 / 2048);
    EXPECT_DOUBLE_EQ(TextWidth("…", font), 200);
    EXPECT_DOUBLE_EQ(TextWidth("b", {FontFamily::Proportional, 10, true}), 1251 * 200.0 / 2048);
    EXPECT_DOUBLE_EQ(TextWidth("iM", {FontFamily::FixedPitch, 10}), 240);
}

TEST(Elided, KeepsWhatFitsAndSaysThatItWasCut) {
    const Font font{FontFamily::Proportional, 10};
    const auto elided = [&](const char* text, double width) {
        return Elided(text, width, font, FileMeasure());
    };
    EXPECT_EQ(elided("Bench", TextWidth("Bench", font)), "Bench");
    EXPECT_EQ(elided("Bench", TextWidth("Bench", font) - 1), "Ben…");
    EXPECT_EQ(elided("Größe", TextWidth("Grö…", font)), "Grö…");
    EXPECT_EQ(elided("a bcdef", TextWidth("a …", font)), "a…");
    EXPECT_EQ(elided("Bench", 199), "");
}

TEST(TextOf, IsTheLinesOfALinePrinterAlone) {
    Picture picture(7200, 4200);
    EXPECT_FALSE(TextOf(picture));
    {
        PictureLines lines(picture);
        LinePrinter printer(lines);
        printer.Print("Größe", Column{8}, 12);
        printer.Print();
        printer.Print(Tab{4}, "x");
    }
    EXPECT_EQ(TextOf(picture), "Größe   12 \n\n   x\n");
    picture.Line(0, 0, 1, 1, {});
    EXPECT_FALSE(TextOf(picture));
}

}  // namespace
}  // namespace quarnel02
