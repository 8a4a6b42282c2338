#include "basic/LinePrinter.h"

#include <gtest/gtest.h>

namespace quarnel02 {
namespace {

TEST(LinePrinter, WritesNumbersWithBlanksAroundThem) {
    TextLines lines;
    LinePrinter printer(lines);
    printer.Print(5, -3, 2.5);
    EXPECT_EQ(lines.Text(), " 5 -3  2.5 \n");
}

}  // namespace
}  // namespace quarnel02
