// Documents as PDF files, read by another program.
#include <gmock/gmock.h>

#include <QImage>
#include <algorithm>

#include "basic/Files.h"
#include "print/PrintDocument.h"
#include "support/ProgramRun.h"

namespace quarnel02 {
namespace {

using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::Not;

class Pdf : public ::testing::Test {
  protected:
    void Print(const Document& document) { WriteFile(File(), PdfOf(document)); }
    [[nodiscard]] std::string File() const { return (Place.Path() / "report.pdf").string(); }

    [[nodiscard]] static std::string OutputOf(const std::vector<std::string>& command) {
        const auto run = test::RunProgram(command);
        EXPECT_EQ(run.Status, 0) << run.Err;
        return run.Out;
    }
    [[nodiscard]] std::string Text() const {
        return OutputOf({"pdftotext", "-layout", File(), "-"});
    }
    /// Pages end with a form feed.
    [[nodiscard]] std::vector<std::string> PageTexts() const {
        std::vector<std::string> pages(1);
        for (const char sign : Text()) {
            if (sign == '\f') {
                pages.emplace_back();
            } else {
                pages.back() += sign;
            }
        }
        pages.pop_back();
        return pages;
    }
    [[nodiscard]] QImage PageImage(int page) const {
        const std::string name = (Place.Path() / "page").string();
        const std::string number = std::to_string(page);
        const auto run = test::RunProgram({"pdftoppm", "-r", "72", "-png", "-singlefile", "-f",
                                           number, "-l", number, File(), name});
        EXPECT_EQ(run.Status, 0) << run.Err;
        return QImage(QString::fromStdString(name + ".png"));
    }

