#include "basic/LinePrinter.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace quarnel02 {
namespace {

struct Printed {
    TextLines Lines;
    LinePrinter Printer{Lines};
    [[nodiscard]] const std::string& Text() const { return Lines.Text(); }
};

TEST(LinePrinter, WritesNumbersWithBlanksAroundThem) {
    Printed out;
    out.Printer.Print(5, -3, 2.5);
    EXPECT_EQ(out.Text(), " 5 -3  2.5 \n");
}

TEST(LinePrinter, WritesEveryKindOfNumber) {
    Printed out;
    out.Printer.Print(std::int16_t{7}, std::int64_t{123456789}, 0, -0.25);
    EXPECT_EQ(out.Text(), " 7  123456789  0 -0.25 \n");
}

TEST(LinePrinter, WritesASingleWithItsSevenDigits) {
    Printed out;
    out.Printer.Print(33.3F);
    EXPECT_EQ(out.Text(), " 33.3 \n");
}

TEST(LinePrinter, WritesTextsAsTheyAre) {
    Printed out;
    out.Printer.Print("a", std::string(" b"), std::string_view("c "));
    EXPECT_EQ(out.Text(), "a bc \n");
}

TEST(LinePrinter, EndsALineWithoutItems) {
    Printed out;
    out.Printer.Print();
    out.Printer.Print("");
    out.Printer.Print(" ");
    EXPECT_EQ(out.Text(), "\n\n \n");
}

TEST(LinePrinter, TabsToColumnsCountedFromOne) {
    Printed out;
    out.Printer.Print("ab", Tab{6}, "c");
    EXPECT_EQ(out.Text(), "ab   c\n");
}

TEST(LinePrinter, StartsAColumnWhereItStands) {
    Printed out;
    out.Printer.Print("ab", Column{6}, "c", Column{8}, "d");
    EXPECT_EQ(out.Text(), "ab   c d\n");
}

TEST(LinePrinter, PushesAColumnThatIsTakenByOneBlank) {
    Printed out;
    out.Printer.Print("abcde", Column{6}, "f", Column{6}, "g");
    out.Printer.Print("a", Column{3}, "bcd", Column{5}, "e", Column{9}, "f");
    EXPECT_EQ(out.Text(), "abcde f g\na bcd e f\n");
}

TEST(LinePrinter, TakesTheBlankOfANumberForTheOneBetweenColumns) {
    Printed out;
    out.Printer.Print(Column{6}, 12, Column{10}, "fits", Column{14}, 3, Column{15}, "e");
    out.Printer.Print(1234, Column{5}, "over", Column{9}, -5);
    EXPECT_EQ(out.Text(), "      12 fits 3 e\n 1234 over -5 \n");
}

TEST(LinePrinter, PrintsNothingBetweenEmptyColumns) {
    Printed out;
    out.Printer.Print("abc", Column{2}, "", Column{3}, "d");
    out.Printer.Print("abc", Column{2});
    out.Printer.Print(Column{1}, "x");
    EXPECT_EQ(out.Text(), "abc d\nabc\nx\n");
}

TEST(LinePrinter, KeepsColumnsApartOverStatements) {
    Printed out;
    out.Printer.PrintOpen("abc", Column{3});
    out.Printer.Print("d");
    EXPECT_EQ(out.Text(), "abc d\n");
}

TEST(LinePrinter, PrintsABlankForAControlCharacter) {
    Printed out;
    out.Printer.Print("a\nb\tc\x7F", std::string("d\0e", 3), "\xC2\x85|\xC2\xA0|\xC3\xBC");
    EXPECT_EQ(out.Text(), "a b c d e |\xC2\xA0|\xC3\xBC\n");
}

TEST(LinePrinter, CountsTheBlankOfAControlCharacterAsOne) {
    Printed out;
    out.Printer.Print("a\nb\xC2\x85", Tab{6}, "c");
    EXPECT_EQ(out.Text(), "a b  c\n");
}

TEST(LinePrinter, TabToTheFirstColumnOfANewLineStays) {
    Printed out;
    out.Printer.Print(Tab{1}, "x");
    EXPECT_EQ(out.Text(), "x\n");
}

TEST(LinePrinter, TabToThePositionItselfStays) {
    Printed out;
    out.Printer.Print("abc", Tab{4}, "d");
    EXPECT_EQ(out.Text(), "abcd\n");
}

TEST(LinePrinter, TabBackContinuesOnTheNextLine) {
    Printed out;
    out.Printer.Print("abcd", Tab{4}, "e");
    EXPECT_EQ(out.Text(), "abcd\n   e\n");
}

TEST(LinePrinter, TabPadsWhenNothingFollows) {
    Printed out;
    out.Printer.Print("a", Tab{4});
    EXPECT_EQ(out.Text(), "a  \n");
}

TEST(LinePrinter, TrailingBlankOfANumberCounts) {
    Printed out;
    // " 123 " ends before column 6; the tab to 5 is beyond it.
    out.Printer.Print(123, Tab{5}, "x");
    out.Printer.Print(123, Tab{6}, "x");
    EXPECT_EQ(out.Text(), " 123 \n    x\n 123 x\n");
}

TEST(LinePrinter, ContinuesAnOpenLine) {
    Printed out;
    out.Printer.PrintOpen("Tools", Tab{8});
    EXPECT_EQ(out.Printer.Position(), 8);
    out.Printer.PrintOpen(" 1 2");
    EXPECT_EQ(out.Printer.Position(), 12);
    out.Printer.Print(" 3");
    EXPECT_EQ(out.Printer.Position(), 1);
    EXPECT_EQ(out.Text(), "Tools   1 2 3\n");
}

TEST(LinePrinter, TabBackAcrossOpenStatements) {
    Printed out;
    out.Printer.PrintOpen("123456789");
    out.Printer.Print(Tab{3}, "x");
    EXPECT_EQ(out.Text(), "123456789\n  x\n");
}

TEST(LinePrinter, CountsCodePointsAsOneColumn) {
    Printed out;
    out.Printer.Print("Prüfgerät", Tab{11}, "x");
    out.Printer.Print("€", Tab{3}, "x");
    EXPECT_EQ(out.Text(), "Prüfgerät x\n€ x\n");
}

TEST(LinePrinter, PrintsAStationLineInItsColumns) {
    Printed out;
    out.Printer.PrintOpen(1, Tab{6}, 12, Tab{10}, "Press", Tab{17}, 3, Tab{24}, "$64,336", Tab{35},
                          "30.00", Tab{44}, "1-2");
    out.Printer.Print(Tab{53}, " 4 5");
    EXPECT_EQ(out.Text(),
              std::string(" 1    12 Press   3     $64,336    30.00    1-2       4 5") + "\n");
}

TEST(LinePrinter, TellsItsSinkTheColumnOfEachText) {
    struct Columns : LineSink {
        void Write(int column, std::string_view text) override {
            Written.emplace_back(column, text);
        }
        void EndLine() override { Written.emplace_back(0, "end"); }
        std::vector<std::pair<int, std::string>> Written;
    } sink;
    LinePrinter printer(sink);
    printer.Print("ä", 5, Tab{8}, "x");
    const std::vector<std::pair<int, std::string>> expected = {
        {1, "ä"}, {2, " 5 "}, {5, "   "}, {8, "x"}, {0, "end"}};
    EXPECT_EQ(sink.Written, expected);
}

TEST(CharacterCount, CountsCodePoints) {
    EXPECT_EQ(CharacterCount(""), 0);
    EXPECT_EQ(CharacterCount("abc"), 3);
    EXPECT_EQ(CharacterCount("äöü"), 3);
    EXPECT_EQ(CharacterCount("€ \xF0\x9F\x94\xA7"), 3);
}

TEST(PrintedNumber, HasASignOrABlankInFront) {
    EXPECT_EQ(PrintedNumber(0), " 0 ");
    EXPECT_EQ(PrintedNumber(12.5), " 12.5 ");
    EXPECT_EQ(PrintedNumber(-12), "-12 ");
}

}  // namespace
}  // namespace quarnel02
