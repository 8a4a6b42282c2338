// Figures as they come out on the screen: dashes, turned texts, and what stays where it is.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QTest>

#include "widgets/PictureBox.h"

namespace quarnel02 {
namespace {

constexpr Colour kRed{200, 0, 0};

class PaintedFigures : public ::testing::Test {
  protected:
    /// Paper of 200 x 100 pixels.
    void Show() {
        Box.resize(200, 100);
        Box.SetPicture(Paper);
        Box.show();
    }
    int Inked(const QRect& place) {
        const QImage image = Box.grab().toImage();
        int inked = 0;
        for (int y = place.top(); y <= place.bottom(); ++y) {
            for (int x = place.left(); x <= place.right(); ++x) {
                inked += image.pixelColor(x, y) != QColor(Qt::white) ? 1 : 0;
            }
        }
        return inked;
    }

    Picture Paper{3000, 1500};
    PictureBox Box;
};

TEST_F(PaintedFigures, ADashedLineHasGaps) {
    Paper.Add(LineFigure{0, 450, 3000, 450, 2, kRed, false});
    Paper.Add(LineFigure{0, 1050, 3000, 1050, 2, kRed, true});
    Show();
    EXPECT_EQ(Inked({0, 30, 200, 1}), 200);
    EXPECT_GT(Inked({0, 70, 200, 1}), 60);
    EXPECT_LT(Inked({0, 70, 200, 1}), 170);
}

TEST_F(PaintedFigures, ATurnedTextReadsDownwardsFromItsCorner) {
    TextFigure text{1500, 600, "Demand", Paper.PageFont(), kRed, true};
    Paper.Add(text);
    Show();
    const Extent place = ExtentOf(text, *Paper.LaidOutFor().Measure);
    const int left = static_cast<int>(place.Left / kTwipsPerPixel);
    const int right = static_cast<int>(place.Right / kTwipsPerPixel) + 1;
    EXPECT_GT(Inked(QRect(QPoint(left, 40), QPoint(right, 99))), 40);
    EXPECT_EQ(Inked(QRect(QPoint(0, 0), QPoint(199, 38))), 0);
    EXPECT_EQ(Inked(QRect(QPoint(0, 0), QPoint(left - 1, 99))), 0);
    EXPECT_EQ(Inked(QRect(QPoint(right + 1, 0), QPoint(199, 99))), 0);
}

TEST_F(PaintedFigures, WhatIsFixedStaysWhileThePaperIsEnlarged) {
    Paper.Compose([](Picture& each) {
        const Page& page = each.LaidOutFor();
        each.Sheet.Scale = page.Zoom;
        each.SetPaper(page.Width * page.Zoom, page.Height * page.Zoom);
        each.BeginFixed();
        each.Add(BoxFigure{0, 0, 300, 300, 0, kRed});
    });
    Box.SetZoomable(true);
    Show();
    const QRect legend(0, 0, 20, 20);
    for (const double zoom : {1.0, 4.0}) {
        Box.SetZoom(zoom, QPointF(150, 80));
        EXPECT_EQ(Inked(legend), 400) << zoom;
        EXPECT_EQ(Inked({0, 0, 200, 100}), 400) << zoom;
    }
}

}  // namespace
}  // namespace quarnel02
