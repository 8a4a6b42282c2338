// The words behind figures, where the pointer finds them and when they go; texts that stay
// selected.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTest>

#include "basic/LinePrinter.h"
#include "widgets/PictureBox.h"
#include "widgets/PictureWords.h"

namespace quarnel02 {
namespace {

/// A line across the middle of the paper and one along its foot, with words.
class FigureWords : public ::testing::Test {
  protected:
    FigureWords() {
        Paper.Compose([](Picture& each) {
            const Page& page = each.LaidOutFor();
            each.Sheet.Scale = page.Zoom;
            each.SetPaper(page.Width * page.Zoom, page.Height * page.Zoom);
            each.DrawWidth = 3;
            each.Line(0, each.Height() / 2, each.Width(), each.Height() / 2, {});
            each.Describe("middle");
            each.Line(0, each.Height() - 30, each.Width(), each.Height() - 30, {});
            each.Describe("foot; with more; and more");
        });
        Box.resize(400, 200);
        Box.SetZoomable(true);
        Box.SetPicture(Paper);
        Box.show();
        QCoreApplication::processEvents();
    }
    void Click(QPoint place) { QTest::mouseClick(Box.viewport(), Qt::LeftButton, {}, place); }

    Picture Paper{6000, 3000};
    PictureBox Box;
};

TEST_F(FigureWords, AreThoseOfTheFigureInSightWhereThePaperIsMoved) {
    Box.SetZoom(4, QPointF(200, 100));
    Click({200, 100});
    EXPECT_EQ(Box.KeptWords(), QStringLiteral("middle"));
    Click({200, 20});
    EXPECT_TRUE(Box.KeptWords().isEmpty());
}

TEST_F(FigureWords, StandInsideTheBoxWhereverTheClickWas) {
    const auto* note = Box.findChild<QLabel*>(QStringLiteral("lblKept"));
    for (const int x : {5, 200, 395}) {
        Click({x, 198});
        ASSERT_TRUE(note->isVisible());
        EXPECT_EQ(note->text(), QStringLiteral("foot;\nwith more;\nand more"));
        EXPECT_TRUE(Box.viewport()->rect().contains(note->geometry())) << x;
    }
}

TEST_F(FigureWords, TheLitFigureGoesOutWhenThePointerLeaves) {
    const QImage before = Box.grab().toImage();
    QTest::mouseMove(Box.viewport(), {200, 100});
    QCoreApplication::processEvents();
    EXPECT_NE(Box.grab().toImage(), before);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(Box.viewport(), &leave);
    EXPECT_EQ(Box.grab().toImage(), before);
}

TEST(PrintedText, StaysSelectedWhenThePictureIsToldOfAgain) {
    Picture paper(6000, 3000);
    PictureBox box;
    box.SetPicture(paper);
    box.show();
    PictureLines lines(paper);
    LinePrinter printer(lines);
    printer.Print("Total Cost");
    box.findChild<QPlainTextEdit*>()->selectAll();
    ASSERT_TRUE(box.SelectedText().startsWith(QStringLiteral("Total Cost")));
    paper.OnChange();
    EXPECT_TRUE(box.SelectedText().startsWith(QStringLiteral("Total Cost")));
    printer.Print("Stations");
    EXPECT_TRUE(box.SelectedText().isEmpty()) << "another text";
}

TEST(PictureWords, AreALineForEachTextThatSaysSomething) {
    Picture picture(3000, 3000);
    for (const char* text : {"Line", "  ", "Robot", "Qty: 2"}) {
        picture.Print(text);
    }
    EXPECT_EQ(PictureWords(picture), QStringLiteral("Line\nRobot\nQty: 2"));
}

}  // namespace
}  // namespace quarnel02
