#include "fixed/CostModel.h"

#include <gtest/gtest.h>

#include <vector>

namespace quarnel02 {
namespace {

TEST(ToolCostSum, PaysASharedToolOnce) {
    const std::vector<MatrixEntry> entries = {{30, 1, 500}, {20, 1, 700}};
    EXPECT_EQ(ToolCostSum(entries), 500.0F);
}

}  // namespace
}  // namespace quarnel02
