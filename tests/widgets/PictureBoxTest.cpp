// The pixels of pictures: where figures stand, and paper in light and dark palettes; text, zoom,
// dragging and the words behind figures, by real events.
#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>
#include <numbers>
#include <utility>

#include "basic/LinePrinter.h"
#include "picture/Inks.h"
#include "widgets/PictureBox.h"
#include "widgets/ScreenMeasure.h"

namespace quarnel02 {
namespace {

constexpr Colour kRed{200, 0, 0};
constexpr double kPi = std::numbers::pi;

class PictureBoxPixels : public ::testing::Test {
  protected:
    /// Paper of 200 x 100 pixels.
    PictureBoxPixels() { Box.resize(200, 100); }

    void Show() {
        Box.SetPicture(Paper);
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

TEST_F(PictureBoxPixels, PaperIsWhiteInALightPaletteAndDarkInADarkOne) {
    Paper.DrawWidth = 10;
    Paper.Line(0, 750, 3000, 750, {});
    Show();
    EXPECT_TRUE(HasColour(100, 10, kPaper));
    EXPECT_TRUE(HasColour(100, 50, {}));
    Box.setPalette(QPalette(QColor(53, 53, 53)));
    EXPECT_TRUE(HasColour(100, 10, OnDark(kPaper)));
    EXPECT_TRUE(HasColour(100, 50, OnDark({})));
    EXPECT_LT(Image().pixelColor(100, 10).lightness(), 60);
    EXPECT_GT(Image().pixelColor(100, 50).lightness(), 200);
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
    Box.viewport()->installEventFilter(&counter);
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

/// Takes well over the time that a box may draw at once.
void DrawMuch(Picture& paper) {
    constexpr int circles = 40000;
    for (int i = 0; i < circles; ++i) {
        paper.Circle(paper.Width() / 2, paper.Height() / 2, 600, {0, 0, 200});
    }
}

/// The same, and tells nobody.
void DrawMuchSilently(Picture& paper) {
    const auto tell = std::exchange(paper.OnChange, nullptr);
    DrawMuch(paper);
    paper.OnChange = tell;
}

TEST_F(PictureBoxPixels, AComposedPictureFillsTheBoxAtAnyShape) {
    Paper.Compose([](Picture& each) {
        each.DrawWidth = 4;
        each.Line(0, 0, each.Width(), 0, kRed);
        each.Line(0, each.Height(), each.Width(), each.Height(), kRed);
    });
    Show();
    for (const QSize size : {QSize(200, 100), QSize(300, 50), QSize(60, 200)}) {
        Box.resize(size);
        QCoreApplication::processEvents();
        EXPECT_TRUE(HasColour(size.width() - 2, 0, kRed)) << size.width();
        EXPECT_TRUE(HasColour(size.width() - 2, size.height() - 1, kRed)) << size.width();
        EXPECT_TRUE(HasColour(size.width() / 2, size.height() / 2, kPaper)) << size.width();
    }
}

TEST_F(PictureBoxPixels, TextsAreInTheLettersAndSizeOfTheBox) {
    QFont font = Box.font();
    font.setPixelSize(20);
    Box.setFont(font);
    Paper.Compose([](Picture& each) { each.Text(0, 0, "M", each.PageFont(), {}); });
    Show();
    const auto& text = std::get<TextFigure>(Paper.Figures().at(0));
    EXPECT_EQ(text.Face.Points, 15);  // 20 pixels of 96 to the inch
    const Page& page = Paper.LaidOutFor();
    EXPECT_EQ(page.Measure, &ScreenMeasure(font.family()));
    EXPECT_NEAR(page.Measure->Width("Mi", text.Face) / kTwipsPerPixel,
                QFontMetricsF(font).horizontalAdvance(QStringLiteral("Mi")), 1.5);
    font.setPixelSize(5);
    Box.setFont(font);
    EXPECT_EQ(std::get<TextFigure>(Paper.Figures().at(0)).Face.Points, 8);
}

TEST_F(PictureBoxPixels, APictureThatNeedsMoreRoomScrolls) {
    Paper.Compose([](Picture& each) {
        each.SetPaper(each.Width(), 6000);
        each.DrawWidth = 10;
        each.Line(0, 5900, each.Width(), 5900, kRed);
    });
    Show();
    QCoreApplication::processEvents();
    EXPECT_EQ(Box.verticalScrollBar()->maximum(), 300);
    EXPECT_TRUE(HasColour(50, 50, kPaper));
    Box.verticalScrollBar()->setValue(300);
    EXPECT_TRUE(HasColour(50, 5900 / 15 - 300, kRed));
    EXPECT_LE(Paper.Width(), 200 * 15 - Box.verticalScrollBar()->sizeHint().width() * 15);
}

TEST_F(PictureBoxPixels, ASlowPictureIsStillShownWhileResizingAndSharpOnceItSettles) {
    Paper.Compose(DrawMuch);
    Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Box));
    ASSERT_TRUE(QTest::qWaitFor([&] { return Shown(Box) == Image(); }));

    Box.resize(400, 200);
    const QImage old = Image();
    Picture same(3000, 1500);
    same.Compose(DrawMuch);
    PictureBox fresh;
    fresh.resize(400, 200);
    fresh.SetPicture(same);
    const QImage sharp = fresh.grab().toImage();
    EXPECT_NE(old, sharp);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Shown(Box) == sharp; }));
}

