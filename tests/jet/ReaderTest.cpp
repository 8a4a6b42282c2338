#include "jet/Reader.h"

#include <gtest/gtest.h>

#include "basic/RunTimeError.h"
#include "jet/ReadTables.h"
#include "jet/TinyOfEverything.h"

namespace quarnel02::jet {
namespace {

std::string Quoted(const std::string& text) {
    return '"' + text + '"';
}

TEST(ReaderTest, MoreContentThanAModelHasIsNamed) {
    TinyFile file(0);
    constexpr std::size_t part = 1000;
    // A chain that goes round brings its text as often as it is asked to.
    std::string field = file.LongFieldInParts(DigitText(part), part);
    const std::uint32_t itself = static_cast<unsigned char>(field[4]) |
                                 static_cast<unsigned>(static_cast<unsigned char>(field[5])) << 8U;
    TinyTable table{"Notes", {{"Id"}, TinyMemo("Note")}, {}};
    for (int i = 0; i < 150; ++i) {
        table.Rows.push_back({{Little(1, 4), Little(1000 * part, 4) + field.substr(4)}});
    }
    file.Add(table);
    std::string content = file.Content();
    const std::size_t link = content.find(Little(0, 4) + DigitText(part));
    ASSERT_NE(link, std::string::npos);
    content.replace(link, 4, Little(itself, 4));
    EXPECT_EQ(MessageOfReading(content),
              "line.mdb holds more than 64 MB of rows and texts, which no model does. Choose "
              "another file.");
}

TEST(ReaderTest, AComputedColumnIsNamedWhenItIsAskedFor) {
    TinyFile file(3);
    file.Add({"Parts", {{"Id"}, {"Sum", TypeCode::Double, 39, false, 0, 0xC0}}, {}});
    EXPECT_EQ(MessageOfReading(file.Content()),
              "line.mdb computes column Sum of table Parts, where a model holds values. Make it a "
              "column of values in Access.");
}

TEST(ReaderTest, LargeNumbersAndCompressedTextsAreRead) {
    TinyFile file(5);
    // narrow, wide from a byte 0 on, narrow again
    const std::string mixed(
        "\xFF\xFE"
        "ab\0\x03\x26\0cd",
        10);
    file.Add({"Parts",
              {{"Big", TypeCode::BigInteger, 8}, TinyText("Text")},
              {{{Little(0x8000000000000000U, 8), mixed}}, {{{}, "\xFF\xFE"}}}});
    Reader reader(FileContent{file.Content()}, "x");
    EXPECT_EQ(TextOf(ReadWhole(reader, "Parts").Rows),
              "-9223372036854775808|\"ab\xE2\x98\x83"
              "cd\"\nNull|\"\"\n");
}

TEST(ReaderTest, TextsOfAccess97AreInTheirCodePage) {
    const auto text_in = [](unsigned code_page, const std::string& bytes) {
        TinyFile file(0, code_page);
        file.Add({"Texts", {TinyText("Text")}, {{{bytes}}}});
        Reader reader(FileContent{file.Content()}, "line.mdb");
        return TextOf(ReadWhole(reader, "Texts").Rows);
    };
    EXPECT_EQ(text_in(1252, "M\xFC\x80"), "\"Mü€\"\n");
    EXPECT_EQ(text_in(0, "M\xFC\x80"), "\"Mü€\"\n");
    EXPECT_EQ(text_in(1253, "\xD9\xEC\xDD"), "\"Ωμέ\"\n");
    EXPECT_EQ(text_in(1250, "\xA3\xF3"), "\"Łó\"\n");
    EXPECT_EQ(text_in(932, "\x91\x67\x97\xA7"), "\"組立\"\n");
    EXPECT_EQ(text_in(936, "\xD6\xD0\xCE\xC4"), "\"中文\"\n");
    EXPECT_EQ(text_in(1252, "a\x81"), "\"a\xEF\xBF\xBD\"\n");
    EXPECT_EQ(text_in(1252, DigitText(255)), Quoted(DigitText(255)) + "\n");
}

TEST(ReaderTest, RowsOfAccess97MayBeLongerThanAByteCounts) {
    for (std::size_t length = 230; length <= 255; ++length) {
        TinyFile file(0);
        file.Add({"Texts", {{"Id"}, TinyText("Text")}, {{{Little(7, 4), DigitText(length)}}}});
        Reader reader(FileContent{file.Content()}, "line.mdb");
        EXPECT_EQ(TextOf(ReadWhole(reader, "Texts").Rows), "7|" + Quoted(DigitText(length)) + "\n");
    }
}

TEST(ReaderTest, AMovedRowThatWasDeletedIsNotLookedFor) {
    TinyFile file(0);
    constexpr std::size_t rows_page = 5;
    // The bytes of the moved row are those of a pointer to the second one.
    file.Add({"Parts",
              {{"Id"}},
              {{{Little(9, 4)}}, {{Little(10, 4)}}, {{Little(rows_page, 4)}, TinyPlace::Moved}}});
    std::string content = file.Content();
    EXPECT_EQ(MessageOfReading(content), "");
    char& flags = content[rows_page * kJet3.PageSize + kJet3.RowCountAt + 2 + 2 * 2 + 1];
    ASSERT_EQ(static_cast<unsigned char>(flags) & 0xC0U, 0x80U);
    flags = static_cast<char>(static_cast<unsigned char>(flags) | 0x40U);
    EXPECT_EQ(MessageOfReading(content),
              "line.mdb is damaged in table Parts. Repair it in Access (Compact and Repair "
              "Database), or use another copy.");
}

TEST(ReaderTest, AnUnknownCodePageIsNamed) {
    const TinyFile file(0, 9999);
    EXPECT_EQ(MessageOfReading(file.Content()),
              "line.mdb holds texts in code page 9999, which is not known here. Save it in Access "
              "as an Access 2002-2003 database (.mdb).");
}

TEST(ReaderTest, AnUnknownVersionIsNamed) {
    std::string content = EverythingFile(1).Content();
    content[0x14] = 7;
    EXPECT_EQ(MessageOfReading(content),
              "line.mdb was made by a version of Access that this program does not know. Save it "
              "in Access as an Access 2002-2003 database (.mdb).");
}

TEST(ReaderTest, OtherFilesAreNoDatabases) {
    for (const char* content : {"", "SQLite format 3", "PK\3\4", "Standard Jet DB"}) {
        EXPECT_EQ(MessageOfReading(content),
                  "line.mdb is not an Access database. Choose another file.");
    }
    EXPECT_EQ(MessageOfReading(EverythingFile(0).Content().substr(0, 100)),
              "line.mdb is cut short. Use another copy of it.");
}

TEST(ReaderTest, RowsThatAreMissingAreDamage) {
    TinyFile file(1);
    file.Add({"Parts", {{"Id"}}, {{{Little(1, 4)}}, {{Little(2, 4)}}}});
    std::string content = file.Content();
    const std::size_t page = content.find(Little(0x101, 2), 5 * kJet4.PageSize);
    ASSERT_EQ(content.substr(page + 12, 2), Little(2, 2));
    content.replace(page + 12, 2, Little(1, 2));
    EXPECT_EQ(MessageOfReading(content),
              "line.mdb is damaged in table Parts. Repair it in Access (Compact and Repair "
              "Database), or use another copy.");
}

}  // namespace
}  // namespace quarnel02::jet
