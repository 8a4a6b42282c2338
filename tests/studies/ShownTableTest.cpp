#include "studies/ShownTable.h"

#include <gtest/gtest.h>

namespace quarnel02 {
namespace {

const ShownTable kTable{
    "Lines",
    {{"Line"}, {"Cost", true}, {"Load (%)", true}},
    {{TextCell("Bench 1-8; \"Big\" x2, 9"), DollarCell(1234.5625), PercentCell(0.875)},
     {TextCell("Total"), DollarCell(-5), {}}}};

TEST(ShownTable, RoundsWhatIsShownAndNothingElse) {
    EXPECT_EQ(kTable.Rows[0][1].Text, "$1,235");
    EXPECT_EQ(kTable.Rows[0][2].Text, "87.5");
    EXPECT_EQ(PlainTexts(kTable.Rows[0]),
              (std::vector<std::string>{"Bench 1-8; \"Big\" x2, 9", "1234.5625", "87.5"}));
    EXPECT_EQ(CentsCell(3.174).Text, "$3.17");
    EXPECT_EQ(HundredthsCell(0).Text, "0.00");
    EXPECT_EQ(WholeCell(1234567).Text, "1,234,567");
}

TEST(ShownTable, HasItsHeadingsOnTheClipboardAndInCsv) {
    EXPECT_EQ(WriteTabbed(BlockOf(kTable)),
              "Line\tCost\tLoad (%)\nBench 1-8; \"Big\" x2, 9\t1234.5625\t87.5\nTotal\t-5\t\n");
    EXPECT_EQ(CsvOf(kTable),
              "Line,Cost,Load (%)\n\"Bench 1-8; \"\"Big\"\" x2, 9\",1234.5625,87.5\nTotal,-5,\n");
}

TEST(ShownTable, IsASheetOfNumbers) {
    const Sheet sheet = SheetOf(kTable);
    EXPECT_EQ(sheet.Name, "Lines");
    ASSERT_EQ(sheet.Cells.size(), 3U);
    EXPECT_EQ(sheet.Cells[0][1], Value("Cost"));
    EXPECT_EQ(sheet.Cells[1][1], Value(1234.5625));
    EXPECT_TRUE(IsNull(sheet.Cells[2][2]));
}

}  // namespace
}  // namespace quarnel02
