#include "jet/Writer.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

#include "basic/RunTimeError.h"
#include "jet/RandomModel.h"
#include "jet/ReadTables.h"

namespace quarnel02::jet {
namespace {

constexpr auto kLong = ColumnType::LongInteger;

std::string ReadBack(const NewTable& table) {
    Reader reader(FileContent{Written({table})}, "line.mdb");
    return TextOf(ReadWhole(reader, table.Name).Rows);
}

void ExpectRefused(const NewTable& table, ErrorKind kind, const std::string& why) {
    try {
        Written({table});
        ADD_FAILURE() << "written: " << why;
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Kind(), kind) << error.what();
        EXPECT_EQ(error.what(), "An Access database cannot hold the model: " + why);
    }
}

NewTable Tasks(Value description, int characters = 255) {
    return {"Tasks",
            {{"TaskId", kLong}, {"Description", ColumnType::Text, characters}},
            {{std::int64_t{1}, "Insert"}, {std::int64_t{2}, std::move(description)}}};
}

NewTable OneColumn(ColumnType type, std::vector<Value> values) {
    NewTable table{"Gen", {{"Days", type}}, {}};
    for (Value& value : values) {
        table.Rows.push_back({std::move(value)});
    }
    return table;
}

std::string Repeated(const std::string& text, int times) {
    std::string repeated;
    for (int i = 0; i < times; ++i) {
        repeated += text;
    }
    return repeated;
}

void ExpectSame(const std::vector<NewTable>& tables) {
    Reader reader(FileContent{Written(tables)}, "line.mdb");
    std::vector<DatabaseObject> objects;
    for (const NewTable& table : tables) {
        const ReadTable read = ReadWhole(reader, table.Name);
        EXPECT_EQ(read.Columns, table.Columns);
        EXPECT_EQ(TextOf(read.Rows), TextOf(table.Rows)) << table.Name;
        objects.push_back({ObjectKind::Table, table.Name});
    }
    EXPECT_EQ(reader.Objects(), objects);
}

TEST(WriterTest, EveryTypeComesBack) {
    constexpr std::int64_t one = 1;
    EXPECT_EQ(ReadBack(OneColumn(ColumnType::Byte, {one, std::int64_t{255}, {}})),
              "1\n255\nNull\n");
    EXPECT_EQ(ReadBack(OneColumn(ColumnType::Integer, {one, std::int64_t{-32768}, 32767.0})),
              "1\n-32768\n32767\n");
    EXPECT_EQ(ReadBack(OneColumn(kLong, {std::int64_t{-2147483648}, std::int64_t{2147483647}})),
              "-2147483648\n2147483647\n");
    EXPECT_EQ(ReadBack(OneColumn(ColumnType::Double, {0.1, 1e308, -5e-324, one, {}})),
              "0.1\n1e+308\n-5e-324\n1\nNull\n");
    EXPECT_EQ(ReadBack(OneColumn(ColumnType::Single, {0.5, 33.3, one})),
              "0.5\n33.29999923706055\n1\n");
    EXPECT_EQ(ReadBack(OneColumn(ColumnType::Currency, {25000.1234, -0.00005, one})),
              "25000.1234\n-1e-04\n1\n");
}

TEST(WriterTest, TextsOfEveryScriptComeBack) {
    const std::vector<std::string> texts = {"",
                                            "a",
                                            "ab",
                                            "Lager einfügen",
                                            "Ωμέγα",
                                            "組立工程",
                                            "Ā",
                                            "€",
                                            "\xF0\x9F\x94\xA7 tool",
                                            std::string("a\0b", 3),
                                            Repeated("x", 255),
                                            Repeated("Ü", 255),
                                            Repeated("組", 255)};
    for (const std::string& text : texts) {
        EXPECT_EQ(ReadBack(Tasks(text)), "1|\"Insert\"\n2|\"" + text + "\"\n");
    }
    EXPECT_EQ(ReadBack(Tasks({})), "1|\"Insert\"\n2|Null\n");
}

TEST(WriterTest, ATableMayBeEmpty) {
    ExpectSame(
        {{"Arcs", {{"ArcId", kLong}}, {}}, {"Demand", {{"Volume", ColumnType::Single}}, {}}});
    ExpectSame({});
}

TEST(WriterTest, RowsMayFillMorePagesThanARowOfBitsTellsOf) {
    constexpr std::size_t columns = 7;
    constexpr std::size_t rows = 600;  // one to a page, and 512 bits in a row
    NewTable table{"Tasks", {{"TaskId", kLong}}, {}};
    for (std::size_t i = 0; i < columns; ++i) {
        table.Columns.push_back({"Text" + std::to_string(i), ColumnType::Text});
    }
    for (std::size_t i = 0; i < rows; ++i) {
        Row row(columns + 1, Repeated("組", 255));
        row[0] = static_cast<std::int64_t>(i);
        table.Rows.push_back(std::move(row));
    }
    const std::string content = Written({table, Tasks("after")});
    EXPECT_GT(content.size(), rows * 4096);
    ExpectSame({table});
}

TEST(WriterTest, APageHoldsNoMoreRowsThanAPointerCanName) {
    const auto size = [](std::size_t rows) {
        return Written({OneColumn(ColumnType::Byte, std::vector<Value>(rows, std::int64_t{1}))})
            .size();
    };
    EXPECT_EQ(size(256), size(255) + 4096);
    EXPECT_EQ(size(510), size(256));
}

TEST(WriterTest, TheSameTablesGiveTheSameBytes) {
    EXPECT_EQ(Written({Tasks("a")}), Written({Tasks("a")}));
}

TEST(WriterTest, NamesTheFieldThatDoesNotFit) {
    ExpectRefused(Tasks(Repeated("x", 256)), ErrorKind::Overflow,
                  "Description in row 2 of table Tasks has 256 characters, and the column takes "
                  "255. Shorten it.");
    ExpectRefused(Tasks("abcdefgh", 7), ErrorKind::Overflow,
                  "Description in row 2 of table Tasks has 8 characters, and the column takes 7. "
                  "Shorten it.");
    ExpectRefused(Tasks("\xFF"), ErrorKind::TypeMismatch,
                  "Description in row 2 of table Tasks is damaged: it is not UTF-8. Enter it "
                  "again.");
    ExpectRefused(Tasks("\xEF\xBB\xBFxyz"), ErrorKind::TypeMismatch,
                  "Description in row 2 of table Tasks begins with a byte order mark. Enter it "
                  "again.");
    ExpectRefused(Tasks(1.5), ErrorKind::TypeMismatch,
                  "Description in row 2 of table Tasks is not of the column's type. Correct it.");
}

TEST(WriterTest, NamesTheNumberThatDoesNotFit) {
    const auto overflows = [](ColumnType type, Value value) {
        ExpectRefused(OneColumn(type, {std::move(value)}), ErrorKind::Overflow,
                      "Days in row 1 of table Gen is beyond the range of the column. Correct it.");
    };
    const auto mismatches = [](ColumnType type, Value value) {
        ExpectRefused(OneColumn(type, {std::move(value)}), ErrorKind::TypeMismatch,
                      "Days in row 1 of table Gen is not of the column's type. Correct it.");
    };
    overflows(ColumnType::Byte, std::int64_t{256});
    overflows(ColumnType::Byte, std::int64_t{-1});
    overflows(ColumnType::Integer, std::int64_t{32768});
    overflows(kLong, std::int64_t{2147483648});
    overflows(kLong, 1e300);
    overflows(ColumnType::Single, 3.5e38);
    overflows(ColumnType::Currency, 1e15);
    overflows(ColumnType::Double, std::numeric_limits<double>::infinity());
    overflows(ColumnType::Double, std::numeric_limits<double>::quiet_NaN());
    mismatches(kLong, 1.5);
    mismatches(ColumnType::Double, "12");
}

TEST(WriterTest, RefusesWhatAFileHasNoPlaceFor) {
    ExpectRefused({"Old Tasks", {{"TaskId", kLong}}, {}}, ErrorKind::TypeMismatch,
                  "the name of table Old Tasks is not of 1 to 64 letters A to Z. Rename it.");
    ExpectRefused({"Gen", {{"When", ColumnType::DateTime}}, {}}, ErrorKind::TypeMismatch,
                  "column When of table Gen is of a type that is not written. Change it.");
    ExpectRefused({"Gen", {{"Days", kLong}}, {{}}}, ErrorKind::SubscriptOutOfRange,
                  "a row of table Gen has not a value for each column.");
    NewTable wide{"Gen", {}, {Row(8, Repeated("組", 255))}};
    for (int i = 0; i < 8; ++i) {
        wide.Columns.push_back({"Text" + std::to_string(i), ColumnType::Text});
    }
    ExpectRefused(wide, ErrorKind::Overflow,
                  "the texts in row 1 of table Gen are too long together. Shorten one.");
    NewTable columns{"Gen", std::vector<Column>(200, {"AColumn", kLong}), {}};
    ExpectRefused(columns, ErrorKind::SubscriptOutOfRange, "a table has too many columns.");
    std::vector<NewTable> tables;
    for (char letter = 'A'; letter <= 'z'; letter = static_cast<char>(letter + 1)) {
        if (letter <= 'Z' || letter >= 'a') {
            tables.push_back({std::string(64, letter), {{"Id", kLong}}, {}});
        }
    }
    EXPECT_THROW(Written(tables), RunTimeError);
}

RC_GTEST_PROP(WriterTest, ARandomModelComesBackEqual, ()) {
    std::mt19937 random(*rc::gen::arbitrary<std::uint32_t>());
    const int tasks = *rc::gen::inRange(0, 8);
    const int resources = *rc::gen::inRange(0, 6);
    ExpectSame(RandomModel(tasks, resources, random));
}

TEST(WriterTest, TheLargestModelComesBackEqual) {
    std::mt19937 random(1);
    const auto model = RandomModel(50, 25, random);
    ASSERT_EQ(model[6].Rows.size(), 31875U);
    Reader reader(FileContent{Written(model)}, "line.mdb");
    for (const NewTable& table : model) {
        EXPECT_TRUE(ReadWhole(reader, table.Name).Rows == table.Rows) << table.Name;
    }
}

}  // namespace
}  // namespace quarnel02::jet