    TemporaryDirectory Place;
};

Document Plain(std::vector<DocumentPart> parts) {
    return {"Line design: Pump", "Pump", "2026-11-21 12:00", std::move(parts)};
}

std::size_t CountOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

TEST_F(Pdf, IsTextThatCanBeFound) {
    Print(Plain({HeadingPart{"Design"}, ParagraphPart{"Out of date.", true},
                 FactsPart{{{"Cost a year", "$202,004"}}},
                 TablePart{{{"Resource"}, {"Total", true}}, {{"Bench", "$99,583"}}},
                 PrintedPart{"Sta.  Resource  Qty\n 1    1  Bench   1\n"}}));
    const std::string text = Text();
    EXPECT_THAT(text, HasSubstr("Line design: Pump"));
    EXPECT_THAT(text, HasSubstr("Design"));
    EXPECT_THAT(text, HasSubstr("Out of date."));
    EXPECT_THAT(text, ContainsRegex("Cost a year +\\$202,004"));
    EXPECT_THAT(text, ContainsRegex("Resource +Total"));
    EXPECT_THAT(text, ContainsRegex("Bench +\\$99,583"));
    EXPECT_THAT(text, ContainsRegex("Sta. +Resource +Qty"));
    EXPECT_THAT(text, ContainsRegex("Pump +2026-11-21 12:00"));
    EXPECT_THAT(text, ContainsRegex("Quarnel02 +Page 1 of 1"));
}

TEST_F(Pdf, IsA4WithEmbeddedFontsAndATitle) {
    Print(Plain({PrintedPart{"fixed pitch\n"}}));
    const std::string info = OutputOf({"pdfinfo", File()});
    EXPECT_THAT(info, HasSubstr("(A4)"));
    EXPECT_THAT(info, ContainsRegex("Title: +Line design: Pump"));
    const std::string fonts = OutputOf({"pdffonts", File()});
    for (const char* font : {"LiberationSans", "LiberationMono"}) {  // embedded, with their texts
        EXPECT_THAT(fonts,
                    ContainsRegex(std::string(font) + " +CID TrueType +[^ ]+ +yes [a-z]+ +yes"));
    }
}

TEST_F(Pdf, RepeatsTheHeadOfATableAndKeepsEveryRow) {
    TablePart table{{{"Number", true}, {"Description"}}, {}};
    for (int row = 1; row <= 150; ++row) {
        table.Rows.push_back({std::to_string(row), "Row" + std::to_string(row) + "."});
    }
    Print(Plain({table}));
    const auto pages = PageTexts();
    ASSERT_GE(pages.size(), 3U);
    for (const std::string& page : pages) {
        EXPECT_EQ(CountOf(page, "Description"), 1U) << page;
        EXPECT_THAT(page, HasSubstr(" of " + std::to_string(pages.size())));
    }
    const std::string text = Text();
    for (int row = 1; row <= 150; ++row) {
        EXPECT_EQ(CountOf(text, "Row" + std::to_string(row) + "."), 1U) << row;
    }
}

TEST_F(Pdf, FiguresEndBelowOneAnotherAndTextsBeginSo) {
    Print(Plain({TablePart{{{"Name"}, {"Total", true}}, {{"Bench", "7"}, {"X", "202,004"}}}}));
    const std::string words = OutputOf({"pdftotext", "-bbox", File(), "-"});
    const auto measure = [&](const std::string& word, const std::string& name) {
        const std::size_t end = words.find(">" + word + "</word>");
        const std::size_t at = words.rfind(name + "=\"", end) + name.size() + 2;
        return std::stod(words.substr(at));
    };
    EXPECT_NEAR(measure("7", "xMax"), measure("202,004", "xMax"), 0.5);
    EXPECT_NEAR(measure("Total", "xMax"), measure("202,004", "xMax"), 0.5);
    EXPECT_GT(measure("7", "xMin"), measure("202,004", "xMin") + 10);
    EXPECT_NEAR(measure("X", "xMin"), measure("Bench", "xMin"), 0.5);
}

TEST_F(Pdf, LeavesNothingOfALongTextOut) {
    std::string words;
    std::string line;
    for (int i = 1; i <= 400; ++i) {
        words += "w" + std::to_string(i) + ". ";
        line += "p" + std::to_string(i) + ".";
    }
    Print(Plain({ParagraphPart{words}, FactsPart{{{"Name", words}}},
                 TablePart{{{"A"}, {"B"}}, {{"x", words}}}, PrintedPart{line + "\n"}}));
    std::string text = Text();
    text.erase(std::remove_if(text.begin(), text.end(),
                              [](char sign) { return sign == ' ' || sign == '\n'; }),
               text.end());
    for (int i = 1; i <= 400; ++i) {
        EXPECT_EQ(CountOf(text, "w" + std::to_string(i) + "."), 3U) << i;
    }
    EXPECT_THAT(text, HasSubstr("p1.p2.p3.p4."));
    EXPECT_THAT(text, HasSubstr("p398.p399.p400."));
}

/// A drawing that fills its paper with a red frame.
Picture Framed(double height) {
    Picture picture(Page{1000, 1000});
    picture.Compose([height](Picture& paper) {
        const Page& page = paper.LaidOutFor();
        const double bottom = height > 0 ? height : page.Height;
        paper.SetPaper(page.Width, bottom);
        paper.Add(BoxFigure{0, 0, page.Width, bottom, 0, {255, 0, 0}});
        paper.Text(100, 100, "Bottleneck", paper.PageFont(), {});
    });
    return picture;
}

/// First and last row of red pixels in the middle of the page; -1 where there is none.
std::pair<int, int> RedRows(const QImage& page) {
    std::pair<int, int> rows(-1, -1);
    for (int y = 0; y < page.height(); ++y) {
        const QColor pixel = page.pixelColor(page.width() / 2, y);
        if (pixel.red() > 200 && pixel.green() < 60) {
            rows = {rows.first < 0 ? y : rows.first, y};
        }
    }
    return rows;
}

TEST_F(Pdf, APictureIsDrawnInItsShapeOnWhitePaperAndStaysADrawing) {
    Print(Plain({PartFrom(Framed(0), "A red box.", 0.5)}));
    EXPECT_THAT(Text(), HasSubstr("Bottleneck"));
    EXPECT_THAT(Text(), HasSubstr("A red box."));
    EXPECT_EQ(CountOf(OutputOf({"pdfimages", "-list", File()}), "image"), 0U);
    const QImage page = PageImage(1);
    ASSERT_FALSE(page.isNull());
    EXPECT_EQ(page.pixelColor(5, 5), QColor(Qt::white));
    const auto [top, bottom] = RedRows(page);
    constexpr double width = (210 - 2 * kPaperMargin) / 25.4 * 72;
    EXPECT_NEAR(bottom - top, width / 2, 3);
    EXPECT_EQ(page.pixelColor(page.width() / 2, (top + bottom) / 2), QColor(255, 0, 0))
        << "in the colours of paper, whatever the screen has";
}

TEST_F(Pdf, APictureIsNeverCut) {
    Print(Plain({PartFrom(Framed(0), "First.", 1), PartFrom(Framed(0), "Second.", 1)}));
    EXPECT_EQ(PageTexts().size(), 2U);
    const auto first = RedRows(PageImage(1));
    const auto second = RedRows(PageImage(2));
    EXPECT_NEAR(first.second - first.first, second.second - second.first, 2);
}

TEST_F(Pdf, APictureHigherThanAPageIsMadeToFit) {
    Print(Plain({HeadingPart{"Line"}, PartFrom(Framed(60000), "High.", 1)}));
    const auto pages = PageTexts();
    ASSERT_LE(pages.size(), 2U);
    EXPECT_THAT(pages.back(), HasSubstr("Line"));
    EXPECT_THAT(pages.back(), HasSubstr("High."));
    const QImage page = PageImage(static_cast<int>(pages.size()));
    EXPECT_LT(RedRows(page).second, page.height() - 50);
    EXPECT_GT(RedRows(page).second, page.height() / 2);
}

TEST_F(Pdf, AHeadingIsNeverTheLastOfAPage) {
    for (int lines = 40; lines < 60; ++lines) {
        std::vector<DocumentPart> parts;
        for (int i = 0; i < lines; ++i) {
            parts.emplace_back(ParagraphPart{"Line"});
        }
        parts.emplace_back(HeadingPart{"Heading"});
        parts.emplace_back(ParagraphPart{"Behind"});
        Print(Plain(std::move(parts)));
        for (const std::string& page : PageTexts()) {
            EXPECT_EQ(CountOf(page, "Heading"), CountOf(page, "Behind")) << lines;
        }
    }
}

TEST_F(Pdf, ALongProductGivesWayToTheDate) {
    Document document = Plain({});
    document.Product = std::string(300, 'x');
    Print(document);
    EXPECT_THAT(Text(), HasSubstr("2026-11-21 12:00"));
    EXPECT_THAT(Text(), Not(HasSubstr(document.Product)));
    EXPECT_THAT(Text(), HasSubstr("xxx…"));
}

}  // namespace
}  // namespace quarnel02
