#include "study/LineText.h"

#include <gtest/gtest.h>

#include <vector>

namespace quarnel02 {
namespace {

LineModel Named() {
    Resource bench;
    bench.Number = 1;
    bench.ShortName = " Bench ";
    Resource nameless;
    nameless.Number = 2;
    nameless.ShortName = "   ";
    return {{}, {bench, nameless}, {}, {}, {}};
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
