// Pictures as files and on the clipboard.
#include "print/PictureFiles.h"

#include <gmock/gmock.h>

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>
#include <pugixml.hpp>

#include "basic/Files.h"
#include "basic/LinePrinter.h"
#include "print/ClipboardPicture.h"
#include "print/PictureCommands.h"
#include "support/ProgramRun.h"

namespace quarnel02 {
namespace {

using ::testing::HasSubstr;

/// A blue box over the whole page and a word; told of how often it is drawn for the box.
struct Shown {
    Shown() : Drawing(Page{15000, 7500}) {
        Drawing.Compose([](Picture& paper) {
            const Page& page = paper.LaidOutFor();
            paper.Add(BoxFigure{0, 0, page.Width, page.Height, 0, {0, 0, 255}});
            paper.Text(300, 300, "Robot", paper.PageFont(), {255, 255, 255});
        });
        Drawing.OnChange = [this] { ++Told; };
    }
    Picture Drawing;
    int Told = 0;
};

QImage ImageFrom(const std::string& png) {
    return QImage::fromData(QByteArray::fromStdString(png), "PNG");
}

TEST(PngOf, HasThePixelsOfItsScale) {
    const Shown shown;
    const QImage once = ImageFrom(PngOf(shown.Drawing, 1));
    EXPECT_EQ(once.size(), QSize(1000, 500));
    const QImage fourfold = ImageFrom(PngOf(shown.Drawing, 4));
    EXPECT_EQ(fourfold.size(), QSize(4000, 2000));
    EXPECT_EQ(once.pixelColor(500, 250), QColor(0, 0, 255));
    EXPECT_NEAR(once.dotsPerMeterX(), 3780, 5);
    EXPECT_NEAR(fourfold.dotsPerMeterX(), 4 * 3780, 5) << "as large on paper as once";
    EXPECT_EQ(fourfold.dotsPerMeterY(), fourfold.dotsPerMeterX());
    EXPECT_EQ(shown.Told, 0);
}

TEST(PngOf, LaysASmallPictureOutLargerInItsShape) {
    Shown shown;
    shown.Drawing.LayOut(Page{1500, 750});
    shown.Told = 0;
    EXPECT_EQ(ImageFrom(PngOf(shown.Drawing, 1)).size(), QSize(800, 400));
    EXPECT_EQ(shown.Drawing.Width(), 1500);
    EXPECT_EQ(shown.Told, 0);
}

TEST(PngOf, DoesNotKeepTheShapeOfANarrowBox) {
    Shown shown;
    shown.Drawing.LayOut(Page{3000, 6000});
    EXPECT_EQ(ImageFrom(PngOf(shown.Drawing, 1)).size(), QSize(800, 520));
    shown.Drawing.LayOut(Page{30000, 3000});
    EXPECT_EQ(ImageFrom(PngOf(shown.Drawing, 1)).size(), QSize(2000, 600));
}

TEST(PngOf, ShowsAnEnlargedDrawingWhole) {
    Shown shown;
    Page page{15000, 7500};
    page.Zoom = 8;
    shown.Drawing.LayOut(page);
    EXPECT_EQ(ImageFrom(PngOf(shown.Drawing, 1)).size(), QSize(1000, 500));
}

TEST(SvgOf, IsADrawingWithTextsInTheLettersOfFiles) {
    const Shown shown;
    const std::string svg = SvgOf(shown.Drawing);
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(svg.c_str()));
    EXPECT_THAT(svg, HasSubstr("Robot"));
    EXPECT_THAT(svg, HasSubstr("Liberation Sans"));
    EXPECT_EQ(shown.Told, 0);
}

TEST(PdfOfAPicture, IsOnePageOfItsSizeWithItsTexts) {
    const Shown shown;
    const TemporaryDirectory place;
    const std::string file = (place.Path() / "line.pdf").string();
    WriteFile(file, PdfOf(shown.Drawing, "Line"));
    const auto info = test::RunProgram({"pdfinfo", file});
    EXPECT_THAT(info.Out, HasSubstr("Page size:       750 x 375 pts"));
    EXPECT_THAT(info.Out, ::testing::ContainsRegex("Pages: +1\n"));
    EXPECT_THAT(test::RunProgram({"pdftotext", file, "-"}).Out, HasSubstr("Robot"));
}

TEST(FileOf, IsOfTheKindAndScaleThatWereChosen) {
    const Shown shown;
    const auto saved = [&](const char* extension, double scale) {
        return FileOf(shown.Drawing, {QString(), QLatin1String(extension), scale},
                      QStringLiteral("Line"));
    };
    EXPECT_EQ(ImageFrom(saved("png", 1)).size(), QSize(1000, 500));
    EXPECT_EQ(ImageFrom(saved("png", 2)).size(), QSize(2000, 1000));
    EXPECT_TRUE(saved("svg", 1).starts_with("<svg"));
    EXPECT_TRUE(saved("pdf", 1).starts_with("%PDF"));
}

TEST(PictureCommands, TheKeyOfCopyWorksInTheBoxThatHasTheFocus) {
    PictureBox first;
    PictureBox second;
    std::vector<std::string> asked;
    const auto listen = [&](PictureBox& box, const char* name) {
        AddPictureCommands(box, [&asked, name](PictureCommand command) {
            asked.push_back(std::string(name) + (command == PictureCommand::Copy ? " copy" : " ?"));
        });
        box.show();
    };
    listen(first, "first");
    listen(second, "second");
    second.activateWindow();
    second.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&second));
    EXPECT_TRUE(asked.empty());
    QTest::keyClick(&second, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(asked, std::vector<std::string>{"second copy"});
    EXPECT_EQ(first.contextMenuPolicy(), Qt::ActionsContextMenu);
    EXPECT_EQ(first.actions().size(), 3);
}

TEST(CopyPicture, PutsImageAndDrawingOnTheClipboardTogether) {
    const Shown shown;
    CopyPicture(shown.Drawing);
    const QMimeData& content = *QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(qvariant_cast<QImage>(content.imageData()).size(), QSize(2000, 1000));
    EXPECT_THAT(content.data(QStringLiteral("image/svg+xml")).toStdString(), HasSubstr("Robot"));
    EXPECT_FALSE(content.hasText());
}

TEST(CopyPicture, CopiesPrintedLinesAsText) {
    Picture picture(3000, 3000);
    PictureLines lines(picture);
    LinePrinter(lines).Print("Total Cost: ", Tab{18}, "$202,004");
    CopyPicture(picture);
    const QMimeData& content = *QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(content.text(), "Total Cost:      $202,004\n");
    EXPECT_FALSE(content.hasImage());
}

}  // namespace
}  // namespace quarnel02
