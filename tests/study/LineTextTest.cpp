#include "study/LineText.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/ModelScript.h"

namespace quarnel02 {
namespace {

LineModel Named() {
    test::ModelScript model;
    model.Resources = {{" Bench "}, {"   "}};
    return model.Model();
}

TEST(LineText, NamesStationsQuantityAndTasks) {
    const std::vector<StationGroup> groups = {{1, 1, 8, 1}, {2, 9, 12, 2}, {1, 13, 13, 1}};
    EXPECT_EQ(LineText(Named(), groups), "Bench 1-8; Resource 2 x2 9-12; Bench 13");
}

TEST(LineText, OfNoStationsIsEmpty) {
    EXPECT_EQ(LineText(Named(), {}), "");
}

}  // namespace
}  // namespace quarnel02