TEST_F(PictureBoxPixels, WhatIsShownAtTheEndIsTheWholePicture) {
    Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Box));
    DrawMuchSilently(Paper);
    Paper.DrawWidth = 4;
    Paper.Line(0, 750, 3000, 750, kRed);
    const auto has_line = [&] { return Shown(Box).pixelColor(100, 50) == QColor(200, 0, 0); };
    EXPECT_FALSE(has_line());
    EXPECT_TRUE(QTest::qWaitFor(has_line));
}

TEST_F(PictureBoxPixels, WhatALinePrinterWroteIsATextToSelectAndCopy) {
    {
        PictureLines lines(Paper);
        LinePrinter printer(lines);
        printer.Print("Cost", Column{8}, "$12");
        printer.Print("second");
    }
    Show();
    auto* text = Box.findChild<QPlainTextEdit*>();
    ASSERT_NE(text, nullptr);
    EXPECT_TRUE(text->isVisible());
    EXPECT_TRUE(text->isReadOnly());
    EXPECT_TRUE(QFontInfo(text->font()).fixedPitch());
    EXPECT_EQ(QFontInfo(text->font()).pixelSize(), QFontInfo(Box.font()).pixelSize());
    QTest::keyClick(text, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(text, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Cost   $12\nsecond\n"));
    Paper.Clear();
    EXPECT_FALSE(text->isVisible());
}

/// A box with a picture that can be enlarged: a network of one line, with words behind it.
class ZoomableBox : public PictureBoxPixels {
  protected:
    ZoomableBox() {
        Box.resize(400, 200);
        Box.SetZoomable(true);
        Paper.Compose([](Picture& each) {
            const Page& page = each.LaidOutFor();
            each.Sheet.Scale = page.Zoom;
            each.SetPaper(page.Width * page.Zoom, page.Height * page.Zoom);
            each.DrawWidth = 3;
            each.Line(0, each.Height() / 2, each.Width(), each.Height() / 2, kRed);
            each.Describe("5-9: Robot 93,443, cheapest of 4");
        });
        Show();
        QCoreApplication::processEvents();
    }

    void Wheel(int steps, QPoint at) {
        QWheelEvent event(at, Box.viewport()->mapToGlobal(at), {}, {0, 120 * steps}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(Box.viewport(), &event);
    }
    /// The point of the drawing under a point of the box, in its own units.
    [[nodiscard]] QPointF Under(QPoint point) const {
        const QPoint offset(Box.horizontalScrollBar()->value(), Box.verticalScrollBar()->value());
        return QPointF(point + offset) * kTwipsPerPixel / Paper.Sheet.Scale;
    }
};

TEST_F(ZoomableBox, ZoomsWithTheWheelAtThePointer) {
    const QPoint pointer(300, 60);
    const QPointF before = Under(pointer);
    double told = 0;
    QObject::connect(&Box, &PictureBox::ZoomChanged, &Box, [&](double zoom) { told = zoom; });
    EXPECT_EQ(Box.Zoom(), 1);
    Wheel(3, pointer);
    EXPECT_GT(Box.Zoom(), 1.5);
    EXPECT_EQ(told, Box.Zoom());
    const QPointF after = Under(pointer);
    EXPECT_NEAR(after.x(), before.x(), 15);
    EXPECT_NEAR(after.y(), before.y(), 15);
    Wheel(-20, pointer);
    EXPECT_EQ(Box.Zoom(), 1);
    Wheel(100, pointer);
    EXPECT_EQ(Box.Zoom(), 16);
}

TEST_F(ZoomableBox, IsDraggedAndFittedAgain) {
    Box.SetZoom(4, {200, 100});
    const QPoint start(200, 100);
    const QPointF held = Under(start);
    QTest::mousePress(Box.viewport(), Qt::LeftButton, {}, start);
    EXPECT_EQ(Under(start), held);
    QTest::mouseMove(Box.viewport(), QPoint(260, 130));
    EXPECT_NEAR(Under(QPoint(260, 130)).x(), held.x(), 15);
    EXPECT_NEAR(Under(QPoint(260, 130)).y(), held.y(), 15);
    QTest::mouseRelease(Box.viewport(), Qt::LeftButton, {}, QPoint(260, 130));
    EXPECT_TRUE(Box.KeptWords().isEmpty());  // a drag is no click
    QTest::keyClick(&Box, Qt::Key_Home);
    EXPECT_EQ(Box.Zoom(), 1);
}

TEST_F(ZoomableBox, ZoomsWithKeys) {
    QTest::keyClick(&Box, Qt::Key_Plus);
    EXPECT_EQ(Box.Zoom(), 1.25);
    QTest::keyClick(&Box, Qt::Key_Minus);
    EXPECT_EQ(Box.Zoom(), 1);
}

TEST_F(ZoomableBox, RestingOnAFigureShowsItsWords) {
    const QImage quiet = Image();
    QTest::mouseMove(Box.viewport(), QPoint(100, 40));
    EXPECT_TRUE(QToolTip::text().isEmpty());
    QTest::mouseMove(Box.viewport(), QPoint(100, 103));
    EXPECT_EQ(QToolTip::text(), QStringLiteral("5-9: Robot 93,443, cheapest of 4"));
    EXPECT_NE(Image(), quiet);  // the figure is lit up
    QTest::mouseMove(Box.viewport(), QPoint(100, 40));
    EXPECT_EQ(Image(), quiet);
}

TEST_F(ZoomableBox, AClickKeepsTheWordsUntilEscapeOrAnotherClick) {
    auto* note = Box.findChild<QLabel*>(QStringLiteral("lblKept"));
    ASSERT_NE(note, nullptr);
    EXPECT_FALSE(note->isVisible());
    QTest::mouseClick(Box.viewport(), Qt::LeftButton, {}, QPoint(390, 100));
    EXPECT_TRUE(note->isVisible());
    EXPECT_EQ(Box.KeptWords(), QStringLiteral("5-9: Robot 93,443, cheapest of 4"));
    EXPECT_TRUE(Box.viewport()->rect().contains(note->geometry()));
    QTest::keyClick(&Box, Qt::Key_Escape);
    EXPECT_FALSE(note->isVisible());
    QTest::mouseClick(Box.viewport(), Qt::LeftButton, {}, QPoint(100, 100));
    EXPECT_TRUE(note->isVisible());
    QTest::mouseClick(Box.viewport(), Qt::LeftButton, {}, QPoint(100, 20));
    EXPECT_FALSE(note->isVisible());
    EXPECT_TRUE(Box.KeptWords().isEmpty());
}

TEST_F(ZoomableBox, AnotherPictureForgetsTheWords) {
    QTest::mouseClick(Box.viewport(), Qt::LeftButton, {}, QPoint(100, 100));
    ASSERT_FALSE(Box.KeptWords().isEmpty());
    Paper.Clear();
    EXPECT_TRUE(Box.KeptWords().isEmpty());
}

}  // namespace
}  // namespace quarnel02
