#include "line/Network.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using Ways = std::vector<Way>;
using Chain = std::vector<int>;

TEST(CheapestLabels, AddUpFromTheStart) {
    const Ways ways = {{1, 1, 2, 10}, {2, 1, 3, 50}, {3, 2, 3, 30}, {4, 3, 4, 5}};
    const std::vector<NodeLabel> labels = CheapestLabels(ways, 4);
    ASSERT_EQ(labels.size(), 3U);
    EXPECT_EQ(labels[0], (NodeLabel{2, 1, 1, 10}));
    EXPECT_EQ(labels[1], (NodeLabel{3, 3, 2, 40}));
    EXPECT_EQ(labels[2], (NodeLabel{4, 4, 3, 45}));
    EXPECT_EQ(ChainTo(labels, 4), (Chain{1, 3, 4}));
    EXPECT_EQ(ChainTo(labels, 2), (Chain{1}));
    EXPECT_TRUE(ChainTo(labels, 1).empty());
}

TEST(CheapestLabels, KeepTheFirstOfEqualWays) {
    const Ways ways = {{1, 1, 2, 10}, {2, 1, 3, 40}, {3, 2, 3, 30}};
    EXPECT_EQ(CheapestLabels(ways, 3)[1], (NodeLabel{3, 2, 1, 40}));
}

TEST(CheapestLabels, ReachNodesAtNoCost) {
    const Ways ways = {{1, 1, 2, 0}, {2, 2, 3, 0}};
    const std::vector<NodeLabel> labels = CheapestLabels(ways, 3);
    EXPECT_TRUE(labels[1].IsReached());
    EXPECT_EQ(ChainTo(labels, 3), (Chain{1, 2}));
}

TEST(CheapestLabels, PassOverWaysFromNodesThatAreNotReached) {
    const Ways ways = {{1, 2, 3, 1}, {2, 1, 4, 90}, {3, 3, 4, 1}};
    const std::vector<NodeLabel> labels = CheapestLabels(ways, 5);
    EXPECT_FALSE(labels[0].IsReached());
    EXPECT_FALSE(labels[1].IsReached());
    EXPECT_EQ(labels[2], (NodeLabel{4, 2, 1, 90}));
    EXPECT_FALSE(labels[3].IsReached());
    EXPECT_EQ(labels[3].Node, 5);
    EXPECT_TRUE(ChainTo(labels, 5).empty());
    EXPECT_TRUE(CheapestLabels({}, 1).empty());
}

TEST(CheapestLabels, AreSingles) {
    // 16777217 is no single; neither is the sum.
    const Ways ways = {{1, 1, 2, 16777216}, {2, 2, 3, 1}};
    EXPECT_EQ(CheapestLabels(ways, 3)[1].Cost, 16777216.0F);
    const Ways vast = {{1, 1, 2, 3e38}, {2, 2, 3, 3e38}};
    test::ExpectRunTimeError(ErrorKind::Overflow, [&] { CheapestLabels(vast, 3); });
}

}  // namespace
}  // namespace quarnel02
