#include "fixed/ToolsText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/ModelScript.h"
#include "support/RunTimeErrors.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ModelScript;
using test::TestModel;

/// Tools text of tasks first to last on resource 1, whose tasks use these tools.
std::string TextOf(const std::vector<int>& tools, int first, int last) {
    ModelScript model;
    model.Tasks = static_cast<int>(tools.size());
    model.Resources.resize(1);
    int task = 0;
    for (const int tool : tools) {
        model.Matrix.push_back({1, ++task, 10, tool});
    }
    const TestModel copy(model.Sql());
    return ToolsText(copy.Open(), 1, first, last);
}

TEST(ToolsText, ListsARunOfEqualToolsOnce) {
    EXPECT_EQ(TextOf({5, 5, 5}, 1, 3), " 5");
    EXPECT_EQ(TextOf({1, 1, 2, 2, 1}, 1, 5), " 1 2 1");
}

TEST(ToolsText, ListsOnlyTheTasksAskedFor) {
    EXPECT_EQ(TextOf({1, 2, 13, 4}, 2, 3), " 2 13");
    EXPECT_EQ(TextOf({1, 2, 13, 4}, 4, 4), " 4");
}

TEST(ToolsText, ShowsToolZero) {
    EXPECT_EQ(TextOf({0, 0, 3}, 1, 3), " 0 3");
}

TEST(ToolsText, NeedsAMatrixRowForEveryTask) {
    test::ExpectRunTimeError(ErrorKind::NoCurrentRecord, [] { TextOf({1, 2}, 1, 3); });
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
