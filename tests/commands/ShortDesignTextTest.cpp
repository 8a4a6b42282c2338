// A design in one line: what it was made for, what it costs and how long it took.
#include <gtest/gtest.h>

#include <chrono>

#include "commands/ResultMarks.h"

namespace quarnel02 {
namespace {

TEST(ShortDesignText, NamesTheTimeInItsUnit) {
    using std::chrono::milliseconds;
    const auto text = [](milliseconds took) {
        DesignMade design{"2 shifts, 60,000 units a year", "Pump", {}, 0};
        design.Cost = "$202,004";
        design.Took = took;
        return ShortDesignText(design);
    };
    const std::string head = "2 shifts, 60,000 units a year: $202,004 in ";
    EXPECT_EQ(text(milliseconds(0)), head + "1 ms");
    EXPECT_EQ(text(milliseconds(999)), head + "999 ms");
    EXPECT_EQ(text(milliseconds(1000)), head + "1.0 s");
    EXPECT_EQ(text(milliseconds(9940)), head + "9.9 s");
    EXPECT_EQ(text(milliseconds(75200)), head + "75 s");
}

}  // namespace
}  // namespace quarnel02
