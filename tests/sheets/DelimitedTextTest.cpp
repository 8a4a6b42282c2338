#include "sheets/DelimitedText.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <chrono>

namespace quarnel02 {
namespace {

using Strings = std::vector<std::string>;

TEST(TabbedText, IsReadCellByCell) {
    EXPECT_EQ(ReadTabbed("a\tb\nc\td\n"), (TextBlock{{"a", "b"}, {"c", "d"}}));
    EXPECT_EQ(ReadTabbed("a\tb\r\nc\td\r\n"), (TextBlock{{"a", "b"}, {"c", "d"}}));
    EXPECT_EQ(ReadTabbed("a\rb"), (TextBlock{{"a"}, {"b"}}));
}

TEST(TabbedText, TheLastLineBreakAddsNoRowAndAnEmptyLineIsOne) {
    EXPECT_EQ(ReadTabbed("a"), (TextBlock{{"a"}}));
    EXPECT_EQ(ReadTabbed("a\n\n"), (TextBlock{{"a"}, {""}}));
    EXPECT_EQ(ReadTabbed("\n"), (TextBlock{{""}}));
    EXPECT_EQ(ReadTabbed(""), TextBlock());
}

TEST(TabbedText, KeepsEmptyCellsAtBothEndsOfARow) {
    EXPECT_EQ(ReadTabbed("\ta\t\t\n"), (TextBlock{{"", "a", "", ""}}));
    EXPECT_EQ(ReadTabbed("a\t"), (TextBlock{{"a", ""}}));
}

TEST(TabbedText, AQuotedCellHoldsTabsBreaksAndQuotes) {
    EXPECT_EQ(ReadTabbed("\"a\tb\"\t\"c\nd\r\ne\"\n"), (TextBlock{{"a\tb", "c\nd\r\ne"}}));
    EXPECT_EQ(ReadTabbed("\"say \"\"yes\"\"\"\tx"), (TextBlock{{"say \"yes\"", "x"}}));
    EXPECT_EQ(ReadTabbed("\"\"\tx"), (TextBlock{{"", "x"}}));
}

TEST(TabbedText, AnyOtherQuoteStandsForItself) {
    EXPECT_EQ(ReadTabbed("5\" pipe\tx"), (TextBlock{{"5\" pipe", "x"}}));
    EXPECT_EQ(ReadTabbed("\"long\" screw\tx\n"), (TextBlock{{"\"long\" screw", "x"}}));
    EXPECT_EQ(ReadTabbed("\"open\tx\ny"), (TextBlock{{"\"open", "x"}, {"y"}}));
}

std::size_t CellsIn(const TextBlock& block) {
    std::size_t cells = 0;
    for (const auto& row : block) {
        cells += row.size();
    }
    return cells;
}

TEST(TabbedText, ItsCellsAreCountedWithoutReadingIt) {
    for (const std::string text :
         {"", "a", "\t", "a\tb\nc", "a\tb\r\nc\td\r\n", "a\rb", "a\r\rb\n\n", "\r\n", "a\n\rb"}) {
        EXPECT_EQ(MostCellsIn(text), CellsIn(ReadTabbed(text))) << testing::PrintToString(text);
    }
    EXPECT_EQ(MostCellsIn("\"a\tb\""), 2U);
}

RC_GTEST_PROP(TabbedText, NeverHasMoreCellsThanAreCounted, ()) {
    const auto text =
        *rc::gen::container<std::string>(rc::gen::element('a', '"', '\t', '\r', '\n'));
    RC_ASSERT(CellsIn(ReadTabbed(text)) <= MostCellsIn(text));
}

TEST(TabbedText, IsWrittenAsSpreadsheetsDo) {
    EXPECT_EQ(WriteTabbed({{"a", "", "5\" pipe"}, {"b\tc", "d\ne", "\"f\""}}),
              "a\t\t5\" pipe\n\"b\tc\"\t\"d\ne\"\t\"\"\"f\"\"\"\n");
}

rc::Gen<std::string> AnyCell() {
    return rc::gen::container<std::string>(
        rc::gen::element('a', '1', ',', ';', '.', ' ', '"', '"', '\t', '\n', '\r', '|'));
}

template <class Cell>
rc::Gen<std::vector<std::vector<Cell>>> AnyRows(const rc::Gen<Cell>& cell) {
    return rc::gen::container<std::vector<std::vector<Cell>>>(
        rc::gen::nonEmpty(rc::gen::container<std::vector<Cell>>(cell)));
}

RC_GTEST_PROP(TabbedText, AnyBlockComesBack, ()) {
    const TextBlock block = *AnyRows(AnyCell());
    RC_ASSERT(ReadTabbed(WriteTabbed(block)) == block);
}

RC_GTEST_PROP(TabbedText, AnyTextIsRead, (const std::string& text)) {
    const TextBlock block = ReadTabbed(text);
    RC_ASSERT(ReadTabbed(WriteTabbed(block)) == block);
}

TEST(CsvText, TellsNothingFromTheEmptyText) {
    EXPECT_EQ(ReadCsv("a,,\"\"\n"), (CsvRows{{"a", std::nullopt, ""}}));
    EXPECT_EQ(WriteCsv({{"a", std::nullopt, ""}}), "a,,\"\"\n");
}

TEST(CsvText, FindsItsSeparatorInTheFirstLine) {
    EXPECT_EQ(ReadCsv("Number;Description\n1;\"a;b\"\n"),
              (CsvRows{{"Number", "Description"}, {"1", "a;b"}}));
    EXPECT_EQ(ReadCsv("Number\tDescription, long\n1\tx,y\n"),
              (CsvRows{{"Number", "Description, long"}, {"1", "x,y"}}));
    EXPECT_EQ(ReadCsv("\"a;b;c\",d\n"), (CsvRows{{"a;b;c", "d"}}));
}

TEST(CsvText, AFirstCellThatBeginsWithAByteOrderMarkIsQuoted) {
    const CsvRows rows = {{"\xEF\xBB\xBFname", "u"}};
    EXPECT_EQ(ReadCsv(WriteCsv(rows)), rows);
}

TEST(CsvText, PassesOverTheByteOrderMark) {
    EXPECT_EQ(ReadCsv("\xEF\xBB\xBFProduct,Pump\n"), (CsvRows{{"Product", "Pump"}}));
}

RC_GTEST_PROP(CsvText, AnyRowsUnderAHeadingComeBack, ()) {
    CsvRows rows = *AnyRows(rc::gen::oneOf(
        rc::gen::just(CsvCell()),
        rc::gen::map(AnyCell(), [](std::string text) { return CsvCell(std::move(text)); })));
    rows.insert(rows.begin(), {"Number", "Description", "Type"});
    RC_ASSERT(ReadCsv(WriteCsv(rows)) == rows);
}

/// Ten thousand cells take a few milliseconds; a reader that looks twice at each rest takes
/// minutes.
TEST(TabbedText, TenThousandCellsAreFast) {
    TextBlock block(100, Strings(100, "\"12.5\t| 3\n| 400"));
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(ReadTabbed(WriteTabbed(block)), block);
    block.assign(100, Strings(100, "\"x"));
    std::string open_quotes;
    for (int cell = 0; cell < 10000; ++cell) {
        open_quotes += cell % 100 == 99 ? "\"x\n" : "\"x\t";
    }
    EXPECT_EQ(ReadTabbed(open_quotes), block);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
}

}  // namespace
}  // namespace quarnel02
