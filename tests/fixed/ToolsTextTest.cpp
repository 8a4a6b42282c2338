#include "fixed/ToolsText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quarnel02 {
namespace {

/// Tools text of tasks that use these tools.
std::string TextOf(const std::vector<int>& tools) {
    std::vector<MatrixEntry> tasks;
    for (const int tool : tools) {
        tasks.push_back({10, tool, 0});
    }
    return ToolsText(tasks);
}

TEST(ToolsText, ListsARunOfEqualToolsOnce) {
    EXPECT_EQ(TextOf({5, 5, 5}), " 5");
    EXPECT_EQ(TextOf({1, 1, 2, 2, 1}), " 1 2 1");
    EXPECT_EQ(TextOf({13}), " 13");
}

TEST(ToolsText, ShowsToolZero) {
    EXPECT_EQ(TextOf({0, 0, 3}), " 0 3");
}

TEST(SplitToolsText, KeepsTwelveCharactersWhole) {
    const SplitText text = SplitToolsText(" 1 2 3 4 5 6");
    EXPECT_FALSE(text.Split);
    EXPECT_EQ(text.First, " 1 2 3 4 5 6");
}

TEST(SplitToolsText, SplitsThirteenBehindTheFirstBlankFromTheEleventh) {
    // Characters 10 and 11: "5" and a blank.
    const SplitText text = SplitToolsText(" 1 2 3 4 5 66");
    EXPECT_TRUE(text.Split);
    EXPECT_EQ(text.First, " 1 2 3 4 5 ");
    EXPECT_EQ(text.Rest, "66");
}

TEST(SplitToolsText, SearchesOnWhenTheEleventhIsNoBlank) {
    const SplitText text = SplitToolsText(" 1 2 3 4 55 6 7");
    EXPECT_EQ(text.First, " 1 2 3 4 55 ");
    EXPECT_EQ(text.Rest, "6 7");
}

TEST(SplitToolsText, SplitsAtTheEndWithoutABlank) {
    const SplitText text = SplitToolsText(" 11 22 33 444");
    EXPECT_TRUE(text.Split);
    EXPECT_EQ(text.First, " 11 22 33 444");
    EXPECT_EQ(text.Rest, "");
}

TEST(SplitToolsText, SplitsOnlyOnce) {
    const SplitText text = SplitToolsText(" 1 2 3 4 5 6 7 8 9 1 2 3 4 5 6 7 8 9");
    EXPECT_EQ(text.First, " 1 2 3 4 5 ");
    EXPECT_EQ(text.Rest, "6 7 8 9 1 2 3 4 5 6 7 8 9");
}

TEST(TasksText, ShowsOneTaskAloneAndMoreAsARange) {
    EXPECT_EQ(TasksText(3, 4), "3");
    EXPECT_EQ(TasksText(3, 5), "3-4");
    EXPECT_EQ(TasksText(1, 256), "1-255");
}

}  // namespace
}  // namespace quarnel02
