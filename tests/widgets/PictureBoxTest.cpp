// The pixels of pictures: where figures stand, and that paper is white.
#include <gmock/gmock.h>

#include <QScreen>
#include <QScrollArea>
#include <QTest>
#include <numbers>
#include <utility>

#include "widgets/PictureBox.h"

namespace quarnel02 {
namespace {

constexpr Colour kRed{200, 0, 0};
constexpr double kPi = std::numbers::pi;

class PictureBoxPixels : public ::testing::Test {
  protected:
    /// Paper of 200 x 100 pixels at true size.
    PictureBoxPixels() { Box.resize(200, 100); }

    void Show(PictureBox::Sizing sizing = PictureBox::Sizing::TrueSize) {
        Box.SetPicture(Paper);
        Box.SetSizing(sizing);
        Box.show();
    }
    QImage Image() { return Box.grab().toImage(); }
    /// Pixels within the rectangle that are not paper.
    int Inked(const QRect& place) {
        const QImage image = Image();
        int inked = 0;
        for (int y = place.top(); y <= place.bottom(); ++y) {
            for (int x = place.left(); x <= place.right(); ++x) {
                inked += image.pixelColor(x, y) != QColor(Qt::white) ? 1 : 0;
            }
        }
        return inked;
    }

    /// Whether the pixel has the colour, give or take the rounding of a smoothed edge.
    bool HasColour(int x, int y, Colour colour) {
        const QColor pixel = Image().pixelColor(x, y);
        return std::abs(pixel.red() - colour.Red) <= 4 &&
               std::abs(pixel.green() - colour.Green) <= 4 &&
               std::abs(pixel.blue() - colour.Blue) <= 4;
    }

    Picture Paper{3000, 1500};
    PictureBox Box;
};

TEST_F(PictureBoxPixels, PaperIsWhiteInADarkPalette) {
    Box.setPalette(QPalette(QColor(30, 30, 30)));
    Show();
    EXPECT_EQ(Inked(Box.rect()), 0);
}

TEST_F(PictureBoxPixels, TheUpperHalfOfAnArcStandsAboveTheAxis) {
    Show();
    Paper.DrawWidth = 2;
    Paper.Circle(1500, 750, 600, kRed, 0, kPi, 0.5);  // 80 x 40 pixels round (100, 50)
    EXPECT_GT(Inked({0, 0, 200, 49}), 60);
    EXPECT_EQ(Inked({0, 52, 200, 48}), 0);
    EXPECT_TRUE(HasColour(100, 30, kRed));
}

TEST_F(PictureBoxPixels, TheLowerHalfOfAnArcHangsBelowTheAxis) {
    Show();
    Paper.DrawWidth = 2;
    Paper.Circle(1500, 750, 600, kRed, kPi, 2 * kPi, 0.5);
    EXPECT_EQ(Inked({0, 0, 200, 49}), 0);
    EXPECT_TRUE(HasColour(100, 70, kRed));
}

TEST_F(PictureBoxPixels, ATransparentCircleIsEmptyAndASolidOneIsFull) {
    Show();
    Paper.Circle(750, 750, 300, kRed);
    Paper.Fill = FillStyle::Solid;
    Paper.Circle(2250, 750, 300, kRed);
    EXPECT_TRUE(HasColour(50, 50, {255, 255, 255}));
    EXPECT_TRUE(HasColour(150, 50, kRed));
}

TEST_F(PictureBoxPixels, LaterFiguresCoverEarlierOnes) {
    Show();
    Paper.DrawWidth = 10;
    Paper.Line(0, 750, 3000, 750, kRed);
    Paper.Line(0, 750, 3000, 750, {0, 0, 200});
    EXPECT_TRUE(HasColour(100, 50, {0, 0, 200}));
}

TEST_F(PictureBoxPixels, TextStandsBelowAndRightOfItsPosition) {
    Show();
    Paper.CurrentX = 750;
    Paper.CurrentY = 600;
    Paper.TextFont.Points = 12;
    Paper.Print("Hg");
    EXPECT_GT(Inked({50, 40, 60, 24}), 20);
    EXPECT_EQ(Inked({0, 0, 200, 40}), 0);
    EXPECT_EQ(Inked({0, 40, 49, 60}), 0);
}

TEST_F(PictureBoxPixels, FixedPitchTextIsAsWideAsItsColumns) {
    Show();
    Paper.TextFont = {FontFamily::FixedPitch, 10};
    Paper.Print("MMMMMMMMMM");  // 10 columns of 0.6 x 10 points = 80 pixels
    EXPECT_GT(Inked({72, 0, 8, 20}), 0);
    EXPECT_EQ(Inked({81, 0, 119, 20}), 0);
}

TEST_F(PictureBoxPixels, EveryIconIsDrawnInsideItsSquare) {
    Show();
    for (int type = 0; type < 4; ++type) {
        Paper.Clear();
        Paper.Icon(static_cast<ResourceType>(type), 750, 300, 600);  // (50, 20), 40 pixels wide
        const int inside = Inked({50, 20, 41, 41});
        EXPECT_GT(inside, 200) << type;
        EXPECT_EQ(Inked(Box.rect()), inside) << type;
    }
}

TEST_F(PictureBoxPixels, ClearEmptiesThePaper) {
    Show();
    Paper.Line(0, 750, 3000, 750, kRed);
    EXPECT_GT(Inked(Box.rect()), 0);
    Paper.Clear();
    Paper.Line(0, 300, 15, 300, kRed);
    EXPECT_EQ(Inked({0, 40, 200, 20}), 0);
}

TEST_F(PictureBoxPixels, AFittedPictureStandsInTheUpperLeftCorner) {
    Box.resize(400, 400);  // paper 200 x 100: twice as large
    Show(PictureBox::Sizing::FitBox);
    Paper.DrawWidth = 4;
    Paper.Line(0, 1500 - 30, 3000, 1500 - 30, kRed);  // 2 pixels above the paper's lower edge
    EXPECT_TRUE(HasColour(398, 196, kRed));
    EXPECT_EQ(Inked({0, 206, 400, 190}), 0);
}

TEST_F(PictureBoxPixels, AFittedPictureDoesWithoutItsEmptyLowerPart) {
    Box.resize(200, 50);
    Show(PictureBox::Sizing::FitBox);
    Paper.DrawWidth = 2;
    Paper.Line(2970, 0, 2970, 300, kRed);  // at 198 of 200 pixels, in the upper half
    EXPECT_GT(Inked({190, 0, 10, 20}), 0);
}

TEST_F(PictureBoxPixels, TrueSizeClaimsAllThatIsDrawn) {
    QScrollArea area;
    auto* box = new PictureBox;
    area.setWidget(box);
    area.setWidgetResizable(true);
    area.resize(150, 80);
    box->SetPicture(Paper);
    box->SetSizing(PictureBox::Sizing::TrueSize);
    area.show();
    EXPECT_EQ(box->size(), QSize(200, 100));
    Paper.Line(0, 750, 6000, 750, kRed);  // to 400 pixels
    EXPECT_TRUE(QTest::qWaitFor([&] { return box->size() == QSize(400, 100); }));
}

TEST_F(PictureBoxPixels, TrueSizeHasAWholePixelForTheLastHalfOne) {
    Picture paper(3007.5, 1507.5);  // 200.5 x 100.5 pixels
    Box.SetPicture(paper);
    Box.SetSizing(PictureBox::Sizing::TrueSize);
    EXPECT_EQ(Box.sizeHint(), QSize(201, 101));
    EXPECT_EQ(Box.minimumSize(), QSize(201, 101));
}

TEST_F(PictureBoxPixels, FitWidthKeepsTheProportions) {
    QScrollArea area;
    auto* box = new PictureBox;
    area.setWidget(box);
    area.setWidgetResizable(true);
    area.setFrameShape(QFrame::NoFrame);
    area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.resize(400, 50);
    box->SetPicture(Paper);
    box->SetSizing(PictureBox::Sizing::FitWidth);
    area.show();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return box->width() > 300 && std::abs(box->height() - box->width() / 2) <= 1; }));
}

