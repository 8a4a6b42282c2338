// What the solution summary shows on the result pictures.

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "support/FigureText.h"
#include "support/SolvedLine.h"

namespace quarnel02 {
namespace {

using test::ChosenStation;
using test::FiguresOf;
using test::SolvedLine;

using Lines = std::vector<std::string>;

/// Texts of a picture put back on their lines and columns (margin 60, 96 by 200 twips each).
Lines PrintedLines(const Picture& picture) {
    std::map<int, std::string> lines;
    for (const TextFigure& text : FiguresOf<TextFigure>(picture)) {
        const double column = (text.X - 60) / 96;
        const double line = (text.Y - 60) / 200;
        EXPECT_EQ(column, std::round(column)) << text.Text;
        EXPECT_EQ(line, std::round(line)) << text.Text;
        EXPECT_EQ(text.Face, (Font{FontFamily::FixedPitch, 8})) << text.Text;
        std::string& place = lines[static_cast<int>(line)];
        place.resize(static_cast<std::size_t>(column), ' ');
        place += text.Text;
    }
    Lines all;
    for (const auto& [line, text] : lines) {
        all.resize(static_cast<std::size_t>(line));
        all.push_back(text);
    }
    return all;
}

const std::vector<ChosenStation>& ThreeStations() {
    static const std::vector<ChosenStation> line = {
        {1, 1, "Bench", 1, 1234.5, 61.111, {1}, 0, 0, 0},
        {2, 12, "Robot A", 12, 1234567.89, 1234.567, {1, 2, 3, 4, 5, 6, 7}, 0, 0, 3},
        {9, 3, "Assembler", 2, 999.4, 0.5, {4, 4}, 0, 0, 1}};
    return line;
}

TEST(SummaryPicture, ShowsTheSummaryInItsOwnColumns) {
    SolvedLine solved(ThreeStations());
    solved.Write();
    // The time fills its column of 8 characters, and the tasks keep a blank from it.
    EXPECT_EQ(
        PrintedLines(solved.Form.picGraph[0]),
        (Lines{"Solution Summary", "-------------------",
               "# of Shifts: 2  Station Limit: -- Annual Volume: 60,000", "",
               "Sta.  Resource  Qty     Cost      Time    Tasks    Tools",
               " 1    1  Bench   1  $1,235     61.11   1       1",
               " 2    12 Robot A 12 $1,234,568 1,234.57 2-8    1 2 3 4 5 ",
               "                                              6 7",
               " 3    3  Assembler 2 $999      .50     9-10    4", "", "Cycle Time:      1234.57",
               "Max Cycle Time:  24.00", "", "Total Cost:      $1,236,802"}));
}

TEST(SummaryPicture, KeepsAllColumnsApartByABlank) {
    SolvedLine solved({{1, 1, "R", 100, 123456789, 12345, {1}}});
    solved.Order.LimitText = "100";
    solved.Write();
    const Lines lines = PrintedLines(solved.Form.picGraph[0]);
    ASSERT_GT(lines.size(), 5U);
    EXPECT_EQ(lines[2], "# of Shifts: 2  Station Limit: 100 Annual Volume: 60,000");
    EXPECT_EQ(lines[5], " 1    1  R       100 $123,456,789 12,345.00 1  1");
}

TEST(SummaryPicture, PrintsABlankForAControlCharacterOfAName) {
    SolvedLine solved({{1, 1, "A\nB", 1, 10, 5, {1}}});
    solved.Write();
    EXPECT_EQ(PrintedLines(solved.Form.picGraph[0]).at(5),
              " 1    1  A B     1  $10        5.00    1       1");
}

TEST(SummaryPicture, DrawsAStationWithoutATypeWithoutAnIcon) {
    SolvedLine solved({{1, 1, "R", 1, 10, 5, {1}}}, "UPDATE Resources SET Type = NULL;");
    solved.Write();
    EXPECT_TRUE(FiguresOf<IconFigure>(solved.Form.picGraph[2]).empty());
}

TEST(SummaryPicture, DrawsTheLineUnderItsHeading) {
    SolvedLine solved(ThreeStations());
    solved.Write();
    const auto texts = FiguresOf<TextFigure>(solved.Form.picGraph[2]);
    Lines shown;
    for (const TextFigure& text : texts) {
        shown.push_back(text.Text);
    }
    EXPECT_EQ(shown, (Lines{"Graphical Representation", std::string(36, '-'), "Station 1", "Bench",
                            "Qty: 1", "Task 1", "Station 2", "Robot A", "Qty: 12", "Tasks 2-8",
                            "Station 3", "Assembler", "Qty: 2", "Tasks 9-10"}));
    const auto icons = FiguresOf<IconFigure>(solved.Form.picGraph[2]);
    ASSERT_EQ(icons.size(), 3U);
    EXPECT_EQ(icons[0].Type, ResourceType::Manual);
    EXPECT_EQ(icons[1].Type, ResourceType::Automated);
    EXPECT_EQ(icons[2].Type, ResourceType::Fixed);
    EXPECT_LT(icons[0].X, icons[1].X);
    EXPECT_LT(icons[1].X, icons[2].X);
}

TEST(SummaryPicture, LeavesTheOtherPicturesEmpty) {
    SolvedLine solved(ThreeStations());
    for (Picture& picture : solved.Form.picGraph) {
        picture.Print("old");
    }
    solved.Write();
    EXPECT_TRUE(solved.Form.picGraph[1].Figures().empty());
    EXPECT_TRUE(solved.Form.picGraph[3].Figures().empty());
}

TEST(SummaryPicture, ShowsTheSameWhenWrittenAgain) {
    SolvedLine solved(ThreeStations());
    solved.Write();
    const auto summary = solved.Form.picGraph[0].Figures();
    const auto line = solved.Form.picGraph[2].Figures();
    solved.Write();
    EXPECT_EQ(solved.Form.picGraph[0].Figures(), summary);
    EXPECT_EQ(solved.Form.picGraph[2].Figures(), line);
}

}  // namespace
}  // namespace quarnel02
