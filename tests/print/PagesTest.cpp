// Where page breaks fall.
#include "print/Pages.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <string>

namespace quarnel02 {
namespace {

constexpr double kBody = 100;

/// Pages as the heights of their blocks and where they stand: "60@0 30@70".
std::vector<std::string> Placed(const std::vector<Block>& blocks) {
    std::vector<std::string> pages;
    for (const PlacedPage& page : PagesOf(blocks, kBody)) {
        std::string text;
        for (const PlacedBlock& each : page) {
            text += (text.empty() ? "" : " ") +
                    std::to_string(static_cast<int>(each.What->Height)) + "@" +
                    std::to_string(static_cast<int>(each.Top));
        }
        pages.push_back(text);
    }
    return pages;
}

using Pages = std::vector<std::string>;

TEST(PagesOf, FillsPagesInOrderWithGapsBetween) {
    EXPECT_EQ(Placed({{60, 10}, {20, 10}, {30, 10}, {70, 0}}), (Pages{"60@0 20@70", "30@0 70@30"}));
}

TEST(PagesOf, NothingIsOnePage) {
    EXPECT_EQ(Placed({}), Pages{""});
}

TEST(PagesOf, AHeadingGoesWithWhatFollows) {
    EXPECT_EQ(Placed({{80, 0}, {10, 0, true}, {20, 0}}), (Pages{"80@0", "10@0 20@10"}));
    EXPECT_EQ(Placed({{70, 0}, {10, 0, true}, {20, 0}}), (Pages{"70@0 10@70 20@80"}));
}

TEST(PagesOf, WhatIsTogetherTooHighForAPageIsBroken) {
    EXPECT_EQ(Placed({{50, 0, true}, {40, 0, true}, {30, 0}}), (Pages{"50@0 40@50", "30@0"}));
}

TEST(PagesOf, ABlockHigherThanAPageHasOneToItself) {
    EXPECT_EQ(Placed({{10, 0}, {150, 0}, {10, 0}}), (Pages{"10@0", "150@0", "10@0"}));
}

TEST(PagesOf, AHeadIsRepeatedOverTheRowsOfFurtherPages) {
    const auto head = std::make_shared<const Block>(Block{15, 0});
    std::vector<Block> blocks = {{40, 0}, {15, 5, true}};
    blocks.insert(blocks.end(), 4, Block{25, 0, false, head});
    EXPECT_EQ(Placed(blocks), (Pages{"40@0 15@45 25@60", "15@0 25@15 25@40 25@65"}));
}

RC_GTEST_PROP(PagesOfRandomBlocks, KeepOrderAndCutNothing, ()) {
    const auto head = std::make_shared<const Block>(Block{9, 0});
    std::vector<Block> blocks;
    const auto count = *rc::gen::inRange(1, 60);
    for (int i = 0; i < count; ++i) {
        Block block{static_cast<double>(*rc::gen::inRange(1, 60)),
                    static_cast<double>(*rc::gen::inRange(0, 10))};
        block.WithNext = *rc::gen::inRange(0, 5) == 0;
        block.Head = *rc::gen::inRange(0, 2) == 0 ? head : nullptr;
        blocks.push_back(block);
    }
    std::size_t next = 0;
    for (const PlacedPage& page : PagesOf(blocks, kBody)) {
        double used = 0;
        RC_ASSERT(!page.empty());
        for (const PlacedBlock& each : page) {
            RC_ASSERT(each.Top >= used);
            used = each.Top + each.What->Height;
            RC_ASSERT(used <= kBody);
            if (each.What == head.get()) {
                RC_ASSERT(blocks[next].Head == head);
                continue;
            }
            RC_ASSERT(each.What == &blocks[next]);
            RC_ASSERT(each.Top > 0 || !each.What->Head);
            ++next;
        }
    }
    RC_ASSERT(next == blocks.size());
}

}  // namespace
}  // namespace quarnel02
