#include "picture/Picture.h"

#include <gtest/gtest.h>

#include <numbers>
#include <string>
#include <vector>

#include "basic/LinePrinter.h"
#include "support/FigureText.h"

namespace quarnel02 {
namespace {

using test::FiguresOf;
using test::FigureTexts;
using Texts = std::vector<std::string>;

constexpr double kPi = std::numbers::pi;

void ExpectExtent(const Extent& extent, double left, double top, double right, double bottom) {
    EXPECT_DOUBLE_EQ(extent.Left, left);
    EXPECT_DOUBLE_EQ(extent.Top, top);
    EXPECT_DOUBLE_EQ(extent.Right, right);
    EXPECT_DOUBLE_EQ(extent.Bottom, bottom);
}

TEST(Picture, StartsEmptyAndThin) {
    const Picture picture(15000, 3600);
    EXPECT_EQ(picture.Width(), 15000);
    EXPECT_EQ(picture.Height(), 3600);
    EXPECT_TRUE(picture.Figures().empty());
    EXPECT_EQ(picture.DrawWidth, 1);
    EXPECT_EQ(picture.Fill, FillStyle::Transparent);
    EXPECT_EQ(picture.CurrentX, 0);
    EXPECT_EQ(picture.CurrentY, 0);
}

TEST(Picture, KeepsFiguresInDrawingOrderWithTheStateOfTheirTime) {
    Picture picture(1000, 1000);
    picture.Line(1, 2, 3, 4, {125, 125, 125});
    picture.DrawWidth = 4;
    picture.Fill = FillStyle::Solid;
    picture.Circle(500, 600, 50, {});
    picture.Fill = FillStyle::Transparent;
    picture.DrawWidth = 2;
    picture.Circle(100, 200, 80, {0, 0, 127}, 0, 1.5, 0.25);
    picture.Print("x", {1, 2, 3});
    picture.Icon(ResourceType::Automated, 10, 20, 30);
    EXPECT_EQ(FigureTexts(picture),
              (Texts{"line (1, 2) to (3, 4) width 1 rgb 125,125,125",
                     "circle (500, 600) radius 50 from 0 to 6.28318530717959 aspect 1 width 4 "
                     "rgb 0,0,0 filled",
                     "circle (100, 200) radius 80 from 0 to 1.5 aspect 0.25 width 2 rgb 0,0,127",
                     "text (100, 200) [x]", "icon 3 (10, 20) size 30"}));
    EXPECT_EQ(FiguresOf<TextFigure>(picture).at(0).Pen, (Colour{1, 2, 3}));
}

TEST(Picture, CircleLeavesTheTextPositionAtItsCentre) {
    Picture picture(1000, 1000);
    picture.Circle(500, 600, 50, {});
    EXPECT_EQ(picture.CurrentX, 500);
    EXPECT_EQ(picture.CurrentY, 600);
    picture.Circle(70, 80, 50, {}, 0, kPi, 0.25);
    EXPECT_EQ(picture.CurrentX, 70);
    EXPECT_EQ(picture.CurrentY, 80);
    picture.Line(1, 2, 3, 4, {});
    picture.Icon(ResourceType::Fixed, 1, 2, 3);
    EXPECT_EQ(picture.CurrentX, 70);
    EXPECT_EQ(picture.CurrentY, 80);
}

TEST(Picture, PrintMovesToTheEndOfTheText) {
    Picture picture(1000, 1000);
    picture.TextFont = {FontFamily::FixedPitch, 10};
    picture.CurrentX = 30;
    picture.CurrentY = 40;
    picture.Print("Qty");
    // 10 points are 200 twips, a character 0.6 of that: 30 + 3 x 120.
    EXPECT_DOUBLE_EQ(picture.CurrentX, 390);
    EXPECT_EQ(picture.CurrentY, 40);
    picture.Print(": 2");
    EXPECT_EQ(FigureTexts(picture), (Texts{"text (30, 40) [Qty]", "text (390, 40) [: 2]"}));
    EXPECT_EQ(FiguresOf<TextFigure>(picture).at(0).Face, (Font{FontFamily::FixedPitch, 10}));
}

TEST(Picture, PrintsABlankForAControlCharacter) {
    Picture picture(1000, 1000);
    picture.Print("a\nb\tc");
    EXPECT_EQ(FigureTexts(picture), Texts{"text (0, 0) [a b c]"});
}

TEST(Picture, PrintsNumbersWithBlanksAroundThem) {
    Picture picture(1000, 1000);
    picture.PrintNumber(12);
    picture.CurrentX = 0;
    picture.PrintNumber(-1.5);
    EXPECT_EQ(FigureTexts(picture), (Texts{"text (0, 0) [ 12 ]", "text (0, 0) [-1.5 ]"}));
}

TEST(Picture, ClearRemovesFiguresAndKeepsThePen) {
    Picture picture(1000, 1000);
    picture.DrawWidth = 3;
    picture.Fill = FillStyle::Solid;
    picture.TextFont = {FontFamily::FixedPitch, 12};
    picture.Circle(500, 600, 50, {});
    picture.Clear();
    EXPECT_TRUE(picture.Figures().empty());
    EXPECT_EQ(picture.CurrentX, 0);
    EXPECT_EQ(picture.CurrentY, 0);
    EXPECT_EQ(picture.DrawWidth, 3);
    EXPECT_EQ(picture.Fill, FillStyle::Solid);
    EXPECT_EQ(picture.TextFont, (Font{FontFamily::FixedPitch, 12}));
    ExpectExtent(picture.Bounds(), 0, 0, 1000, 1000);
}

TEST(Bounds, IsThePaperWhenEverythingIsOnIt) {
    Picture picture(1000, 800);
    picture.Line(0, 0, 1000, 800, {});
    picture.Circle(500, 400, 100, {});
    picture.Icon(ResourceType::Manual, 0, 0, 800);
    ExpectExtent(picture.Bounds(), 0, 0, 1000, 800);
}

TEST(Bounds, GrowsWithLinesDrawnEitherWay) {
    Picture picture(1000, 800);
    picture.Line(1200, 900, -10, -20, {});
    ExpectExtent(picture.Bounds(), -10, -20, 1200, 900);
}

TEST(Bounds, GrowsWithCirclesAndTheirPen) {
    Picture picture(1000, 800);
    picture.DrawWidth = 4;
    picture.Circle(500, 400, 600, {});
    // Half a pen of 4 pixels is 30 twips.
    ExpectExtent(picture.Bounds(), -130, -230, 1130, 1030);
}

TEST(Bounds, CountsOnlyTheHalfOfAnEllipseThatIsDrawn) {
    Picture upper(1000, 200);
    upper.DrawWidth = 2;
    upper.Circle(500, 100, 1000, {}, 0, kPi, 0.25);
    // Half a pen is 15 twips, the ellipse 250 high above its centre.
    ExpectExtent(upper.Bounds(), -515, -165, 1515, 200);
    Picture lower(1000, 200);
    lower.DrawWidth = 2;
    lower.Circle(500, 100, 1000, {}, kPi, 2 * kPi, 0.25);
    ExpectExtent(lower.Bounds(), -515, 0, 1515, 365);
}

TEST(Bounds, GrowsWithTextsAndIcons) {
    Picture picture(100, 100);
    picture.TextFont = {FontFamily::FixedPitch, 10};
    picture.CurrentX = 50;
    picture.CurrentY = 60;
    picture.Print("abc");
    // Three characters of 120 twips, a line of 200 x 1.25.
    ExpectExtent(picture.Bounds(), 0, 0, 410, 310);
    picture.Icon(ResourceType::Manual, -100, 300, 600);
    ExpectExtent(picture.Bounds(), -100, 0, 500, 900);
}

TEST(TextWidth, CountsCharactersAndNotBytes) {
    const Font fixed{FontFamily::FixedPitch, 8};
    EXPECT_DOUBLE_EQ(TextWidth("Größe", fixed), TextWidth("abcde", fixed));
    EXPECT_DOUBLE_EQ(TextWidth("abcde", fixed), 5 * CharacterWidth(fixed));
    EXPECT_EQ(TextWidth("", fixed), 0);
    EXPECT_LT(TextWidth("abcde", {FontFamily::Proportional, 8}), TextWidth("abcde", fixed));
    EXPECT_GT(LineHeight({FontFamily::FixedPitch, 16}), LineHeight(fixed));
}

class PictureLinesTest : public testing::Test {
  protected:
    PictureLinesTest() { Paper.TextFont.Points = 10; }

