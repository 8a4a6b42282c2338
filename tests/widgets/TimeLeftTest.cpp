#include "widgets/TimeLeft.h"

#include <gtest/gtest.h>

namespace quarnel02 {
namespace {

using namespace std::chrono_literals;

TEST(TimeLeft, IsWhatTheRestTakesAtTheSameSpeed) {
    EXPECT_EQ(TimeLeftText(0.25, 4s).toStdString(), "About 12 s left");
    EXPECT_EQ(TimeLeftText(0.5, 59500ms).toStdString(), "About 60 s left");
    EXPECT_EQ(TimeLeftText(0.9, 1100ms).toStdString(), "About 1 s left");
    EXPECT_EQ(TimeLeftText(1, 30s).toStdString(), "About 0 s left");
}

TEST(TimeLeft, LongTimesAreMinutes) {
    EXPECT_EQ(TimeLeftText(0.1, 13s).toStdString(), "About 117 s left");
    EXPECT_EQ(TimeLeftText(0.1, 20s).toStdString(), "About 3 min left");
}

TEST(TimeLeft, NothingIsSaidTooEarly) {
    EXPECT_EQ(TimeLeftText(0.019, 5s).toStdString(), "");
    EXPECT_EQ(TimeLeftText(0.5, 999ms).toStdString(), "");
    EXPECT_EQ(TimeLeftText(0, 60s).toStdString(), "");
}

}  // namespace
}  // namespace quarnel02