TEST_F(PictureBoxPixels, ALongDrawingIsShownWhileItGoesOn) {
    Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Box));
    int paints = 0;
    struct Counter : QObject {
        int& Paints;
        explicit Counter(int& paints) : Paints(paints) {}
        bool eventFilter(QObject*, QEvent* event) override {
            Paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } counter(paints);
    Box.installEventFilter(&counter);
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 400) {
        Paper.Circle(1500, 750, 600, kRed, 0, kPi, 0.25);
    }
    EXPECT_GE(paints, 2);
    EXPECT_LE(paints, 400 / 50 + 1);
}

/// What the screen shows of the box, which asks nothing of the box itself.
QImage Shown(const PictureBox& box) {
    return box.screen()->grabWindow(box.winId()).toImage().convertToFormat(QImage::Format_RGB32);
}

/// Takes well over the time that a box may draw at once, and tells nobody.
void DrawMuch(Picture& paper) {
    constexpr int circles = 40000;
    const auto tell = std::exchange(paper.OnChange, nullptr);
    for (int i = 0; i < circles; ++i) {
        paper.Circle(1500, 750, 600, {0, 0, 200});
    }
    paper.OnChange = tell;
}

TEST_F(PictureBoxPixels, ASlowPictureIsStretchedWhileResizingAndSharpOnceItSettles) {
    DrawMuch(Paper);
    Show(PictureBox::Sizing::FitBox);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Box));
    ASSERT_TRUE(QTest::qWaitFor([&] { return Shown(Box) == Image(); }));

    Box.resize(400, 200);
    const QImage stretched = Image();
    PictureBox fresh;
    fresh.SetPicture(Paper);
    fresh.resize(400, 200);
    const QImage sharp = fresh.grab().toImage();
    EXPECT_NE(stretched, sharp);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Shown(Box) == sharp; }));
}

TEST_F(PictureBoxPixels, AQuickPictureIsSharpWhileResizing) {
    Paper.Line(0, 0, 3000, 1500, kRed);
    Show(PictureBox::Sizing::FitBox);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Box));
    Box.resize(400, 200);
    PictureBox fresh;
    fresh.SetPicture(Paper);
    fresh.resize(400, 200);
    EXPECT_EQ(Image(), fresh.grab().toImage());
}

TEST_F(PictureBoxPixels, ABoxThatOnlyBecomesHigherHasWhitePaperThere) {
    Show(PictureBox::Sizing::FitBox);
    Paper.Line(0, 0, 3000, 1490, kRed);
    EXPECT_GT(Inked(Box.rect()), 0);
    Box.resize(200, 180);
    EXPECT_EQ(Inked({0, 101, 200, 79}), 0);
}

TEST_F(PictureBoxPixels, WhatIsShownAtTheEndIsTheWholePicture) {
    Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Box));
    DrawMuch(Paper);
    Paper.DrawWidth = 4;
    Paper.Line(0, 750, 3000, 750, kRed);
    const auto has_line = [&] { return Shown(Box).pixelColor(100, 50) == QColor(200, 0, 0); };
    EXPECT_FALSE(has_line());
    EXPECT_TRUE(QTest::qWaitFor(has_line));
}

}  // namespace
}  // namespace quarnel02
