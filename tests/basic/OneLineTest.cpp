// Texts as one line without control characters.
#include "basic/OneLine.h"

#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <string>

namespace quarnel02 {
namespace {

TEST(OneLine, LeavesPlainTextsAsTheyAre) {
    for (const char* text : {"", "   ", "Fit the seal", "  two  blanks  ", "Gehäuse – Ø 40 µm €"}) {
        EXPECT_EQ(OneLine(text), text);
    }
}

TEST(OneLine, LosesBreaksTabsAndNoBreakBlanksAtTheEnds) {
    EXPECT_EQ(OneLine("Fit seal\r\n"), "Fit seal");
    EXPECT_EQ(OneLine("\t\n Fit seal \t"), "Fit seal");
    EXPECT_EQ(OneLine("\xC2\xA0"
                      "Fit seal\xE2\x80\xAF\xC2\xA0"),
              "Fit seal");
    EXPECT_EQ(OneLine(" \r\n\t\xC2\xA0 "), "");
}

TEST(OneLine, KeepsPlainBlanksAtTheEnds) {
    EXPECT_EQ(OneLine("  Fit\tseal "), "  Fit seal ");
}

TEST(OneLine, MakesEachRunInsideOneBlank) {
    EXPECT_EQ(OneLine("Fit\r\nthe\tseal"), "Fit the seal");
    EXPECT_EQ(OneLine("Fit \t \r\n\r\n seal"), "Fit seal");
    EXPECT_EQ(OneLine("12\xC2\xA0"
                      "500\xE2\x80\xA8"
                      "a\xE2\x80\xA9"
                      "b\xE2\x80\x87"
                      "c"),
              "12 500 a b c");
}

TEST(OneLine, HoldsNoControlCharacterOfAnyKind) {
    for (int code = 0; code < 0x20; ++code) {
        EXPECT_EQ(OneLine(std::string("a") + static_cast<char>(code) + "b"), "a b") << code;
    }
    EXPECT_EQ(OneLine("a\x7F"
                      "b"),
              "a b");
    EXPECT_EQ(OneLine("a\xC2\x80"
                      "b\xC2\x85"
                      "c\xC2\x9F"
                      "d"),
              "a b c d");
    EXPECT_EQ(OneLine("a\xC2\xA1"
                      "b"),
              "a\xC2\xA1"
              "b");
    EXPECT_EQ(OneLine("\xEF\xBB\xBF"
                      "first"),
              "first");
    EXPECT_EQ(OneLine("cut short \xC2"), "cut short \xC2");
}

TEST(OneLine, OfAnyTextIsItsOwnOneLine) {
    EXPECT_TRUE(rc::check([](const std::string& text) {
        const std::string line = OneLine(text);
        RC_ASSERT(OneLine(line) == line);
    }));
}

}  // namespace
}  // namespace quarnel02
