// Tables of studies and pictures as parts of a document.
#include "report/Document.h"

#include <gtest/gtest.h>

#include "basic/LinePrinter.h"

namespace quarnel02 {
namespace {

TEST(TableFrom, ReadsNumbersAsAPersonDoes) {
    const TablePart part =
        TableFrom({{"line", "cost", "tasks", "limit"},
                   {{std::string("Bench 1-8"), 202004.5, TaskList{1, 2}, std::monostate{}},
                    {std::string("Robot 1-9"), 1e6, TaskList{}, 3.0}}});
    ASSERT_EQ(part.Columns.size(), 4U);
    EXPECT_EQ(part.Columns[1].Heading, "cost");
    EXPECT_FALSE(part.Columns[0].Figures);
    EXPECT_TRUE(part.Columns[1].Figures);
    EXPECT_FALSE(part.Columns[2].Figures);
    EXPECT_TRUE(part.Columns[3].Figures);
    EXPECT_EQ(part.Rows,
              (std::vector<std::vector<std::string>>{{"Bench 1-8", "202,004.5", "1 2", ""},
                                                     {"Robot 1-9", "1,000,000", "", "3"}}));
}

TEST(TableFrom, AnEmptyColumnHoldsNoFigures) {
    EXPECT_FALSE(TableFrom({{"problem"}, {{std::monostate{}}}}).Columns[0].Figures);
    EXPECT_FALSE(TableFrom({{"problem"}, {}}).Columns[0].Figures);
}

TEST(PartFrom, TakesPrintedLinesAsText) {
    Picture picture(1000, 1000);
    PictureLines lines(picture);
    LinePrinter printer(lines);
    printer.Print("Total Cost: ", Tab{18}, "$5");
    const DocumentPart part = PartFrom(picture, "Summary.", 1);
    EXPECT_EQ(std::get<PrintedPart>(part).Text, "Total Cost:      $5\n");
}

TEST(PartFrom, TakesADrawingAsItIs) {
    Picture picture(1000, 1000);
    picture.Line(0, 0, 10, 10, {});
    const DocumentPart part = PartFrom(picture, "A line.", 0.5);
    EXPECT_EQ(std::get<PicturePart>(part).Drawing.Figures(), picture.Figures());
    EXPECT_EQ(std::get<PicturePart>(part).Words, "A line.");
    EXPECT_EQ(std::get<PicturePart>(part).Shape, 0.5);
}

}  // namespace
}  // namespace quarnel02