    Picture Paper{7200, 4200};
};

TEST_F(PictureLinesTest, PutsTextsAtTheirColumns) {
    PictureLines lines(Paper);
    LinePrinter printer(lines);
    printer.Print("ab", Tab{6}, "c", Tab{3}, "d");
    printer.Print("e");
    // A margin of 60 twips, columns of 120 and lines of 250.
    EXPECT_EQ(FigureTexts(Paper), (Texts{"text (60, 60) [ab]", "text (660, 60) [c]",
                                         "text (300, 310) [d]", "text (60, 560) [e]"}));
}

TEST_F(PictureLinesTest, WritesInFixedPitchAndDrawsNoBlanks) {
    PictureLines lines(Paper);
    LinePrinter printer(lines);
    printer.Print(" ");
    printer.Print("");
    printer.Print(5, Tab{6}, -2);
    EXPECT_EQ(FigureTexts(Paper), (Texts{"text (60, 560) [ 5 ]", "text (660, 560) [-2 ]"}));
    for (const TextFigure& text : FiguresOf<TextFigure>(Paper)) {
        EXPECT_EQ(text.Face, (Font{FontFamily::FixedPitch, 10}));
    }
}

TEST_F(PictureLinesTest, BeginsAtTheTextPosition) {
    Paper.CurrentX = 1000;
    Paper.CurrentY = 2000;
    PictureLines lines(Paper);
    LinePrinter printer(lines);
    printer.Print("a");
    EXPECT_EQ(FigureTexts(Paper), Texts{"text (1060, 2060) [a]"});
    EXPECT_EQ(Paper.CurrentX, 1060);
    EXPECT_EQ(Paper.CurrentY, 2310);
}

TEST_F(PictureLinesTest, ContinuesAnOpenLine) {
    PictureLines lines(Paper);
    LinePrinter printer(lines);
    printer.PrintOpen("Größe", Tab{10});
    printer.Print("x");
    EXPECT_EQ(FigureTexts(Paper), (Texts{"text (60, 60) [Größe]", "text (1140, 60) [x]"}));
}

}  // namespace
}  // namespace quarnel02
