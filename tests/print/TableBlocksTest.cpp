// Tables as blocks of a page: widths of columns and heights of rows.
#include "print/TableBlocks.h"

#include <gtest/gtest.h>

#include <numeric>

namespace quarnel02 {
namespace {

using Widths = std::vector<double>;

TEST(SharedWidths, AreThoseWantedWhereTheyFit) {
    EXPECT_EQ(SharedWidths(Widths{100, 200, 300}, 600), (Widths{100, 200, 300}));
}

TEST(SharedWidths, LeaveNarrowColumnsAloneAndShareTheRest) {
    EXPECT_EQ(SharedWidths(Widths{100, 900, 150, 2000}, 1000), (Widths{100, 375, 150, 375}));
}

TEST(SharedWidths, NeverAddUpToMoreThanTheRoom) {
    const Widths widths = SharedWidths(Widths(30, 500), 1000);
    EXPECT_NEAR(std::accumulate(widths.begin(), widths.end(), 0.0), 1000, 1e-6);
}

constexpr PaperBody kBody{9000, 12000};

TEST(TableBlocks, StandUnderAHeadThatIsRepeated) {
    const auto blocks = TableBlocks({{{"Name"}, {"Cost", true}}, {{"a", "1"}, {"b", "2"}}}, kBody);
    ASSERT_EQ(blocks.size(), 3U);
    EXPECT_TRUE(blocks[0].WithNext);
    EXPECT_EQ(blocks[0].Head, nullptr);
    EXPECT_NE(blocks[1].Head, nullptr);
    EXPECT_EQ(blocks[1].Head, blocks[2].Head);
}

TEST(TableBlocks, WrapLongCells) {
    std::string text;
    for (int i = 0; i < 40; ++i) {
        text += "some words ";
    }
    const auto blocks = TableBlocks({{{"Name"}, {"Text"}}, {{"a", "b"}, {"a", text}}}, kBody);
    EXPECT_GT(blocks[2].Height, 2 * blocks[1].Height);
}

TEST(TableBlocks, PartARowThatIsHigherThanHalfAPage) {
    std::string text;
    for (int i = 0; i < 4000; ++i) {
        text += "word ";
    }
    const auto blocks = TableBlocks({{{"Text"}}, {{text}}}, kBody);
    ASSERT_GT(blocks.size(), 3U);
    for (const Block& block : blocks) {
        EXPECT_LE(block.Height, 0.6 * kBody.Height);
    }
}

TEST(TableBlocks, OfNoColumnsAreNone) {
    EXPECT_TRUE(TableBlocks({}, kBody).empty());
}

}  // namespace
}  // namespace quarnel02
